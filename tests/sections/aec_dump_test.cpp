#include <ebo_config.h>

#include "harness/bytes.h"
#include "harness/expect.h"

using ka_recording::Op;

namespace {

const char* const kDump = "dumpEboAecConfig";

const ExpectedLine kBanner = info(kDump, "********************* AEC Configs dump ******************");
const ExpectedLine kEnd = info(kDump, "********************** End ******************************");

ExpectedLine positionLine(const std::string& text) {
    return info(kDump, "pos = %d, drop_ref_channel = %d", text);
}
ExpectedLine lengthsLine(const std::string& text) {
    return info(kDump, "model_aec_en = 0x%x, delay_len = %d, look_ahead = %d filter_len = %d", text);
}

std::vector<ExpectedLine> delayLines(const std::string& frames, const std::string& band,
                                     const std::string& smooth) {
    return {info(kDump, "delay:"), info(kDump, "   enabled"),
            info(kDump, "   MaxFrame = %d, LeastDelay = %d, JumpFrame = %d, DelayOffset = %d", frames),
            info(kDump, "   MicAmpThr = %d, RefAmpThr = %d, StartFreq = %d, EndFreq = %d", band),
            info(kDump, "   SmoothFactor = %f", smooth)};
}

EboDelayParam someDelay() {
    EboDelayParam delay = {};
    delay.MaxFrame = 60;
    delay.LeastDelay = 2;
    delay.JumpFrame = 8;
    delay.DelayOffset = -1;
    delay.MicAmpThr = -25536;
    delay.RefAmpThr = 80;
    delay.StartFreq = 400;
    delay.EndFreq = 3600;
    delay.SmoothFactor = 0.5F;
    return delay;
}

EboAecParam someAec() {
    EboAecParam aec = {};
    aec.pos = -3;
    aec.drop_ref_channel = 1;
    aec.delay_len = 48;
    aec.look_ahead = 70000;
    aec.filter_len = 1024;
    return aec;
}

std::vector<ExpectedLine> linesWithoutDelay(const std::string& mask) {
    return {kBanner, positionLine("pos = -3, drop_ref_channel = 1"),
            lengthsLine("model_aec_en = " + mask + ", delay_len = 48, look_ahead = 70000 filter_len = 1024"),
            kEnd};
}

std::vector<ExpectedLine> linesWithDelay(const std::string& mask) {
    std::vector<ExpectedLine> lines = linesWithoutDelay(mask);
    const auto delay = delayLines("   MaxFrame = 60, LeastDelay = 2, JumpFrame = 8, DelayOffset = -1",
                                  "   MicAmpThr = -25536, RefAmpThr = 80, StartFreq = 400, EndFreq = 3600",
                                  "   SmoothFactor = 0.500000");
    lines.insert(lines.end() - 1, delay.begin(), delay.end());
    return lines;
}

TEST(AecDump, OfNothingLogsNothing) {
    Host host;
    dumpEboAecConfig(nullptr);
    expectLog(host, {});
}

TEST(AecDump, WithoutDelayBitHasFourLines) {
    int16_t map[] = {1, 0};
    EboDelayParam delay = someDelay();
    for (const bool with_records : {false, true}) {
        Host host;
        EboAecParam aec = someAec();
        aec.model_aec_en = 0x2;
        if (with_records) aec.Array_list = map;
        if (with_records) aec.delay = &delay;  // the bit decides, not the pointer
        dumpEboAecConfig(&aec);
        expectLog(host, linesWithoutDelay("0x2"));
    }
}

TEST(AecDump, WithMapAndDelayHasNineLines) {
    Host host;
    int16_t map[] = {1, 0};
    EboDelayParam delay = someDelay();
    EboAecParam aec = someAec();
    aec.model_aec_en = 0x3;
    aec.Array_list = map;
    aec.delay = &delay;
    dumpEboAecConfig(&aec);
    expectLog(host, linesWithDelay("0x3"));
}

struct Mask {
    const char* name;
    uint32_t bits;
    bool delay;
    const char* text;
};

const Mask kMasks[] = {
    {"none", 0, false, "0x0"},
    {"delay", 0x1, true, "0x1"},
    {"map", 0x2, false, "0x2"},
    {"all_but_delay", 0xfffffffe, false, "0xfffffffe"},
    {"all", 0xffffffff, true, "0xffffffff"},
    {"highest", 0x80000001, true, "0x80000001"},
    {"letters", 0xabcdef0, false, "0xabcdef0"},
};

class AecDumpMask : public testing::TestWithParam<Mask> {};
INSTANTIATE_TEST_SUITE_P(Of, AecDumpMask, testing::ValuesIn(kMasks), nameOfCase<Mask>);

TEST_P(AecDumpMask, IsPrintedInLowerCaseAndOnlyItsFirstBitCounts) {
    Host host;
    EboDelayParam delay = someDelay();
    EboAecParam aec = someAec();
    aec.model_aec_en = static_cast<int32_t>(GetParam().bits);
    aec.delay = &delay;
    dumpEboAecConfig(&aec);
    expectLog(host, GetParam().delay ? linesWithDelay(GetParam().text) : linesWithoutDelay(GetParam().text));
}

TEST(AecDump, ExtendsTheSignOf16BitFields) {
    Host host;
    EboDelayParam delay = {-1, -2, -3, -32768, 32767, -6, -7, -8, 0};
    EboAecParam aec = {};
    aec.model_aec_en = 0x1;
    aec.filter_len = -1;
    aec.delay = &delay;
    dumpEboAecConfig(&aec);
    std::vector<ExpectedLine> lines = {
        kBanner, positionLine("pos = 0, drop_ref_channel = 0"),
        lengthsLine("model_aec_en = 0x1, delay_len = 0, look_ahead = 0 filter_len = -1")};
    for (const auto& line :
         delayLines("   MaxFrame = -1, LeastDelay = -2, JumpFrame = -3, DelayOffset = -32768",
                    "   MicAmpThr = 32767, RefAmpThr = -6, StartFreq = -7, EndFreq = -8",
                    "   SmoothFactor = 0.000000"))
        lines.push_back(line);
    lines.push_back(kEnd);
    expectLog(host, lines);
}

struct Smooth {
    const char* name;
    float value;
    const char* text;
};

const Smooth kSmooth[] = {
    {"half", 0.5F, "   SmoothFactor = 0.500000"},
    {"nearest_float", 0.1F, "   SmoothFactor = 0.100000"},
    {"widened", 16777217.1F, "   SmoothFactor = 16777218.000000"},
    {"negative_zero", -0.0F, "   SmoothFactor = -0.000000"},
    {"too_small_to_show", 1e-9F, "   SmoothFactor = 0.000000"},
    {"large", 1e10F, "   SmoothFactor = 10000000000.000000"},
};

class AecDumpSmoothFactor : public testing::TestWithParam<Smooth> {};
INSTANTIATE_TEST_SUITE_P(Of, AecDumpSmoothFactor, testing::ValuesIn(kSmooth), nameOfCase<Smooth>);

TEST_P(AecDumpSmoothFactor, HasSixDecimals) {
    Host host;
    EboDelayParam delay = someDelay();
    delay.SmoothFactor = GetParam().value;
    EboAecParam aec = someAec();
    aec.model_aec_en = 0x1;
    aec.delay = &delay;
    dumpEboAecConfig(&aec);
    const auto log = host.log();
    ASSERT_EQ(log.size(), 9U);
    EXPECT_EQ(log[7].text, GetParam().text);
}

TEST(AecDump, OnlyReads) {
    Host host;
    EboDelayParam delay = someDelay();
    EboAecParam aec = someAec();
    aec.model_aec_en = 0x3;
    aec.delay = &delay;
    const auto aec_before = bytes(aec);
    const auto delay_before = bytes(delay);
    dumpEboAecConfig(&aec);
    EXPECT_EQ(bytes(aec), aec_before);
    EXPECT_EQ(bytes(delay), delay_before);
    if constexpr (Host::kRecords) {
        EXPECT_EQ(host.recorder().events.size(), host.recorder().log().size()) << "it only logs";
    }
}

// A default record claims a delay record that it does not have: with the bit cleared it may be dumped.
TEST(AecDump, OfADefaultRecordNeedsTheDelayBitCleared) {
    Host host;
    EboAecParam* aec = createEboAecConfig();
    ASSERT_NE(aec, nullptr);
    EXPECT_EQ(aec->model_aec_en, 0x1);
    aec->model_aec_en &= ~EBO_AEC_DELAY;
    dumpEboAecConfig(aec);
    expectLog(host, {kBanner, positionLine("pos = 1, drop_ref_channel = 0"),
                     lengthsLine("model_aec_en = 0x0, delay_len = 0, look_ahead = 0 filter_len = 0"), kEnd});
    destroyEboAecConfig(&aec);
}

TEST(AecDump, ShowsWhatWasLoaded) {
    Host host;
    const std::string path = host.file(R"({"ebo_configs": {
        "aec": {"status": "enable", "mic_chn_map": "2 chn;map:1,0", "drop_ref_channel": 7, "delay_len": 1,
                "look_ahead": 2, "filter_len": 65535},
        "delay": {"status": "enable", "MaxFrame": 1, "LeastDelay": 9, "JumpFrame": 3, "DelayOffset": 4,
                  "MicAmpThr": 40000, "RefAmpThr": 6, "StartFreq": 7, "EndFreq": 8, "SmoothFactor": 0.25}}})");
    EboAecParam* aec = parseEboAecConfigs(path.c_str());
    ASSERT_NE(aec, nullptr);
    host.clearLog();
    dumpEboAecConfig(aec);
    std::vector<ExpectedLine> lines = {
        kBanner, positionLine("pos = 0, drop_ref_channel = 1"),
        lengthsLine("model_aec_en = 0x3, delay_len = 1, look_ahead = 2 filter_len = -1")};
    for (const auto& line : delayLines("   MaxFrame = 1, LeastDelay = 0, JumpFrame = 3, DelayOffset = 4",
                                       "   MicAmpThr = -25536, RefAmpThr = 6, StartFreq = 7, EndFreq = 8",
                                       "   SmoothFactor = 0.250000"))
        lines.push_back(line);
    lines.push_back(kEnd);
    expectLog(host, lines);
    destroyEboAecConfig(&aec);
}

}  // namespace
