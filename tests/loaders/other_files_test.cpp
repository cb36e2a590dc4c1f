// The parts of a file for the echo canceller, the playback path and the gain control.
#include "documents.h"
#include "harness/expect.h"
#include "harness/trace.h"
#include "records.h"
#include "sections.h"

using ka_recording::Op;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const ExpectedLine kMapLine = info("parseEboAecConfigs", "mic_chn_map:%s", "mic_chn_map:3 chn;map:2,0,-1");

TEST(AecFile, FillsTheContainerWithItsDelayRecord) {
    Host host;
    EboAecParam* aec = parseEboAecConfigs(host.file(completeDocument()).c_str());
    expectAec(aec);
    expectLog(host, {kMapLine});
    destroyEboAecConfig(&aec);
}

TEST(AecFile, KeepsTheBitOfItsSectionToItself) {
    Host host;
    const std::string document = with(completeDocument(), "/ebo_configs/aec/status", R"("off")");
    EboAecParam* aec = parseEboAecConfigs(host.file(document).c_str());
    expectAec(aec);  // the same record as from an enabled section
    expectLog(host, {info("parseEboAecConfigs", "aec: not enable"), kMapLine});
    destroyEboAecConfig(&aec);
}

void expectWithoutDelay(const std::string& document, const ExpectedLine& line) {
    SCOPED_TRACE(line.text);
    Host host;
    EboAecParam* aec = parseEboAecConfigs(host.file(document).c_str());
    ASSERT_NE(aec, nullptr);
    EXPECT_EQ(aec->delay, nullptr);
    EXPECT_EQ(aec->model_aec_en, 0x2);
    EXPECT_EQ(aec->delay_len, 48);
    expectLog(host, {kMapLine, line});
    destroyEboAecConfig(&aec);
}

TEST(AecFile, LeavesOutADelayRecordThatIsDisabledOrFails) {
    const std::string& all = completeDocument();
    const std::string reader = "parseEboDelayConfigs";
    expectWithoutDelay(with(all, "/ebo_configs/delay/status", R"("disable")"),
                       info(reader, "delay: not enable"));
    expectWithoutDelay(without(all, "/ebo_configs/delay"), error(reader, "find delay status failed"));
    expectWithoutDelay(without(all, "/ebo_configs/delay/EndFreq"),
                       error(reader, "find delay EndFreq failed"));
}

TEST(AecFile, NeedsNoOtherSection) {
    Host host;
    const std::string document =
        R"({"ebo_configs": {"aec": {"status": "enable", "drop_ref_channel": 0, "delay_len": 1,
                                     "look_ahead": 2, "filter_len": 3}}})";
    EboAecParam* aec = parseEboAecConfigs(host.file(document).c_str());
    ASSERT_NE(aec, nullptr);
    EXPECT_EQ(aec->model_aec_en, 0);
    EXPECT_EQ(aec->Array_list, nullptr);
    expectLog(host, {error("parseEboDelayConfigs", "find delay status failed")});
    destroyEboAecConfig(&aec);
}

TEST(AecFile, IsNullWhenItsFirstSectionFails) {
    for (const std::string& key : requiredSections()[0].keys) {
        SCOPED_TRACE(key);
        Host host;
        std::string document = without(completeDocument(), "/ebo_configs/aec/mic_chn_map");
        document = without(document, "/ebo_configs/aec/" + key);
        EXPECT_EQ(parseEboAecConfigs(host.file(document).c_str()), nullptr);
        expectLog(host, {error("parseEboAecConfigs", "find aec " + key + " failed")});
        if constexpr (Host::kRecords) {
            EXPECT_THAT(releases(host.recorder()), ElementsAre("free parseEboAecConfigs"));
            EXPECT_THAT(calls(host.recorder(), {Op::GetOptions}), testing::SizeIs(1));
            EXPECT_EQ(host.recorder().events.back().op, Op::ParserGone);
        }
    }
}

TEST(AecFile, LeavesTheMapBehindWhenItsFirstSectionFailsAfterIt) {
    Host host;
    host.expectLeaks(1);
    const std::string document = without(completeDocument(), "/ebo_configs/aec/filter_len");
    EXPECT_EQ(parseEboAecConfigs(host.file(document).c_str()), nullptr);
    if constexpr (Host::kRecords) {
        EXPECT_THAT(leaks(host.recorder()), ElementsAre("parseEboAecConfigs:2"));
    }
}

void expectPlaybackRoot(const KAEboParam* ebo, int model_en) {
    ASSERT_NE(ebo, nullptr);
    EXPECT_EQ(ebo->model_en, 4);
    EXPECT_EQ(ebo->aec, nullptr);
    EXPECT_EQ(ebo->bf, nullptr);
    ASSERT_NE(ebo->rx, nullptr);
    EXPECT_EQ(ebo->rx->model_en, model_en);
}

TEST(AoFile, FillsThePlaybackPathAlone) {
    Host host;
    if constexpr (Host::kRecords) host.recorder().garbage = true;
    KAEboParam* ebo = parseEboAoConfigs(host.file(completeDocument()).c_str());
    expectPlaybackRoot(ebo, 0x3);
    expectAoAnr(ebo->rx->anr);
    expectAoHowl(ebo->rx->howl);
    EXPECT_THAT(host.log(), IsEmpty());
    destroyEboAoConfig(&ebo);
}

struct AoStatus {
    const char* anr;
    const char* howl;
    int model_en;
};

const AoStatus kAoStatus[] = {
    {R"("enable")", R"("off")", 0x1},
    {R"("off")", R"("ENABLE")", 0x2},
    {R"("off")", R"("off")", 0x0},
};

TEST(AoFile, SetsTheBitsOfThePlaybackMask) {
    for (const AoStatus& status : kAoStatus) {
        SCOPED_TRACE(status.model_en);
        Host host;
        std::string document = with(completeDocument(), "/ebo_ao_configs/anr/status", status.anr);
        document = with(document, "/ebo_ao_configs/howl/status", status.howl);
        KAEboParam* ebo = parseEboAoConfigs(host.file(document).c_str());
        expectPlaybackRoot(ebo, status.model_en);
        expectAoAnr(ebo->rx->anr);
        expectAoHowl(ebo->rx->howl);
        destroyEboAoConfig(&ebo);
    }
}

struct AoLack {
    const char* place;
    bool anr, howl;
    int model_en;
    std::vector<ExpectedLine> log;
};

const AoLack kAoLacks[] = {
    {"/ebo_ao_configs/anr", false, true, 0x2, {error("parseEboAnrConfigs", "find anr status failed")}},
    {"/ebo_ao_configs/anr/swU", false, true, 0x3, {error("parseEboAnrConfigs", "find anr swU failed")}},
    {"/ebo_ao_configs/howl", true, false, 0x1, {error("parseEboHowlConfigs", "find howl status failed")}},
    {"/ebo_ao_configs/howl/mode", true, false, 0x3, {error("parseEboHowlConfigs", "find howl mode failed")}},
    {"/ebo_ao_configs",
     false,
     false,
     0x0,
     {error("parseEboAnrConfigs", "find anr status failed"),
      error("parseEboHowlConfigs", "find howl status failed")}},
};

TEST(AoFile, ReturnsItsRootWhateverFails) {
    for (const AoLack& lack : kAoLacks) {
        SCOPED_TRACE(lack.place);
        Host host;
        KAEboParam* ebo = parseEboAoConfigs(host.file(without(completeDocument(), lack.place)).c_str());
        expectPlaybackRoot(ebo, lack.model_en);
        EXPECT_EQ(ebo->rx->anr != nullptr, lack.anr);
        EXPECT_EQ(ebo->rx->howl != nullptr, lack.howl);
        expectLog(host, lack.log);
        destroyEboAoConfig(&ebo);
    }
}

TEST(AgcFile, FillsTheRecord) {
    Host host;
    host.expectLeaks(1);
    EboAgcParam* agc = parseEboAgcConfigsFile(host.file(completeDocument()).c_str());
    expectAgcOfItsOwnFile(agc);
    EXPECT_THAT(host.log(), IsEmpty());
    destroyEboAgcConfig(&agc);
}

TEST(AgcFile, FillsTheRecordOfADisabledSection) {
    Host host;
    host.expectLeaks(1);
    const std::string document = with(completeDocument(), "/ebo_agc_configs/agc/status", R"("off")");
    EboAgcParam* agc = parseEboAgcConfigsFile(host.file(document).c_str());
    expectAgcOfItsOwnFile(agc);
    EXPECT_THAT(host.log(), IsEmpty());
    destroyEboAgcConfig(&agc);
}

TEST(AgcFile, IsNullWhenItsSectionFails) {
    for (const char* const place :
         {"/ebo_agc_configs", "/ebo_agc_configs/agc", "/ebo_agc_configs/agc/status"}) {
        SCOPED_TRACE(place);
        Host host;
        host.expectLeaks(1);
        EXPECT_EQ(parseEboAgcConfigsFile(host.file(without(completeDocument(), place)).c_str()), nullptr);
        expectLog(host, {error("parseEboAgcConfigs", "find agc status failed")});
        if constexpr (Host::kRecords) {
            EXPECT_THAT(releases(host.recorder()), ElementsAre("free parseEboAgcConfigs"));
        }
    }
}

TEST(AgcFile, LeavesOneClearedRecordBehindAtEveryOpening) {
    Host host;
    host.expectLeaks(2);
    const std::string path = host.file(completeDocument());
    for (int i = 0; i < 2; ++i) {
        EboAgcParam* agc = parseEboAgcConfigsFile(path.c_str());
        destroyEboAgcConfig(&agc);
    }
    if constexpr (Host::kRecords) {
        EXPECT_THAT(leaks(host.recorder()),
                    ElementsAre("parseEboAgcConfigsFile", "parseEboAgcConfigsFile:2"));
        EXPECT_THAT(calls(host.recorder(), {Op::Memset}),
                    ElementsAre("memset #1 0", "memset #2 0", "memset #3 0", "memset #4 0"));
        for (const auto& event : host.recorder().only({Op::Memset}))
            EXPECT_EQ(event.size, sizeof(EboAgcParam));
    }
}

}  // namespace
