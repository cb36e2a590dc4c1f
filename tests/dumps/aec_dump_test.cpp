#include "harness/bytes.h"
#include "lines.h"

using testing::IsEmpty;

namespace {

const char* const kFunction = "dumpEboAecConfig";

const std::vector<Line> kDelayLines = {
    {"delay:", ""},
    {"   enabled", ""},
    {"   MaxFrame = %d, LeastDelay = %d, JumpFrame = %d, DelayOffset = %d",
     "   MaxFrame = 60, LeastDelay = 2, JumpFrame = 8, DelayOffset = -3"},
    {"   MicAmpThr = %d, RefAmpThr = %d, StartFreq = %d, EndFreq = %d",
     "   MicAmpThr = -25536, RefAmpThr = 80, StartFreq = 400, EndFreq = 3600"},
    {"   SmoothFactor = %f", "   SmoothFactor = 0.500000"},
};

struct Aec {
    int16_t map[2] = {1, 0};
    EboDelayParam delay = {60, 2, 8, -3, -25536, 80, 400, 3600, 0.5F};
    EboAecParam aec = {-4, 7, 0, 48, -2, map, -1, &delay};
};

std::vector<ExpectedLine> linesFor(uint32_t mask) {
    std::vector<Line> lines = {
        {"********************* AEC Configs dump ******************", ""},
        {"pos = %d, drop_ref_channel = %d", "pos = -4, drop_ref_channel = 7"},
        {"model_aec_en = 0x%x, delay_len = %d, look_ahead = %d filter_len = %d",
         "model_aec_en = 0x" + hex(mask) + ", delay_len = 48, look_ahead = -2 filter_len = -1"},
    };
    if ((mask & 0x1) != 0) lines.insert(lines.end(), kDelayLines.begin(), kDelayLines.end());
    lines.push_back({"********************** End ******************************", ""});
    return linesOf(kFunction, lines);
}

TEST(AecDump, OfANullRecordIsEmpty) {
    Host host;
    dumpEboAecConfig(nullptr);
    EXPECT_THAT(host.log(), IsEmpty());
}

TEST(AecDump, ShowsTheDelayRecordWithItsBitOnly) {
    Aec record;
    for (const uint32_t mask : masksOfUpToTwoBits()) {
        SCOPED_TRACE(hex(mask));
        Host host;
        record.aec.model_aec_en = static_cast<int32_t>(mask);
        dumpEboAecConfig(&record.aec);
        expectLog(host, linesFor(mask));
        expectLinesOfTheirOwn(host.log());
    }
}

TEST(AecDump, NeedsNoDelayRecordWithoutItsBit) {
    Aec record;
    record.aec.delay = nullptr;
    record.aec.Array_list = nullptr;
    for (const uint32_t mask : {0x0U, 0x2U, 0xfffffffeU}) {
        Host host;
        record.aec.model_aec_en = static_cast<int32_t>(mask);
        dumpEboAecConfig(&record.aec);
        expectLog(host, linesFor(mask));
    }
}

TEST(AecDump, ChangesAndAllocatesNothing) {
    static Aec record;  // the bytes between its fields are defined too
    record.aec.model_aec_en = -1;
    const auto aec = bytes(record);
    Host host;
    dumpEboAecConfig(&record.aec);
    EXPECT_EQ(bytes(record), aec);
    expectLog(host, linesFor(0xffffffff));
    if constexpr (Host::kRecords) {
        EXPECT_EQ(host.recorder().events.size(), linesFor(1).size());
    }
}

}  // namespace
