// What happens when there is no memory.
#include "sections/reading.h"

using ka_recording::Op;

namespace {

void readWithout(const std::string& section, int allocation) {
    Reading reading(section);
    reading.host.echo();
    reading.host.recorder().fail_malloc = allocation;
    reading.run();
}

std::vector<Section> sectionsWithRecord() {
    std::vector<Section> sections;
    for (const Section& section : allSections())
        if (section.assertion) sections.push_back(section);
    return sections;
}

class RecordDeathTest : public testing::TestWithParam<Section> {};
INSTANTIATE_TEST_SUITE_P(Each, RecordDeathTest, testing::ValuesIn(sectionsWithRecord()), nameOfCase<Section>);

TEST_P(RecordDeathTest, ThatCannotBeAllocatedEndsTheProcess) {
    EXPECT_ASSERTION(readWithout(GetParam().name, 1), GetParam().function, GetParam().assertion);
}

TEST(ChannelMapDeathTest, ThatCannotBeAllocatedEndsTheProcess) {
    EXPECT_EXIT(readWithout("aec", 2), testing::KilledBySignal(SIGABRT),
                testing::AllOf(testing::StartsWith("[err"),
                               isAssertion("parseEboAecConfigs", "aec->Array_list != KA_NULL")));
}

void expectWordsAfterFailedCopy(int copy, bool first, bool second) {
    Reading wakeup("wakeup");
    wakeup.host.recorder().fail_strdup = copy;
    wakeup.run();
    ASSERT_FALSE(wakeup.failed);
    EXPECT_EQ(wakeup.as<EboWakeupParam>().model_word1 != nullptr, first);
    EXPECT_EQ(wakeup.as<EboWakeupParam>().model_word2 != nullptr, second);
    expectLog(wakeup.host, wakeup.expectedLines());
}

TEST(FailedCopy, LeavesAWakeupWordNullAndIsNotReported) {
    expectWordsAfterFailedCopy(1, false, true);
    expectWordsAfterFailedCopy(2, true, false);
}

TEST(FailedCopy, LeavesTheModelPathNullAndIsNotReported) {
    Reading ainr("ainr");
    ainr.host.recorder().fail_strdup = 1;
    ainr.run();
    ASSERT_FALSE(ainr.failed);
    EXPECT_EQ(ainr.as<EboAiNRParam>().model_path, nullptr);
    EXPECT_EQ(ainr.mask, 0x20000);
    expectLog(ainr.host, {});
}

TEST(CopiedText, IsTheOnlyCopyThatIsMade) {
    Reading wakeup("wakeup");
    wakeup.run();
    EXPECT_EQ(wakeup.trace({Op::Strdup}),
              (std::vector<std::string>{"strdup #2 hello house", "strdup #3 good night"}));
    Reading ainr("ainr");
    ainr.run();
    EXPECT_EQ(ainr.trace({Op::Strdup}), std::vector<std::string>{"strdup #2 /opt/model.bin"});
}

// The channel map is as long as the count says and belongs to the record.
TEST(ChannelMap, HasAsManyEntriesAsTheCountSays) {
    for (const int count : {1, 2, 15, 16}) {
        Reading aec("aec");
        aec.keys["mic_chn_map"] = std::to_string(count) + " chn;map:1,0";
        aec.run();
        const auto blocks = aec.host.recorder().only({Op::Malloc});
        ASSERT_EQ(blocks.size(), 2U);
        EXPECT_EQ(blocks[1].size, static_cast<size_t>(count) * sizeof(int16_t));
    }
}

TEST(ChannelMap, IsNotAllocatedWithoutChannels) {
    for (const char* map : {"0 chn;map:1,0", "-1 chn;map:1,0", "", "chn;map:1,0"}) {
        Reading aec("aec");
        aec.keys["mic_chn_map"] = map;
        aec.run();
        EXPECT_EQ(aec.host.recorder().only({Op::Malloc}).size(), 1U) << map;
    }
}

TEST(ChannelMap, StaysAllocatedWhenALaterKeyIsMissing) {
    Reading aec("aec");
    aec.host.expectLeaks(1);
    aec.keys.erase("filter_len");
    aec.run();
    EXPECT_TRUE(aec.failed);
    EXPECT_EQ(aec.host.recorder().live(), std::vector<int>{2});
    EXPECT_EQ(aec.trace({Op::Free, Op::SafeFree}), std::vector<std::string>{"free #1"});
}

TEST(DisabledDelay, ReleasesItsRecordThroughTheFrameworkBeforeItsKeys) {
    Reading delay("delay");
    delay.keys["status"] = "disable";
    delay.run();
    EXPECT_EQ(delay.trace({Op::Log, Op::Free, Op::SafeFree, Op::MetaGone}),
              (std::vector<std::string>{"log parseEboDelayConfigs delay: not enable",
                                        "safe_free #1 parseEboDelayConfigs", "meta gone"}));
}

// Of its keys only the status is looked at; the path waits for the section to be enabled.
TEST(DisabledAiNR, DoesNotLookAtTheModelPath) {
    Reading ainr("ainr");
    ainr.keys["status"] = "disable";
    ainr.run();
    EXPECT_EQ(ainr.trace({Op::FindCString, Op::Strdup}), std::vector<std::string>{"findCString status"});
}

TEST(PlaybackRoot, IsComparedThroughTheFramework) {
    for (const char* section : {"anr", "howl"}) {
        Reading reading(section);
        reading.root = "Ebo_AO_Configs";
        reading.run();
        EXPECT_THAT(reading.trace({Op::Compare}),
                    testing::Contains(testing::AnyOf("compare Ebo_AO_Configs|ebo_ao_configs",
                                                     "compare ebo_ao_configs|Ebo_AO_Configs")));
    }
}

}  // namespace
