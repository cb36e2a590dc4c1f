// What holds for every section, one test instance per section.
#include <sys/mman.h>

#include <set>

#include "harness/modelled.h"

using ka_recording::Op;
using model::Key;
using model::Section;

namespace {

class EachSection : public testing::TestWithParam<Section> {};
INSTANTIATE_TEST_SUITE_P(Of, EachSection, testing::ValuesIn(model::allSections()), nameOfCase<Section>);

TEST_P(EachSection, IsReadFromTheRootThatItIsGiven) {
    for (const char* root : {"ebo_configs", "another_root", ""}) {
        Reading reading(GetParam().name);
        reading.root = root;
        reading.run();
        EXPECT_FALSE(reading.failed);
        EXPECT_EQ(reading.mask, GetParam().bit);
        for (const LogCall& line : reading.host.log()) EXPECT_FALSE(line.error) << line.text;
    }
}

TEST_P(EachSection, IsEnabledByAnyCaseOfTheWordAndByNothingElse) {
    const std::set<std::string> enabling = {"enable", "Enable", "ENABLE", "eNaBlE"};
    for (const char* word : {"enable", "Enable", "ENABLE", "eNaBlE", "enabled", "enabl", "enable ", " enable",
                             "", "disable", "no", "off", "1", "true"}) {
        for (const int before : {0, ~0, ~GetParam().bit, GetParam().bit}) {
            SCOPED_TRACE(word);
            Reading reading(GetParam().name);
            reading.keys["status"] = word;
            reading.mask = before;
            reading.run();
            const bool enabled = enabling.count(word) == 1;
            EXPECT_EQ(reading.failed, GetParam().name == "delay" && !enabled);
            EXPECT_EQ(reading.mask, before | (enabled ? GetParam().bit : 0));
        }
    }
}

TEST_P(EachSection, SaysNothingAboutANullArgument) {
    Host host;
    Document document(host, model::sampleDocument().dump());
    host.clearLog();
    size_t events = 0;
    if constexpr (Host::kRecords) events = host.recorder().events.size();
    int mask = 0;
    const auto read = GetParam().reader.read;
    EXPECT_TRUE(read(nullptr, "ebo_configs", &mask).failed);
    EXPECT_TRUE(read(document.parser(), nullptr, &mask).failed);
    EXPECT_TRUE(read(nullptr, nullptr, nullptr).failed);
    if (GetParam().name != "agc") {
        EXPECT_TRUE(read(document.parser(), "ebo_configs", nullptr).failed);
    }
    EXPECT_EQ(mask, 0);
    expectLog(host, {});
    if constexpr (Host::kRecords) {
        EXPECT_EQ(host.recorder().events.size(), events) << "nothing is made either";
    }
}

TEST_P(EachSection, ThatIsNoObjectLacksItsStatus) {
    for (const json& keys :
         {json(nullptr), json::object(), json("enable"), json(7), json({"status", "enable"})}) {
        Reading reading(GetParam().name);
        reading.keys = keys;
        reading.run();
        EXPECT_EQ(reading.failed, GetParam().name != "wakeup") << keys;
        EXPECT_EQ(reading.mask, 0);
    }
}

TEST_P(EachSection, UnderAnotherRootIsNotLookedAt) {
    Host host;
    Document document(host, json{{"ebo_ao_configs", {{GetParam().name, sampleOf(GetParam())}}}}.dump());
    int mask = 0;
    EXPECT_EQ(GetParam().reader.read(document.parser(), "ebo_configs", &mask).failed,
              GetParam().name != "wakeup");
    EXPECT_EQ(mask, 0);
}

TEST_P(EachSection, HasALineOfItsOwnForEveryMessage) {
    std::set<int> lines;
    size_t messages = 0;
    for (const Key& key : GetParam().keys) {
        if (key.use != model::Use::Required) continue;
        Reading reading(GetParam().name);
        reading.keys.erase(key.name);
        reading.run();
        ASSERT_FALSE(reading.host.log().empty());
        lines.insert(reading.host.log().back().line);
        ++messages;
    }
    EXPECT_EQ(lines.size(), messages);
}

TEST(Delay, DoesNotEvenReadTheMask) {
    void* const page = mmap(nullptr, sizeof(int), PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(page, MAP_FAILED);
    Host host;
    Document document(host, model::sampleDocument().dump());
    const auto read = model::sectionOf("delay").reader.read;
    EXPECT_FALSE(read(document.parser(), "ebo_configs", static_cast<int*>(page)).failed);
    munmap(page, sizeof(int));
}

TEST(Agc, IsReadWithoutAMask) {
    for (const char* status : {"enable", "disable"}) {
        for (const bool complete : {true, false}) {
            Reading agc("agc");
            agc.keys["status"] = status;
            if (!complete) agc.keys.erase("attack_time");
            agc.without_mask = true;
            agc.run();
            EXPECT_EQ(agc.failed, !complete);
        }
    }
}

// What else the framework is asked, where it keeps a record of it.
TEST_P(EachSection, GoesByTheKeysWhateverIsSaidOfTheSection) {
    if constexpr (Host::kRecords) {
        Reading reading(GetParam().name);
        reading.host.recorder().section_result = 0;
        reading.run();
        EXPECT_EQ(reading.mask, GetParam().bit);
        if (!GetParam().hasRecord()) return;
        for (const Op op : {Op::Malloc, Op::Memset})
            EXPECT_EQ(reading.host.recorder().only({op}).at(0).size, GetParam().reader.size);
    }
}

TEST_P(EachSection, ComparesTextsThroughTheFramework) {
    if constexpr (Host::kRecords) {
        Reading reading(GetParam().name);
        reading.keys["status"] = "EnAbLe";
        reading.root = "Ebo_AO_Configs";
        reading.run();
        std::vector<std::string> calls;
        for (const auto& event : reading.host.recorder().only({Op::Compare, Op::MetaMade}))
            calls.push_back(toString(event));
        std::vector<std::string> want = {"meta made", "compare EnAbLe|enable"};
        if (GetParam().playback_bit) want.insert(want.begin(), "compare Ebo_AO_Configs|ebo_ao_configs");
        EXPECT_EQ(calls, want);
    }
}

TEST_P(EachSection, GoesOnWithoutATextThatCannotBeCopied) {
    if constexpr (Host::kRecords) {
        for (const Key& key : GetParam().keys) {
            if (key.kind != model::Kind::Word) continue;
            Host host;
            Document document(host, model::sampleDocument().dump());
            host.recorder().fail_strdup = key.name == "model_word2" ? 2 : 1;
            int mask = 0;
            const auto record = GetParam().reader.read(document.parser(), "ebo_configs", &mask).record;
            for (const Key& word : GetParam().keys)
                EXPECT_EQ(partsOf(GetParam(), record.get(), 0).count(GetParam().name + "." + word.name),
                          word.kind == model::Kind::Word && word.name != key.name ? 1U : 0U);
        }
    }
}

// The channel map is as long as the count says.
TEST(ChannelMap, HasAsManyEntriesAsTheCountSays) {
    if constexpr (Host::kRecords) {
        for (const int count : {1, 2, 15, 16}) {
            Reading aec("aec");
            aec.keys["mic_chn_map"] = std::to_string(count) + " chn;map:1,0";
            aec.run();
            EXPECT_EQ(aec.host.recorder().only({Op::Malloc}).at(1).size,
                      static_cast<size_t>(count) * sizeof(int16_t));
        }
    }
}

void readMap(const std::string& map) {
    Host host;
    host.echo();
    Document document(host, with(model::sampleDocument(), "/ebo_configs/aec/mic_chn_map", map).dump());
    int mask = 0;
    model::sectionOf("aec").reader.read(document.parser(), "ebo_configs", &mask);
}

// The map is not logged before it was looked at.
TEST(ChannelMapDeathTest, OfMoreThanSixteenChannelsEndsTheProcess) {
    const auto assertion =
        testing::AllOf(testing::StartsWith("[err"), isAssertion("parseEboAecConfigs", "chns <= 16"));
    for (const char* count : {"17", "32768", "65536", "2147483647", "99999999999"})
        EXPECT_EXIT(readMap(count + std::string(" chn;map:1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17")),
                    testing::KilledBySignal(SIGABRT), assertion);
    EXPECT_EXIT(readMap("17"), testing::KilledBySignal(SIGABRT), assertion);
}

}  // namespace
