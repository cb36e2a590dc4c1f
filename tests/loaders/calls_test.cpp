// The framework calls behind each load, and what happens when one of its allocations fails.
#include <ebo_config.h>

#include <string>

#include "documents.h"
#include "harness/expect.h"
#include "harness/trace.h"

using ka_recording::Op;
using testing::ElementsAre;

namespace {

// Where files, sections and memory come from and go to.
std::vector<std::string> steps(Host& host) {
    return calls(host.recorder(), {Op::ParserMade, Op::ParseFile, Op::GetOptions, Op::Malloc, Op::Strdup,
                                   Op::Free, Op::SafeFree, Op::ParserGone});
}

TEST(LoadCalls, OfAWholeFileComeInOrder) {
    Host host;
    KAEboParam* ebo = parseEboConfigs(host.file(completeDocument()).c_str());
    EXPECT_THAT(
        steps(host),
        ElementsAre(
            "parser made", "parseFile document-0.json", "malloc #1 parseEboConfigs",
            "getOptions ebo_configs/aec", "malloc #2 parseEboAecConfigs",
            "malloc #3 parseEboAecConfigs",  //
            "getOptions ebo_configs/delay", "malloc #4 parseEboDelayConfigs", "getOptions ebo_configs/bf",
            "malloc #5 parseEboBfConfigs", "getOptions ebo_configs/fast_aec", "getOptions ebo_configs/gsc",
            "getOptions ebo_configs/wind",  //
            "getOptions ebo_configs/agc", "malloc #6 parseEboAgcConfigs", "getOptions ebo_configs/anr",
            "malloc #7 parseEboAnrConfigs", "getOptions ebo_configs/nlp", "malloc #8 parseEboNlpConfigs",
            "getOptions ebo_configs/dereverb", "malloc #9 parseEboDereverbConfigs",
            "getOptions ebo_configs/cng", "malloc #10 parseEboCngConfigs", "getOptions ebo_configs/dtd",
            "malloc #11 parseEboDtdConfigs", "getOptions ebo_configs/aes", "malloc #12 parseEboAesConfigs",
            "getOptions ebo_configs/howl", "malloc #13 parseEboHowlConfigs", "getOptions ebo_configs/doa",
            "malloc #14 parseEboDoaConfigs", "getOptions ebo_configs/wakeup",
            "malloc #15 parseEboWakeupConfigs", "strdup #16 hello-lamp", "strdup #17 good-night",  //
            "getOptions ebo_configs/ainr", "malloc #18 parseEboAINRConfigs", "strdup #19 /models/noise.bin",
            "parser gone"));
    EXPECT_EQ(host.recorder().only({Op::Malloc})[0].size, sizeof(KAEboParam));
    destroyEboConfig(&ebo);
}

TEST(LoadCalls, OfAnAecFileComeInOrder) {
    Host host;
    EboAecParam* aec = parseEboAecConfigs(host.file(completeDocument()).c_str());
    EXPECT_THAT(steps(host),
                ElementsAre("parser made", "parseFile document-0.json",  //
                            "getOptions ebo_configs/aec", "malloc #1 parseEboAecConfigs",
                            "malloc #2 parseEboAecConfigs",  //
                            "getOptions ebo_configs/delay", "malloc #3 parseEboDelayConfigs", "parser gone"));
    destroyEboAecConfig(&aec);
}

TEST(LoadCalls, OfABeamFormFileComeInOrder) {
    Host host;
    EboBeamFormParam* bf = parseEboBeamFormConfigs(host.file(completeDocument()).c_str());
    EXPECT_THAT(
        steps(host),
        ElementsAre(
            "parser made", "parseFile document-0.json",  //
            "getOptions ebo_configs/bf", "malloc #1 parseEboBfConfigs", "getOptions ebo_configs/fast_aec",
            "getOptions ebo_configs/gsc",
            "getOptions ebo_configs/wind",  //
            "getOptions ebo_configs/agc", "malloc #2 parseEboAgcConfigs", "getOptions ebo_configs/anr",
            "malloc #3 parseEboAnrConfigs", "getOptions ebo_configs/nlp", "malloc #4 parseEboNlpConfigs",
            "getOptions ebo_configs/dereverb", "malloc #5 parseEboDereverbConfigs",
            "getOptions ebo_configs/cng", "malloc #6 parseEboCngConfigs", "getOptions ebo_configs/dtd",
            "malloc #7 parseEboDtdConfigs", "getOptions ebo_configs/aes", "malloc #8 parseEboAesConfigs",
            "getOptions ebo_configs/howl", "malloc #9 parseEboHowlConfigs", "getOptions ebo_configs/doa",
            "malloc #10 parseEboDoaConfigs", "getOptions ebo_configs/wakeup",
            "malloc #11 parseEboWakeupConfigs", "strdup #12 hello-lamp", "strdup #13 good-night",  //
            "getOptions ebo_configs/ainr", "malloc #14 parseEboAINRConfigs", "strdup #15 /models/noise.bin",
            "parser gone"));
    destroyEboBeamFormConfig(&bf);
}

TEST(LoadCalls, OfAnAoFileComeInOrder) {
    Host host;
    KAEboParam* ebo = parseEboAoConfigs(host.file(completeDocument()).c_str());
    EXPECT_THAT(steps(host), ElementsAre("parser made", "parseFile document-0.json",  //
                                         "malloc #1 parseEboAoConfigs", "malloc #2 parseEboAoConfigs",
                                         "getOptions ebo_ao_configs/anr", "malloc #3 parseEboAnrConfigs",
                                         "getOptions ebo_ao_configs/howl", "malloc #4 parseEboHowlConfigs",
                                         "parser gone"));
    EXPECT_EQ(host.recorder().only({Op::Malloc})[0].size, sizeof(KAEboParam));
    EXPECT_EQ(host.recorder().only({Op::Malloc})[1].size, sizeof(EboRxParam));
    destroyEboAoConfig(&ebo);
}

TEST(LoadCalls, OfAnAgcFileComeInOrder) {
    Host host;
    host.expectLeaks(1);
    EboAgcParam* agc = parseEboAgcConfigsFile(host.file(completeDocument()).c_str());
    EXPECT_THAT(steps(host), ElementsAre("parser made", "parseFile document-0.json",  //
                                         "malloc #1 parseEboAgcConfigsFile", "getOptions ebo_agc_configs/agc",
                                         "malloc #2 parseEboAgcConfigs", "parser gone"));
    EXPECT_EQ(host.recorder().only({Op::Malloc})[0].size, sizeof(EboAgcParam));
    destroyEboAgcConfig(&agc);
}

// The n-th copy of a text fails: its field stays null, and nothing is said.
TEST(LoadCalls, GoOnWithoutATextThatCannotBeCopied) {
    for (int n = 1; n <= 3; ++n) {
        SCOPED_TRACE(n);
        Host host;
        host.recorder().fail_strdup = n;
        KAEboParam* ebo = parseEboConfigs(host.file(completeDocument()).c_str());
        ASSERT_NE(ebo, nullptr);
        EXPECT_EQ(ebo->bf->wakeup->model_word1 == nullptr, n == 1);
        EXPECT_EQ(ebo->bf->wakeup->model_word2 == nullptr, n == 2);
        EXPECT_EQ(ebo->bf->ainr->model_path == nullptr, n == 3);
        EXPECT_EQ(host.log().size(), 2U);  // the map and the mode, as ever
        destroyEboConfig(&ebo);
    }
}

// The n-th allocation of a load fails.
struct Shortage {
    std::string name;
    void (*load)(const char* path);
    int allocation;
    std::string function;
    std::string expression;
};

void loadWhole(const char* path) {
    parseEboConfigs(path);
}
void loadAec(const char* path) {
    parseEboAecConfigs(path);
}
void loadBeamForm(const char* path) {
    parseEboBeamFormConfigs(path);
}
void loadAo(const char* path) {
    parseEboAoConfigs(path);
}
void loadAgc(const char* path) {
    parseEboAgcConfigsFile(path);
}

const Shortage kShortages[] = {
    {"whole_root", loadWhole, 1, "parseEboConfigs", "ebo != KA_NULL"},
    {"whole_aec", loadWhole, 2, "parseEboAecConfigs", "aec != KA_NULL"},
    {"whole_map", loadWhole, 3, "parseEboAecConfigs", "aec->Array_list != KA_NULL"},
    {"whole_delay", loadWhole, 4, "parseEboDelayConfigs", "delay != KA_NULL"},
    {"whole_bf", loadWhole, 5, "parseEboBfConfigs", "bf != KA_NULL"},
    {"whole_agc", loadWhole, 6, "parseEboAgcConfigs", "agc != KA_NULL"},
    {"whole_anr", loadWhole, 7, "parseEboAnrConfigs", "anr != KA_NULL"},
    {"whole_nlp", loadWhole, 8, "parseEboNlpConfigs", "nlp != KA_NULL"},
    {"whole_dereverb", loadWhole, 9, "parseEboDereverbConfigs", "dereverb != KA_NULL"},
    {"whole_cng", loadWhole, 10, "parseEboCngConfigs", "cng != KA_NULL"},
    {"whole_dtd", loadWhole, 11, "parseEboDtdConfigs", "sdtd != KA_NULL"},
    {"whole_aes", loadWhole, 12, "parseEboAesConfigs", "aes != KA_NULL"},
    {"whole_howl", loadWhole, 13, "parseEboHowlConfigs", "howl != KA_NULL"},
    {"whole_doa", loadWhole, 14, "parseEboDoaConfigs", "doa != KA_NULL"},
    {"whole_wakeup", loadWhole, 15, "parseEboWakeupConfigs", "wakeup != KA_NULL"},
    {"whole_ainr", loadWhole, 16, "parseEboAINRConfigs", "ainr != KA_NULL"},
    {"aec_aec", loadAec, 1, "parseEboAecConfigs", "aec != KA_NULL"},
    {"aec_map", loadAec, 2, "parseEboAecConfigs", "aec->Array_list != KA_NULL"},
    {"aec_delay", loadAec, 3, "parseEboDelayConfigs", "delay != KA_NULL"},
    {"bf_bf", loadBeamForm, 1, "parseEboBfConfigs", "bf != KA_NULL"},
    {"bf_agc", loadBeamForm, 2, "parseEboAgcConfigs", "agc != KA_NULL"},
    {"bf_anr", loadBeamForm, 3, "parseEboAnrConfigs", "anr != KA_NULL"},
    {"bf_nlp", loadBeamForm, 4, "parseEboNlpConfigs", "nlp != KA_NULL"},
    {"bf_dereverb", loadBeamForm, 5, "parseEboDereverbConfigs", "dereverb != KA_NULL"},
    {"bf_cng", loadBeamForm, 6, "parseEboCngConfigs", "cng != KA_NULL"},
    {"bf_dtd", loadBeamForm, 7, "parseEboDtdConfigs", "sdtd != KA_NULL"},
    {"bf_aes", loadBeamForm, 8, "parseEboAesConfigs", "aes != KA_NULL"},
    {"bf_howl", loadBeamForm, 9, "parseEboHowlConfigs", "howl != KA_NULL"},
    {"bf_doa", loadBeamForm, 10, "parseEboDoaConfigs", "doa != KA_NULL"},
    {"bf_wakeup", loadBeamForm, 11, "parseEboWakeupConfigs", "wakeup != KA_NULL"},
    {"bf_ainr", loadBeamForm, 12, "parseEboAINRConfigs", "ainr != KA_NULL"},
    {"ao_root", loadAo, 1, "parseEboAoConfigs", "ebo != KA_NULL"},
    {"ao_rx", loadAo, 2, "parseEboAoConfigs", "rx != KA_NULL"},
    {"ao_anr", loadAo, 3, "parseEboAnrConfigs", "anr != KA_NULL"},
    {"ao_howl", loadAo, 4, "parseEboHowlConfigs", "howl != KA_NULL"},
    {"agc_spare", loadAgc, 1, "parseEboAgcConfigsFile", "eboAgc != KA_NULL"},
    {"agc_agc", loadAgc, 2, "parseEboAgcConfigs", "agc != KA_NULL"},
};

// The name of the test.
void PrintTo(const Shortage& shortage, std::ostream* out) {
    *out << shortage.name;
}

class LoadWithoutMemoryDeathTest : public testing::TestWithParam<Shortage> {};

INSTANTIATE_TEST_SUITE_P(, LoadWithoutMemoryDeathTest, testing::ValuesIn(kShortages));

void loadWithout(const Shortage& shortage) {
    Host host;
    host.echo();
    host.recorder().fail_malloc = shortage.allocation;
    shortage.load(host.file(completeDocument()).c_str());
}

TEST_P(LoadWithoutMemoryDeathTest, Aborts) {
    EXPECT_ASSERTION(loadWithout(GetParam()), GetParam().function, GetParam().expression);
}

}  // namespace
