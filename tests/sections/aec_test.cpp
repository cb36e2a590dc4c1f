#include <sys/mman.h>

#include "sections/reading.h"

namespace {

struct Map {
    const char* name;
    std::string text;
    std::vector<int16_t> entries;
};

// One map, one line.
// clang-format off
const Map kMaps[] = {
    {"two_channels", "2 chn;map:1,0", {1, 0}},
    {"sixteen_channels",
     "16 chn;map:15,14,13,12,11,10,9,8,7,6,5,4,3,2,1,0",
     {15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0}},
    {"more_numbers_than_the_count", "2 chn;map:1,0,5,6", {1, 0}},
    {"more_than_sixteen_numbers",
     "16 chn;map:1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18",
     {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}},
    {"fewer_numbers_than_the_count", "3 chn;map:7", {7, 0, 0}},
    {"no_number", "3 chn;map:", {0, 0, 0}},
    {"count_alone", "3", {0, 0, 0}},
    {"blanks_behind_it", "2 chn;map:1,0" + std::string(200, ' '), {1, 0}},
    {"no_blank_after_the_count", "2chn;map:1,9", {1, 9}},
    {"other_white_space", " \t2 \n chn;map: 1,\t9", {1, 9}},
    {"blank_before_a_comma", "2 chn;map:1 ,9", {1, 0}},
    {"blank_in_the_words", "2 chn; map:1,9", {0, 0}},
    {"capital_words", "2 CHN;map:1,9", {0, 0}},
    {"words_cut_off", "2 chn;ma", {0, 0}},
    {"semicolon_between_numbers", "2 chn;map:1;9", {1, 0}},
    {"letter_for_a_number", "2 chn;map:x,9", {0, 0}},
    {"count_with_a_fraction", "2.5 chn;map:1,9", {0, 0}},
    {"number_with_a_fraction", "2 chn;map:1.5,9", {1, 0}},
    {"signs", "+2 chn;map:-1,+9", {-1, 9}},
    {"two_signs", "2 chn;map:--1,9", {0, 0}},
    {"leading_zeros", "02 chn;map:010,009", {10, 9}},
    {"numbers_beyond_16_bits", "2 chn;map:70000,-70000", {4464, -4464}},
    {"numbers_beyond_32_bits", "2 chn;map:99999999999,-99999999999", {-1, 0}},
    {"numbers_beyond_64_bits", "2 chn;map:99999999999999999999999,-99999999999999999999999", {-1, 0}},
};
// clang-format on

class ChannelMapText : public testing::TestWithParam<Map> {};
INSTANTIATE_TEST_SUITE_P(With, ChannelMapText, testing::ValuesIn(kMaps), nameOfCase<Map>);

TEST_P(ChannelMapText, IsKeptInTheRecordAndInTheLog) {
    Reading aec("aec");
    aec.keys["mic_chn_map"] = GetParam().text;
    if constexpr (Host::kRecords) {
        aec.host.recorder().garbage = true;
    }
    aec.run();
    ASSERT_FALSE(aec.failed);
    const auto& record = aec.as<EboAecParam>();
    EXPECT_EQ(record.model_aec_en, 0x2);
    ASSERT_NE(record.Array_list, nullptr);
    EXPECT_EQ(std::vector<int16_t>(record.Array_list, record.Array_list + GetParam().entries.size()),
              GetParam().entries);
    expectLog(aec.host, {info("parseEboAecConfigs", "mic_chn_map:%s", "mic_chn_map:" + GetParam().text)});
}

struct NoMap {
    const char* name;
    json value;
};

const NoMap kNoMaps[] = {
    {"count_zero", "0 chn;map:"},
    {"count_zero_and_numbers", "0 chn;map:1,0"},
    {"negative_count", "-1 chn;map:1,0"},
    {"count_below_32_bits", "-99999999999 chn;map:1"},
    {"empty_text", ""},
    {"blank_text", " "},
    {"no_count", "chn;map:1,0"},
    {"hexadecimal_count", "0x2 chn;map:1,0"},
    {"sign_apart_from_the_count", "- 2 chn;map:1,0"},
    {"number", 7},
    {"null", nullptr},
    {"array", {"2 chn;map:1,0"}},
};

class NoChannelMap : public testing::TestWithParam<NoMap> {};
INSTANTIATE_TEST_SUITE_P(With, NoChannelMap, testing::ValuesIn(kNoMaps), nameOfCase<NoMap>);

void expectNoMap(Reading* aec) {
    aec->run();
    ASSERT_FALSE(aec->failed);
    EXPECT_EQ(aec->as<EboAecParam>().Array_list, nullptr);
    EXPECT_EQ(aec->as<EboAecParam>().model_aec_en, 0);
    expectLog(aec->host, {});
}

TEST_P(NoChannelMap, IsTaken) {
    Reading aec("aec");
    aec.keys["mic_chn_map"] = GetParam().value;
    expectNoMap(&aec);
}

TEST(Aec, WithoutMapHasANullMapAndNoBit) {
    Reading aec("aec");
    aec.keys.erase("mic_chn_map");
    expectNoMap(&aec);
}

void readMap(const std::string& map) {
    Reading aec("aec");
    aec.host.echo();
    aec.keys["mic_chn_map"] = map;
    aec.run();
}

// The map is not logged before it was looked at.
TEST(AecDeathTest, MapOfMoreThanSixteenChannelsEndsTheProcess) {
    const auto assertion =
        testing::AllOf(testing::StartsWith("[err"), isAssertion("parseEboAecConfigs", "chns <= 16"));
    for (const char* count : {"17", "32768", "65536", "2147483647", "99999999999"})
        EXPECT_EXIT(readMap(count + std::string(" chn;map:1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17")),
                    testing::KilledBySignal(SIGABRT), assertion);
    EXPECT_EXIT(readMap("17"), testing::KilledBySignal(SIGABRT), assertion);
}

TEST(Aec, MissingDropRefChannelFailsEvenWhenTheMapWasRead) {
    Reading aec("aec");
    aec.host.expectLeaks(1);
    aec.keys.erase("drop_ref_channel");
    aec.run();
    EXPECT_TRUE(aec.failed);
    EXPECT_EQ(aec.mask, 0x1);
    expectLog(aec.host, {info("parseEboAecConfigs", "mic_chn_map:%s", "mic_chn_map:4 chn;map:3,1,2,-7"),
                         error("parseEboAecConfigs", "find aec drop_ref_channel failed")});
}

TEST(Aec, DisabledIsReportedAndFilledAllTheSame) {
    for (const char* status : {"disable", "enabled", ""}) {
        Reading aec("aec");
        aec.keys["status"] = status;
        aec.mask = 0x2;
        aec.run();
        ASSERT_FALSE(aec.failed);
        EXPECT_EQ(aec.mask, 0x2);
        EXPECT_EQ(aec.as<EboAecParam>().filter_len, 1024);
        EXPECT_EQ(aec.as<EboAecParam>().model_aec_en, 0x2);
        expectLog(aec.host, {info("parseEboAecConfigs", "aec: not enable"),
                             info("parseEboAecConfigs", "mic_chn_map:%s", "mic_chn_map:4 chn;map:3,1,2,-7")});
    }
}

TEST(Aec, StartsFromZeroNotFromTheDefaults) {
    Reading aec("aec");
    aec.keys.erase("mic_chn_map");
    aec.keys["pos"] = 9;
    aec.run();
    EXPECT_EQ(aec.as<EboAecParam>().pos, 0);
    EXPECT_EQ(aec.as<EboAecParam>().model_aec_en, 0);
    EXPECT_EQ(aec.as<EboAecParam>().delay, nullptr);
}

TEST(AecDefaults, ShareOneMapOfEightChannels) {
    Host host;
    EboAecParam* first = createEboAecConfig();
    EboAecParam* second = createEboAecConfig();
    EXPECT_EQ(std::vector<int16_t>(first->Array_list, first->Array_list + 8),
              (std::vector<int16_t>{1, 0, 3, 2, 5, 4, 6, 7}));
    EXPECT_EQ(first->Array_list, second->Array_list);
    destroyEboAecConfig(&first);
    EXPECT_EQ(second->Array_list[7], 7) << "still there after the first record";
    destroyEboAecConfig(&second);
}

TEST(Delay, KeepsLeastDelayAtZeroWhateverTheFileSays) {
    Reading delay("delay");
    delay.keys["status"] = "ENABLE";
    delay.keys["LeastDelay"] = 5;
    delay.run();
    ASSERT_FALSE(delay.failed);
    EXPECT_EQ(delay.as<EboDelayParam>().LeastDelay, 0);
    if constexpr (Host::kRecords) {
        for (const auto& call : delay.calls) EXPECT_NE(call.name, "LeastDelay");
    }
}

TEST(Delay, DisabledIsNoErrorAndNeedsNoKeys) {
    for (const json& keys : {json{{"status", "disable"}}, completeKeys("delay")}) {
        Reading delay("delay");
        delay.keys = keys;
        delay.keys["status"] = "disable";
        delay.run();
        EXPECT_EQ(delay.record, nullptr);
        expectLog(delay.host, {info("parseEboDelayConfigs", "delay: not enable")});
    }
}

TEST(Delay, LeavesTheMaskAlone) {
    for (const int before : {0, 0x55, -1}) {
        Reading delay("delay");
        delay.mask = before;
        delay.run();
        EXPECT_NE(delay.record, nullptr);
        EXPECT_EQ(delay.mask, before);
    }
}

TEST(Delay, DoesNotEvenReadTheMask) {
    void* const page = mmap(nullptr, sizeof(int), PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(page, MAP_FAILED);
    for (const char* status : {"enable", "disable"}) {
        Reading delay("delay");
        delay.keys["status"] = status;
        delay.model_en = static_cast<int*>(page);
        delay.run();
        EXPECT_EQ(delay.failed, status == std::string("disable"));
    }
    munmap(page, sizeof(int));
}

TEST(Delay, MissingEndFreqIsTheLastKeyLookedAt) {
    Reading delay("delay");
    delay.keys.erase("EndFreq");
    delay.keys.erase("SmoothFactor");
    delay.run();
    EXPECT_TRUE(delay.failed);
    expectLog(delay.host, {error("parseEboDelayConfigs", "find delay EndFreq failed")});
}

}  // namespace
