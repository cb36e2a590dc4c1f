// The beamformer's part of a file: only its first section must be there.
#include "documents.h"
#include "harness/expect.h"
#include "harness/trace.h"
#include "records.h"

using ka_recording::Op;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const ExpectedLine kModeLine = {false, 4, "parseEboWakeupConfigs", green("Current wakeup mode is: %d\n"),
                                green("Current wakeup mode is: 2\n")};

// What the complete document loses when one place is taken out.
struct Lack {
    std::string place;
    std::string function;  // says so
    std::string text;
    std::string slot;
    int bits;
};

const Lack kLacks[] = {
    {"fast_aec", "parseEboFastAecConfigs", "find bf status failed", "", 0x1},
    {"gsc", "parseEboGscConfigs", "find gsc status failed", "", 0x180},
    {"gsc/method", "parseEboGscConfigs", "find gsc method failed", "", 0x100},
    {"wind", "parseEboWindConfigs", "find bf status failed", "", 0x10000},
    {"agc", "parseEboAgcConfigs", "find agc status failed", "agc ", 0x20},
    {"agc/swSmL2", "parseEboAgcConfigs", "find agc swSmL2 failed", "agc ", 0x0},
    {"anr", "parseEboAnrConfigs", "find anr status failed", "anr ", 0x40},
    {"anr/TranMode", "parseEboAnrConfigs", "find anr TranMode failed", "anr ", 0x0},
    {"nlp", "parseEboNlpConfigs", "find nlp status failed", "nlp ", 0x8},
    {"dereverb", "parseEboDereverbConfigs", "find dereverb status failed", "dereverb ", 0x4},
    {"cng", "parseEboCngConfigs", "find cng status failed", "cng ", 0x800},
    {"dtd", "parseEboDtdConfigs", "find dtd status failed", "dtd ", 0x400},
    {"aes", "parseEboAesConfigs", "find aes status failed", "aes ", 0x10},
    {"howl", "parseEboHowlConfigs", "find howl status failed", "howl ", 0x4000},
    {"doa", "parseEboDoaConfigs", "find doa status failed", "doa ", 0x8000},
};

std::string allSlotsBut(const std::string& slot) {
    std::string names = kAllSlots;
    return names.erase(names.find(slot), slot.size());
}

TEST(BeamFormFile, FillsTheContainerAndEveryModule) {
    Host host;
    EboBeamFormParam* bf = parseEboBeamFormConfigs(host.file(completeDocument()).c_str());
    ASSERT_NE(bf, nullptr);
    EXPECT_EQ(slots(*bf), kAllSlots);
    expectBeamForm(bf);
    expectLog(host, {kModeLine});
    destroyEboBeamFormConfig(&bf);
}

TEST(BeamFormFile, ReadsNothingOfTheEchoCanceller) {
    Host host;
    std::string document = without(completeDocument(), "/ebo_configs/aec");
    document = without(document, "/ebo_configs/delay");
    EboBeamFormParam* bf = parseEboBeamFormConfigs(host.file(document).c_str());
    ASSERT_NE(bf, nullptr);
    expectBeamForm(bf);
    expectLog(host, {kModeLine});
    destroyEboBeamFormConfig(&bf);
}

TEST(BeamFormFile, LeavesTheSlotOfASectionThatFailsNull) {
    for (const Lack& lack : kLacks) {
        SCOPED_TRACE(lack.place);
        Host host;
        const std::string document = without(completeDocument(), "/ebo_configs/" + lack.place);
        EboBeamFormParam* bf = parseEboBeamFormConfigs(host.file(document).c_str());
        ASSERT_NE(bf, nullptr);
        EXPECT_EQ(slots(*bf), allSlotsBut(lack.slot));
        expectBeamForm(bf, kAllModules & ~lack.bits);
        expectLog(host, {error(lack.function, lack.text), kModeLine});
        destroyEboBeamFormConfig(&bf);
    }
}

TEST(BeamFormFile, LeavesTheLastSlotNull) {
    Host host;
    const std::string document = without(completeDocument(), "/ebo_configs/ainr");
    EboBeamFormParam* bf = parseEboBeamFormConfigs(host.file(document).c_str());
    ASSERT_NE(bf, nullptr);
    EXPECT_EQ(slots(*bf), allSlotsBut("ainr "));
    expectBeamForm(bf, kAllModules & ~0x20000);
    expectLog(host, {kModeLine, error("parseEboAINRConfigs", "find ainr status failed")});
    destroyEboBeamFormConfig(&bf);
}

TEST(BeamFormFile, GetsAnEmptyWakeUpRecordWithoutItsSection) {
    Host host;
    const std::string document = without(completeDocument(), "/ebo_configs/wakeup");
    EboBeamFormParam* bf = parseEboBeamFormConfigs(host.file(document).c_str());
    ASSERT_NE(bf, nullptr);
    EXPECT_EQ(slots(*bf), kAllSlots);
    expectBeamForm(bf, kAllModules & ~0x2);
    EXPECT_THAT(host.log(), IsEmpty());
    destroyEboBeamFormConfig(&bf);
}

TEST(BeamFormFile, ReportsEverySectionThatFailsAndReturnsTheContainer) {
    Host host;
    const std::string document =
        R"({"ebo_configs": {"bf": {"status": "off", "drop_ref_channel": 0, "targ": 3}}})";
    EboBeamFormParam* bf = parseEboBeamFormConfigs(host.file(document).c_str());
    ASSERT_NE(bf, nullptr);
    EXPECT_EQ(bf->model_en, 0);
    EXPECT_EQ(bf->targ, 3);
    EXPECT_EQ(slots(*bf), "wakeup ");
    expectLog(host, {info("parseEboBfConfigs", "bf: not enable"),
                     error("parseEboFastAecConfigs", "find bf status failed"),
                     error("parseEboGscConfigs", "find gsc status failed"),
                     error("parseEboWindConfigs", "find bf status failed"),
                     error("parseEboAgcConfigs", "find agc status failed"),
                     error("parseEboAnrConfigs", "find anr status failed"),
                     error("parseEboNlpConfigs", "find nlp status failed"),
                     error("parseEboDereverbConfigs", "find dereverb status failed"),
                     error("parseEboCngConfigs", "find cng status failed"),
                     error("parseEboDtdConfigs", "find dtd status failed"),
                     error("parseEboAesConfigs", "find aes status failed"),
                     error("parseEboHowlConfigs", "find howl status failed"),
                     error("parseEboDoaConfigs", "find doa status failed"),
                     error("parseEboAINRConfigs", "find ainr status failed")});
    destroyEboBeamFormConfig(&bf);
}

void expectNoContainer(const std::string& document, const std::string& text) {
    SCOPED_TRACE(text);
    Host host;
    EXPECT_EQ(parseEboBeamFormConfigs(host.file(document).c_str()), nullptr);
    expectLog(host, {error("parseEboBfConfigs", text)});
    if constexpr (Host::kRecords) {
        EXPECT_THAT(releases(host.recorder()), ElementsAre("free parseEboBfConfigs"));
        EXPECT_THAT(calls(host.recorder(), {Op::GetOptions}), testing::SizeIs(1));
        EXPECT_EQ(host.recorder().events.back().op, Op::ParserGone);
    }
}

TEST(BeamFormFile, IsNullWhenItsFirstSectionFails) {
    const std::string& all = completeDocument();
    expectNoContainer(without(all, "/ebo_configs"), "find bf status failed");
    expectNoContainer(without(all, "/ebo_configs/bf"), "find bf status failed");
    expectNoContainer(without(all, "/ebo_configs/bf/drop_ref_channel"), "find bf drop_ref_channel failed");
    expectNoContainer(without(all, "/ebo_configs/bf/targ"), "find bf targ failed");
}

}  // namespace
