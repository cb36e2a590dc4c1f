// The three dumps, over records that were loaded, created or changed by hand: compared with the model, which
// reads the records, and with texts that do not depend on it.
#include <cfloat>
#include <cmath>

#include "harness/comma_locale.h"
#include "harness/modelled.h"

using ka_recording::Op;
using model::Loader;
using testing::Contains;
using testing::ElementsAre;

namespace {

// Dumps, and expects what the model does; the texts.
std::vector<std::string> expectDump(Loader loader, const void* result) {
    Host host;
    const model::Parts parts = partsOf(loader, result, 0);
    model::Log want;
    if (loader == Loader::Aec) dumpAec(parts, want);
    if (loader == Loader::BeamForm) dumpBeamForm(parts, want);
    if (loader == Loader::Ao) dumpAo(parts, want);
    model::dump(loader, result);
    expectLog(host, want);
    EXPECT_EQ(model::differences(parts, partsOf(loader, result, 0)), "") << "it only reads";
    if constexpr (Host::kRecords) {
        EXPECT_EQ(host.recorder().events.size(), host.recorder().only({Op::Log, Op::Memset}).size());
    }
    std::vector<std::string> texts;
    for (const LogCall& line : host.log()) texts.push_back(line.text);
    return texts;
}

// The complete document's records, with values in the fields that no key fills. Whole, so that each container
// can be destroyed by itself.
struct Tree {
    Tree() : path(host.file(model::sampleDocument().dump())) {
        aec->pos = -4;
        aec->drop_ref_channel = 7;
        aec->delay->LeastDelay = -2;
        bf->ref_pos = 5;
        bf->num_ref_channel = 8;
        bf->drop_ref_channel = -7;
        bf->reserved = &host;  // never read
    }
    ~Tree() {
        destroyEboAecConfig(&aec);
        destroyEboBeamFormConfig(&bf);
        destroyEboAoConfig(&ao);
    }
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    Host host;
    const std::string path;
    EboAecParam* aec = parseEboAecConfigs(path.c_str());
    EboBeamFormParam* bf = parseEboBeamFormConfigs(path.c_str());
    KAEboParam* ao = parseEboAoConfigs(path.c_str());
};

// Every pair of bits, every single bit, none and all.
std::vector<int32_t> masks() {
    std::vector<int32_t> masks = {0, -1, 0x479, 0x7fffffff};
    for (int i = 0; i < 32; ++i)
        for (int j = i; j < 32; ++j)
            masks.push_back(static_cast<int32_t>(uint32_t{1} << i | uint32_t{1} << j));
    return masks;
}

TEST(Dump, OfANullRecordIsEmpty) {
    Host host;
    dumpEboAecConfig(nullptr);
    dumpEboBeamFormConfig(nullptr);
    dumpEboAoConfig(nullptr);
    expectLog(host, {});
}

TEST(Dump, ShowsEachModuleWithItsBitOnly) {
    Tree tree;
    for (const int32_t mask : masks()) {
        SCOPED_TRACE(mask);
        tree.aec->model_aec_en = mask;
        tree.bf->model_en = mask;
        tree.ao->rx->model_en = mask;
        EXPECT_EQ(expectDump(Loader::Aec, tree.aec).size(), (mask & 0x1) != 0 ? 9U : 4U);
        expectDump(Loader::BeamForm, tree.bf);
        const size_t lines = 3 + ((mask & 0x1) != 0 ? 9U : 0U) + ((mask & 0x2) != 0 ? 2U : 0U);
        EXPECT_EQ(expectDump(Loader::Ao, tree.ao).size(), lines);
    }
}

// The pointers of a container are followed with their bits only, and but for the wake-up's they may be null
// then too.
TEST(Dump, SkipsAModuleWithoutItsRecord) {
    Tree tree;
    const auto expectWithout = [&](auto*& record, Loader loader, const void* result) {
        const auto kept = std::exchange(record, nullptr);
        expectDump(loader, result);
        record = kept;
    };
    tree.bf->model_en = -1;
    expectWithout(tree.bf->dereverb, Loader::BeamForm, tree.bf);
    expectWithout(tree.bf->nlp, Loader::BeamForm, tree.bf);
    expectWithout(tree.bf->aes, Loader::BeamForm, tree.bf);
    expectWithout(tree.bf->anr, Loader::BeamForm, tree.bf);
    expectWithout(tree.bf->agc, Loader::BeamForm, tree.bf);
    expectWithout(tree.bf->cng, Loader::BeamForm, tree.bf);
    expectWithout(tree.bf->dtd, Loader::BeamForm, tree.bf);
    expectWithout(tree.bf->howl, Loader::BeamForm, tree.bf);
    expectWithout(tree.bf->doa, Loader::BeamForm, tree.bf);
    expectWithout(tree.bf->ainr, Loader::BeamForm, tree.bf);
    tree.bf->model_en = ~0x2;
    expectWithout(tree.bf->wakeup, Loader::BeamForm, tree.bf);
    tree.aec->model_aec_en = ~0x1;
    expectWithout(tree.aec->delay, Loader::Aec, tree.aec);
    tree.ao->rx->model_en = -1;
    expectWithout(tree.ao->rx->anr, Loader::Ao, tree.ao);
    expectWithout(tree.ao->rx->howl, Loader::Ao, tree.ao);
}

TEST(Dump, PrintsAPlaceholderForTextsThatAreMissing) {
    Host host;
    EboWakeupParam wakeup = {};
    EboAiNRParam ainr = {};
    EboBeamFormParam bf = {};
    bf.wakeup = &wakeup;
    bf.ainr = &ainr;
    bf.model_en = 0x20002;
    EXPECT_THAT(expectDump(Loader::BeamForm, &bf), Contains("   model_path: (null)"));
}

TEST(Dump, PrintsItsValuesAsTheyAreStated) {
    Tree tree;
    tree.aec->filter_len = -1;
    tree.aec->delay->SmoothFactor = 0.5F;
    tree.bf->agc->fRk2 = 3.0F;
    tree.bf->aes->LimitRatio[0][0] = 1.0F;
    tree.bf->aes->LimitRatio[0][1] = 0.5F;
    tree.bf->aes->LimitRatio[0][2] = 0.25F;
    tree.bf->aes->ThdSplitFreq[0][0] = 500;
    tree.bf->aes->ThdSplitFreq[0][1] = 1000;
    const auto aec = expectDump(Loader::Aec, tree.aec);
    EXPECT_EQ(aec[2], "model_aec_en = 0x3, delay_len = 48, look_ahead = -3 filter_len = -1");
    EXPECT_THAT(aec, Contains("   MicAmpThr = -25536, RefAmpThr = 80, StartFreq = 400, EndFreq = 3600"));
    EXPECT_EQ(aec[7], "   SmoothFactor = 0.500000");
    const auto bf = expectDump(Loader::BeamForm, tree.bf);
    EXPECT_THAT(bf, Contains("   fRk0 = 1.250000, fRk1 = 0.830000, fRk1 = 3.000000"));
    EXPECT_THAT(bf, Contains("      1.0000  0.5000  0.2500  "));
    EXPECT_THAT(bf, Contains("      500     1000    "));
    EXPECT_THAT(bf, Contains("      -32768  32767   "));
    EXPECT_THAT(bf, Contains("        -18             280"));
    EXPECT_THAT(bf, Contains("   beta_up_low = 0.004000, beta_down = 0.001250"));
    EXPECT_THAT(bf, Contains("   word1: hello-lamp"));
}

TEST(Dump, OfDefaultRecordsShowsWhatTheyHold) {
    Host host;
    KAEboParam* ebo = createEboConfigs();
    ebo->aec->model_aec_en &= ~0x1;  // it claims a delay record that it does not have
    EXPECT_EQ(expectDump(Loader::Aec, ebo->aec).at(1), "pos = 1, drop_ref_channel = 0");
    std::vector<std::string> unindented;
    const std::vector<std::string> lines = expectDump(Loader::BeamForm, ebo->bf);
    for (const std::string& line : lines)
        if (line[0] != ' ') unindented.push_back(line);
    EXPECT_THAT(unindented,
                ElementsAre("****************** BeamForm Configs dump ******************",
                            "model_en = 0x479, ref_pos = 1", "targ = 4",
                            "num_ref_channel = 1, drop_ref_channel = 0", "fast_aec:", "nlp:", "aes:", "anr:",
                            "agc:", "stdt:", "********************** End ***************************"));
    EXPECT_THAT(lines, Contains("        10              6"));
    EXPECT_THAT(lines, Contains("         0              6").Times(2));
    destroyEboConfig(&ebo);
}

// Calls that follow one another in one source have different lines, but for the rows of a table.
TEST(Dump, NamesTheLineOfEachCall) {
    Tree tree;
    for (const int32_t mask : masks()) {
        tree.bf->model_en = mask;
        Host host;
        dumpEboBeamFormConfig(tree.bf);
        dumpEboAecConfig(tree.aec);
        const std::vector<LogCall> calls = host.log();
        for (size_t i = 1; i < calls.size(); ++i) {
            const bool parted = i == 4 || calls[i].text.find(" End ") != std::string::npos ||
                                calls[i].text.find(" dump ") != std::string::npos;
            if (calls[i].format != calls[i - 1].format && !parted) {
                EXPECT_NE(calls[i].line, calls[i - 1].line) << calls[i].text;
            }
        }
    }
}

// ---- the rows of the tables

std::vector<std::string> rowsOf(EboAesParam& aes, Host& host) {
    EboBeamFormParam bf = {};
    bf.model_en = 0x10;
    bf.aes = &aes;
    dumpEboBeamFormConfig(&bf);
    std::vector<std::string> rows;
    for (const LogCall& line : host.log())
        if (line.format == "      %s") rows.push_back(line.text.substr(6));
    return rows;
}

std::string times(int count, const std::string& text) {
    return count == 0 ? "" : times(count - 1, text) + text;
}

const std::string kMax = "340282346638528859811704183484516925440.0000  ";  // the largest float
const std::string kZero = "0.0000  ";
const std::string k1e5 = "100000.0000  ";
const std::string k1e4 = "10000.0000  ";
constexpr float kInf = HUGE_VALF;

struct RowCase {
    const char* name;
    float values[10];
    std::string row;
};

// The buffer takes 127 characters; what does not fit is cut off, even inside a number.
const RowCase kRows[] = {
    {"zeros", {}, times(10, kZero)},
    {"rounded",
     {0.03125F, 0.09375F, 0.99996F, 0.99994F},
     "0.0312  0.0938  1.0000  0.9999  " + times(6, kZero)},
    {"negative",
     {-1.0F, -0.5F, -0.0F, -9999.5F},
     "-1.0000  -0.5000  -0.0000  -9999.5000  " + times(6, kZero)},
    {"no_numbers", {kInf, -kInf, NAN, -NAN}, "inf  -inf  nan  -nan  " + times(6, kZero)},
    {"fitting",
     {1e5F, 1e5F, 1e5F, 1e5F, 1e5F, 1e5F, 1e5F, 1e4F, 1e4F, 1e4F},
     times(7, k1e5) + times(3, k1e4)},
    {"one_too_long",
     {1e5F, 1e5F, 1e5F, 1e5F, 1e5F, 1e5F, 1e5F, 1e5F, 1e4F, 1e4F},
     times(8, k1e5) + k1e4 + "10000.0000 "},
    {"cut_in_a_number",
     {1e6F, 1e6F, 1e6F, 1e6F, 1e6F, 1e6F, 1e6F, 1e6F, 1e6F, 1e6F},
     times(10, "1000000.0000  ").substr(0, 127)},
    {"full_too_soon", {FLT_MAX, FLT_MAX, FLT_MAX, FLT_MAX, 1, 2, 3, 4, 5, 6}, times(3, kMax).substr(0, 127)},
    {"full_at_an_end",
     {FLT_MAX, FLT_MAX, 1e20F, 1e5F, 5, 6, 7, 8, 9, 10},
     (times(2, kMax) + "100000002004087734272.0000  " + k1e5).substr(0, 127)},
};

class AesRow : public testing::TestWithParam<RowCase> {};
INSTANTIATE_TEST_SUITE_P(Of, AesRow, testing::ValuesIn(kRows), nameOfCase<RowCase>);

// The rows around it stay whole.
TEST_P(AesRow, IsWrittenAsFarAsItFitsUnderAnyLocale) {
    EboAesParam aes = {};
    std::copy_n(GetParam().values, 10, aes.ThdSupDegree[1]);
    for (const bool comma : {false, true}) {
        std::optional<CommaLocale> locale;
        if (comma) locale.emplace();
        Host host;
        const std::vector<std::string> rows = rowsOf(aes, host);
        ASSERT_EQ(rows.size(), 16U);
        EXPECT_EQ(rows[6], times(10, kZero));
        EXPECT_EQ(rows[7], GetParam().row);
        EXPECT_EQ(rows[8], times(10, kZero));
    }
}

// The whole buffer text of the last row is cleared after each table, through the framework.
TEST(AesRows, OfEveryTableAreCutOffAndCleared) {
    EboAesParam aes = {};
    for (float& value : aes.LimitRatio[0]) value = FLT_MAX;
    aes.LimitRatio[1][0] = -1.0F;
    for (float& value : aes.ThdSupDegree[3]) value = FLT_MAX;
    aes.HardThreshold[0] = 10.0F;
    Host host;
    const std::vector<std::string> rows = rowsOf(aes, host);
    const std::string cut = times(3, kMax).substr(0, 127);
    EXPECT_EQ(rows.at(0), cut);
    EXPECT_EQ(rows.at(1), "-1.0000  0.0000  0.0000  ");
    EXPECT_EQ(rows.at(9), cut);
    EXPECT_EQ(rows.at(10), "0       0       ");
    if constexpr (Host::kRecords) {
        std::vector<std::string> steps;
        for (const auto& event : host.recorder().only({Op::Log, Op::Memset})) {
            if (event.op == Op::Memset)
                steps.push_back(std::to_string(event.size) + " x " + std::to_string(event.value));
            else if (event.line.text.back() == ':')
                steps.push_back(event.line.text);
        }
        EXPECT_THAT(steps, ElementsAre("aes:", "   LimitRatio:", "25 x 0", "   ThdSplitFreq:", "16 x 0",
                                       "   ThdSupDegree:", "127 x 0", "   HardSplitFreq:", "16 x 0",
                                       "   HardThreshold:", "33 x 0"));
    }
}

}  // namespace
