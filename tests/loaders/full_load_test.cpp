// Whole files that load.
#include "documents.h"
#include "harness/comma_locale.h"
#include "harness/expect.h"
#include "records.h"

namespace {

const ExpectedLine kMapLine = info("parseEboAecConfigs", "mic_chn_map:%s", "mic_chn_map:3 chn;map:2,0,-1");
const ExpectedLine kModeLine = {false, 4, "parseEboWakeupConfigs", green("Current wakeup mode is: %d\n"),
                                green("Current wakeup mode is: 2\n")};
const ExpectedLine kNoDelay = info("parseEboDelayConfigs", "delay: not enable");

void expectWholeTree(const KAEboParam* ebo) {
    ASSERT_NE(ebo, nullptr);
    EXPECT_EQ(ebo->model_en, 0x3);
    EXPECT_EQ(ebo->rx, nullptr);
    expectAec(ebo->aec);
    ASSERT_NE(ebo->bf, nullptr);
    EXPECT_EQ(slots(*ebo->bf), kAllSlots);
    expectBeamForm(ebo->bf);
}

TEST(FullLoad, FillsEveryFieldOfEveryRecord) {
    Host host;
    KAEboParam* ebo = parseEboConfigs(host.file(completeDocument()).c_str());
    expectWholeTree(ebo);
    expectLog(host, {kMapLine, kModeLine});
    destroyEboConfig(&ebo);
}

// The first thing that each section reader and the loader do with their memory is to clear it.
TEST(FullLoad, FillsEveryFieldOfUnclearedMemory) {
    Host host;
    if constexpr (Host::kRecords) host.recorder().garbage = true;
    KAEboParam* ebo = parseEboConfigs(host.file(completeDocument()).c_str());
    expectWholeTree(ebo);
    destroyEboConfig(&ebo);
}

TEST(FullLoad, ReadsTheSameUnderALocaleWithADecimalComma) {
    const CommaLocale locale;
    Host host;
    KAEboParam* ebo = parseEboConfigs(host.file(completeDocument()).c_str());
    expectWholeTree(ebo);
    destroyEboConfig(&ebo);
}

TEST(FullLoad, LooksAtNoOtherRoot) {
    Host host;
    const std::string document = without(without(completeDocument(), "/ebo_ao_configs"), "/ebo_agc_configs");
    KAEboParam* ebo = parseEboConfigs(host.file(document).c_str());
    expectWholeTree(ebo);
    destroyEboConfig(&ebo);
}

struct Masks {
    const char* place;
    const char* value;
    int root, aec, bf;
};

// What is left of the masks of the complete document when one thing is changed.
const Masks kMasksAfterOneChange[] = {
    {"/ebo_configs/aec/status", R"("disable")", 0x2, 0x3, kAllModules},
    {"/ebo_configs/aec/mic_chn_map", R"("0 chn;map:")", 0x3, 0x1, kAllModules},
    {"/ebo_configs/delay/status", R"("disable")", 0x3, 0x2, kAllModules},
    {"/ebo_configs/bf/status", R"("disable")", 0x1, 0x3, kAllModules},
    {"/ebo_configs/fast_aec/status", R"("disable")", 0x3, 0x3, kAllModules & ~0x1},
    {"/ebo_configs/wakeup/status", R"("disable")", 0x3, 0x3, kAllModules & ~0x2},
    {"/ebo_configs/dereverb/status", R"("disable")", 0x3, 0x3, kAllModules & ~0x4},
    {"/ebo_configs/nlp/status", R"("disable")", 0x3, 0x3, kAllModules & ~0x8},
    {"/ebo_configs/aes/status", R"("disable")", 0x3, 0x3, kAllModules & ~0x10},
    {"/ebo_configs/agc/status", R"("disable")", 0x3, 0x3, kAllModules & ~0x20},
    {"/ebo_configs/anr/status", R"("disable")", 0x3, 0x3, kAllModules & ~0x40},
    {"/ebo_configs/gsc/status", R"("disable")", 0x3, 0x3, kAllModules & ~0x80},
    {"/ebo_configs/gsc/method", "2", 0x3, 0x3, kAllModules & ~0x100},
    {"/ebo_configs/dtd/status", R"("disable")", 0x3, 0x3, kAllModules & ~0x400},
    {"/ebo_configs/cng/status", R"("disable")", 0x3, 0x3, kAllModules & ~0x800},
    {"/ebo_configs/howl/status", R"("disable")", 0x3, 0x3, kAllModules & ~0x4000},
    {"/ebo_configs/doa/status", R"("disable")", 0x3, 0x3, kAllModules & ~0x8000},
    {"/ebo_configs/wind/status", R"("disable")", 0x3, 0x3, kAllModules & ~0x10000},
    {"/ebo_configs/ainr/status", R"("disable")", 0x3, 0x3, kAllModules & ~0x20000},
};

// The masks when a single section is enabled; "method" stays 1 throughout.
const Masks kMasksOfOneSection[] = {
    {"/ebo_configs/aec/status", R"("enable")", 0x1, 0x2, 0x100},
    {"/ebo_configs/delay/status", R"("ENABLE")", 0x0, 0x3, 0x100},
    {"/ebo_configs/bf/status", R"("Enable")", 0x2, 0x2, 0x100},
    {"/ebo_configs/fast_aec/status", R"("enable")", 0x0, 0x2, 0x101},
    {"/ebo_configs/wakeup/status", R"("enable")", 0x0, 0x2, 0x102},
    {"/ebo_configs/dereverb/status", R"("enable")", 0x0, 0x2, 0x104},
    {"/ebo_configs/nlp/status", R"("enable")", 0x0, 0x2, 0x108},
    {"/ebo_configs/aes/status", R"("enable")", 0x0, 0x2, 0x110},
    {"/ebo_configs/agc/status", R"("enable")", 0x0, 0x2, 0x120},
    {"/ebo_configs/anr/status", R"("enable")", 0x0, 0x2, 0x140},
    {"/ebo_configs/gsc/status", R"("enable")", 0x0, 0x2, 0x180},
    {"/ebo_configs/gsc/method", "0", 0x0, 0x2, 0x0},
    {"/ebo_configs/dtd/status", R"("enable")", 0x0, 0x2, 0x500},
    {"/ebo_configs/cng/status", R"("enable")", 0x0, 0x2, 0x900},
    {"/ebo_configs/howl/status", R"("enable")", 0x0, 0x2, 0x4100},
    {"/ebo_configs/doa/status", R"("enable")", 0x0, 0x2, 0x8100},
    {"/ebo_configs/wind/status", R"("enable")", 0x0, 0x2, 0x10100},
    {"/ebo_configs/ainr/status", R"("enable")", 0x0, 0x2, 0x20100},
};

void expectMasks(const std::string& document, const Masks& masks) {
    SCOPED_TRACE(std::string(masks.place) + " = " + masks.value);
    Host host;
    KAEboParam* ebo = parseEboConfigs(host.file(with(document, masks.place, masks.value)).c_str());
    ASSERT_NE(ebo, nullptr);
    EXPECT_EQ(ebo->model_en, masks.root);
    EXPECT_EQ(ebo->aec->model_aec_en, masks.aec);
    EXPECT_EQ(slots(*ebo->bf), kAllSlots);
    expectBeamForm(ebo->bf, masks.bf);
    destroyEboConfig(&ebo);
}

TEST(FullLoad, DropsOnlyTheBitOfADisabledSection) {
    for (const Masks& masks : kMasksAfterOneChange) expectMasks(completeDocument(), masks);
}

TEST(FullLoad, SetsOnlyTheBitOfAnEnabledSection) {
    for (const Masks& masks : kMasksOfOneSection) expectMasks(allDisabled(completeDocument()), masks);
}

TEST(FullLoad, SucceedsWithEverySectionDisabled) {
    Host host;
    KAEboParam* ebo = parseEboConfigs(host.file(allDisabled(completeDocument())).c_str());
    ASSERT_NE(ebo, nullptr);
    EXPECT_EQ(ebo->model_en, 0);
    EXPECT_EQ(ebo->aec->delay, nullptr);
    EXPECT_EQ(ebo->aec->model_aec_en, 0x2);
    expectBeamForm(ebo->bf, 0x100);
    expectLog(host, {info("parseEboAecConfigs", "aec: not enable"), kMapLine, kNoDelay,
                     info("parseEboBfConfigs", "bf: not enable")});
    destroyEboConfig(&ebo);
}

TEST(FullLoad, SucceedsWithBothPathsDisabled) {
    Host host;
    std::string document = with(completeDocument(), "/ebo_configs/aec/status", R"("disable")");
    document = with(document, "/ebo_configs/bf/status", R"("disable")");
    KAEboParam* ebo = parseEboConfigs(host.file(document).c_str());
    ASSERT_NE(ebo, nullptr);
    EXPECT_EQ(ebo->model_en, 0);
    expectAec(ebo->aec);
    expectBeamForm(ebo->bf);
    destroyEboConfig(&ebo);
}

void expectWithoutDelay(const std::string& document, const ExpectedLine& line) {
    SCOPED_TRACE(line.text);
    Host host;
    KAEboParam* ebo = parseEboConfigs(host.file(document).c_str());
    ASSERT_NE(ebo, nullptr);
    EXPECT_EQ(ebo->model_en, 0x3);
    EXPECT_EQ(ebo->aec->delay, nullptr);
    EXPECT_EQ(ebo->aec->model_aec_en, 0x2);
    expectLog(host, {kMapLine, line, kModeLine});
    destroyEboConfig(&ebo);
}

TEST(FullLoad, GoesOnWithoutADelayRecord) {
    const std::string& all = completeDocument();
    const auto missing = [](const char* text) { return error("parseEboDelayConfigs", text); };
    expectWithoutDelay(without(all, "/ebo_configs/delay"), missing("find delay status failed"));
    expectWithoutDelay(without(all, "/ebo_configs/delay/status"), missing("find delay status failed"));
    expectWithoutDelay(without(all, "/ebo_configs/delay/MaxFrame"), missing("find delay MaxFrame failed"));
    expectWithoutDelay(without(all, "/ebo_configs/delay/SmoothFactor"),
                       missing("find delay SmoothFactor failed"));
    expectWithoutDelay(with(all, "/ebo_configs/delay", R"({"status": "off"})"), kNoDelay);
}

TEST(FullLoad, GoesOnWithoutAWakeUpSection) {
    Host host;
    const std::string document = without(completeDocument(), "/ebo_configs/wakeup");
    KAEboParam* ebo = parseEboConfigs(host.file(document).c_str());
    ASSERT_NE(ebo, nullptr);
    EXPECT_EQ(slots(*ebo->bf), kAllSlots);
    expectBeamForm(ebo->bf, kAllModules & ~0x2);
    expectLog(host, {kMapLine});
    destroyEboConfig(&ebo);
}

}  // namespace
