#include "harness/bytes.h"
#include "lines.h"

using testing::IsEmpty;

namespace {

struct Rx {
    EboAnrParam anr = anrRecord();
    EboHowlParam howl = howlRecord();
    EboRxParam rx = {0, &anr, &howl};
};

std::vector<ExpectedLine> linesFor(uint32_t mask, bool anr, bool howl) {
    std::vector<Line> lines = {
        {"****************** AO Configs dump ******************", ""},
        {"model_en = 0x%x", "model_en = 0x" + hex(mask)},
    };
    if ((mask & 0x1) != 0 && anr) lines.insert(lines.end(), anrLines().begin(), anrLines().end());
    if ((mask & 0x2) != 0 && howl) lines.insert(lines.end(), howlLines().begin(), howlLines().end());
    lines.push_back({kEnd, ""});
    return linesOf("dumpEboAoConfig", lines);
}

TEST(AoDump, OfANullRecordIsEmpty) {
    Host host;
    dumpEboAoConfig(nullptr);
    EXPECT_THAT(host.log(), IsEmpty());
}

void expectDump(bool anr, bool howl) {
    Rx record;
    if (!anr) record.rx.anr = nullptr;
    if (!howl) record.rx.howl = nullptr;
    for (const uint32_t mask : masksOfUpToTwoBits()) {
        SCOPED_TRACE(hex(mask));
        Host host;
        record.rx.model_en = static_cast<int32_t>(mask);
        dumpEboAoConfig(&record.rx);
        expectLog(host, linesFor(mask, anr, howl));
    }
}

TEST(AoDump, ShowsTheModulesWithTheirBitsOnly) {
    expectDump(true, true);
}
TEST(AoDump, SkipsTheNoiseReductionWithoutItsRecord) {
    expectDump(false, true);
}
TEST(AoDump, SkipsTheHowlingSuppressionWithoutItsRecord) {
    expectDump(true, false);
}
TEST(AoDump, SkipsBothModulesWithoutTheirRecords) {
    expectDump(false, false);
}

TEST(AoDump, ChangesAndAllocatesNothing) {
    static Rx record;  // the bytes between its fields are defined too
    record.rx.model_en = -1;
    const auto before = bytes(record);
    Host host;
    dumpEboAoConfig(&record.rx);
    EXPECT_EQ(bytes(record), before);
    if constexpr (Host::kRecords) {
        EXPECT_EQ(host.recorder().events.size(), linesFor(0x3, true, true).size());
    }
}

}  // namespace
