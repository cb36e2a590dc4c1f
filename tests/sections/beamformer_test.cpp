#include <cstring>

#include "sections/reading.h"

namespace {

TEST(Bf, ThatIsOffIsReportedAndFilledAllTheSame) {
    Reading bf("bf");
    bf.keys = {{"status", "off"}, {"drop_ref_channel", 0}, {"targ", 3}};
    bf.mask = 0x1;
    bf.run();
    ASSERT_FALSE(bf.failed);
    EXPECT_EQ(bf.as<EboBeamFormParam>().targ, 3);
    EXPECT_EQ(bf.as<EboBeamFormParam>().drop_ref_channel, 0);
    EXPECT_EQ(bf.as<EboBeamFormParam>().model_en, 0);
    EXPECT_EQ(bf.mask, 0x1);
    expectLog(bf.host, {info("parseEboBfConfigs", "bf: not enable")});
}

TEST(Bf, StartsFromZeroNotFromTheDefaults) {
    Reading bf("bf");
    bf.keys["ref_pos"] = 9;
    bf.keys["num_ref_channel"] = 9;
    bf.run();
    EboBeamFormParam expected = {};
    expected.targ = 4;
    expected.drop_ref_channel = 1;
    EXPECT_EQ(memcmp(&bf.as<EboBeamFormParam>(), &expected, sizeof expected), 0);
    EXPECT_EQ(bf.mask, 0x2) << "in the mask of the caller, not in the record's";
}

struct Switch {
    const char* name;
    const char* section;
    json keys;
    int mask;
    const char* message;  // null: it does not fail
};

// One document, one line.
// clang-format off
const Switch kSwitches[] = {
    {"gsc_disabled_with_method_1", "gsc", {{"status", "disable"}, {"method", 1}}, 0x100, nullptr},
    {"gsc_enabled_with_method_1", "gsc", {{"status", "enable"}, {"method", 1}}, 0x180, nullptr},
    {"gsc_enabled_with_method_2", "gsc", {{"status", "enable"}, {"method", 2}}, 0x80, nullptr},
    {"gsc_enabled_with_method_0", "gsc", {{"status", "enable"}, {"method", 0}}, 0x80, nullptr},
    {"gsc_enabled_with_method_minus_1", "gsc", {{"status", "enable"}, {"method", -1}}, 0x80, nullptr},
    {"gsc_enabled_with_method_65537", "gsc", {{"status", "enable"}, {"method", 65537}}, 0x80, nullptr},
    {"gsc_disabled_with_method_0", "gsc", {{"status", "disable"}, {"method", 0}}, 0, nullptr},
    {"gsc_enabled_without_method", "gsc", {{"status", "enable"}}, 0x80, "find gsc method failed"},
    {"gsc_disabled_without_method", "gsc", {{"status", "disable"}}, 0, "find gsc method failed"},
    {"gsc_without_status", "gsc", {{"method", 1}}, 0, "find gsc status failed"},
    {"wind_without_status", "wind", {{"method", 1}}, 0, "find bf status failed"},
    {"wind_enabled", "wind", {{"status", "enable"}}, 0x10000, nullptr},
    {"wind_with_no", "wind", {{"status", "no"}}, 0, nullptr},
    {"fast_aec_not_there", "fast_aec", nullptr, 0, "find bf status failed"},
    {"fast_aec_enabled", "fast_aec", {{"status", "Enable"}}, 0x1, nullptr},
    {"fast_aec_with_no", "fast_aec", {{"status", "no"}}, 0, nullptr},
};
// clang-format on

class SwitchSection : public testing::TestWithParam<Switch> {};
INSTANTIATE_TEST_SUITE_P(With, SwitchSection, testing::ValuesIn(kSwitches), nameOfCase<Switch>);

TEST_P(SwitchSection, SetsItsBitsAndNothingElse) {
    Reading reading(GetParam().section);
    reading.keys = GetParam().keys;
    reading.run();
    EXPECT_EQ(reading.failed, GetParam().message != nullptr);
    EXPECT_EQ(reading.mask, GetParam().mask);
    std::vector<ExpectedLine> lines;
    if (GetParam().message) lines.push_back(error(reading.section.function, GetParam().message));
    expectLog(reading.host, lines);
}

TEST(Howl, SaysNothingWhenDisabledAndReadsItsMode) {
    Reading howl("howl");
    howl.keys = {{"status", "disable"}, {"mode", 2}};
    howl.run();
    EXPECT_EQ(howl.as<EboHowlParam>().mode, 2);
    EXPECT_EQ(howl.mask, 0);
    expectLog(howl.host, {});
}

TEST(Doa, MissingLastKeyLeavesTheBitSet) {
    Reading doa("doa");
    doa.keys.erase("lg_pitch_num");
    doa.run();
    EXPECT_TRUE(doa.failed);
    EXPECT_EQ(doa.mask, 0x8000);
    expectLog(doa.host, {error("parseEboDoaConfigs", "find doa lg_pitch_num failed")});
}

struct PathBit {
    const char* name;
    const char* section;
    const char* root;
    int bit;
};

const PathBit kPaths[] = {
    {"anr_playback", "anr", "ebo_ao_configs", 0x1},
    {"anr_playback_in_capitals", "anr", "EBO_AO_CONFIGS", 0x1},
    {"anr_playback_in_mixed_case", "anr", "Ebo_Ao_Configs", 0x1},
    {"anr_capture", "anr", "ebo_configs", 0x40},
    {"anr_beginning_of_playback", "anr", "ebo_ao_config", 0x40},
    {"anr_more_than_playback", "anr", "ebo_ao_configs2", 0x40},
    {"anr_empty", "anr", "", 0x40},
    {"howl_playback", "howl", "ebo_ao_configs", 0x2},
    {"howl_playback_in_capitals", "howl", "EBO_AO_CONFIGS", 0x2},
    {"howl_playback_in_mixed_case", "howl", "Ebo_Ao_Configs", 0x2},
    {"howl_capture", "howl", "ebo_configs", 0x4000},
    {"howl_beginning_of_playback", "howl", "ebo_ao_config", 0x4000},
    {"howl_more_than_playback", "howl", "ebo_ao_configs2", 0x4000},
    {"howl_empty", "howl", "", 0x4000},
    {"bf_playback", "bf", "ebo_ao_configs", 0x2},
    {"wakeup_playback", "wakeup", "ebo_ao_configs", 0x2},
    {"nlp_playback", "nlp", "ebo_ao_configs", 0x8},
    {"agc_playback", "agc", "ebo_ao_configs", 0x20},
};

class RootName : public testing::TestWithParam<PathBit> {};
INSTANTIATE_TEST_SUITE_P(Of, RootName, testing::ValuesIn(kPaths), nameOfCase<PathBit>);

TEST_P(RootName, DecidesWhichBitIsSet) {
    Reading enabled(GetParam().section);
    enabled.root = GetParam().root;
    enabled.run();
    EXPECT_FALSE(enabled.failed);
    EXPECT_EQ(enabled.mask, GetParam().bit);
    Reading disabled(GetParam().section);
    disabled.root = GetParam().root;
    disabled.keys["status"] = "disable";
    disabled.run();
    EXPECT_FALSE(disabled.failed);
    EXPECT_EQ(disabled.mask, 0);
}

TEST(PlaybackHowl, MissingModeFailsWithTheBitSet) {
    Reading howl("howl");
    howl.root = "ebo_ao_configs";
    howl.keys.erase("mode");
    howl.run();
    EXPECT_TRUE(howl.failed);
    EXPECT_EQ(howl.mask, 0x2);
    expectLog(howl.host, {error("parseEboHowlConfigs", "find howl mode failed")});
}

}  // namespace
