// What holds for every section, one test instance per section.
#include <set>

#include "sections/reading.h"

namespace {

std::vector<Section> sectionsWhere(bool (*condition)(const Section&)) {
    std::vector<Section> sections;
    for (const Section& section : allSections())
        if (condition(section)) sections.push_back(section);
    return sections;
}

const Key& statusOf(const Section& section) {
    for (const Key& key : allKeys())
        if (key.section == std::string(section.name)) return key;
    throw std::out_of_range(section.name);
}

bool is(const Section& section, const char* name) {
    return section.name == std::string(name);
}
bool needsStatus(const Section& section) {
    return statusOf(section).missing != kOptional;
}
bool setsBit(const Section& section) {
    return section.bit != 0;
}

class EachSection : public testing::TestWithParam<Section> {};
INSTANTIATE_TEST_SUITE_P(Each, EachSection, testing::ValuesIn(allSections()), nameOfCase<Section>);

TEST_P(EachSection, ThatIsCompleteAndEnabledIsReadWithoutComplaint) {
    Reading reading(GetParam().name);
    reading.run();
    EXPECT_FALSE(reading.failed);
    EXPECT_EQ(reading.record != nullptr, GetParam().reader.size != 0);
    EXPECT_EQ(reading.mask, GetParam().bit);
    expectLog(reading.host, reading.expectedLines());
}

TEST_P(EachSection, IsReadFromTheRootThatItIsGiven) {
    for (const char* root : {"another_root", ""}) {
        Reading reading(GetParam().name);
        reading.root = root;
        reading.run();
        EXPECT_FALSE(reading.failed);
        EXPECT_EQ(reading.mask, GetParam().bit);
    }
}

TEST_P(EachSection, IsEnabledByAnyCaseOfTheWordAndByNothingElse) {
    for (const char* word : {"enable", "Enable", "ENABLE", "eNaBlE"}) {
        SCOPED_TRACE(word);
        Reading reading(GetParam().name);
        reading.keys["status"] = word;
        reading.run();
        EXPECT_FALSE(reading.failed);
        EXPECT_EQ(reading.mask, GetParam().bit);
        expectLog(reading.host, reading.expectedLines());
    }
    for (const char* word :
         {"enabled", "enabl", "enable ", " enable", "", "disable", "no", "off", "1", "true"}) {
        SCOPED_TRACE(word);
        Reading reading(GetParam().name);
        reading.keys["status"] = word;
        reading.run();
        EXPECT_EQ(reading.failed, is(GetParam(), "delay"));
        EXPECT_EQ(reading.mask, 0);
    }
}

TEST_P(EachSection, NeverClearsABit) {
    constexpr int kAll = ~0;
    for (const char* word : {"enable", "disable"}) {
        for (const int before : {kAll, kAll & ~GetParam().bit, GetParam().bit}) {
            Reading reading(GetParam().name);
            reading.keys["status"] = word;
            reading.mask = before;
            reading.run();
            EXPECT_EQ(reading.mask, before | (word == std::string("enable") ? GetParam().bit : 0)) << before;
        }
    }
}

TEST_P(EachSection, SaysNothingAboutANullArgument) {
    Host host;
    Document document(host, documentOf("ebo_configs", GetParam().name, completeKeys(GetParam().name)));
    size_t events = 0;
    if constexpr (Host::kRecords) {
        events = host.recorder().events.size();
    }
    int mask = 0;
    const auto read = GetParam().reader.read;
    EXPECT_TRUE(read(nullptr, "ebo_configs", &mask).failed);
    EXPECT_TRUE(read(document.parser(), nullptr, &mask).failed);
    EXPECT_TRUE(read(nullptr, nullptr, nullptr).failed);
    if (!is(GetParam(), "agc")) {
        EXPECT_TRUE(read(document.parser(), "ebo_configs", nullptr).failed);
    }
    EXPECT_EQ(mask, 0);
    expectLog(host, {});
    if constexpr (Host::kRecords) {
        EXPECT_EQ(host.recorder().events.size(), events) << "nothing is made either";
    }
}

class SectionWithStatus : public testing::TestWithParam<Section> {};
INSTANTIATE_TEST_SUITE_P(Each, SectionWithStatus, testing::ValuesIn(sectionsWhere(needsStatus)),
                         nameOfCase<Section>);

TEST_P(SectionWithStatus, ThatIsNotThereLacksItsStatus) {
    for (const json& keys :
         {json(nullptr), json::object(), json("enable"), json(7), json({"status", "enable"})}) {
        SCOPED_TRACE(keys.dump());
        Reading reading(GetParam().name);
        reading.keys = keys;
        reading.run();
        EXPECT_TRUE(reading.failed);
        EXPECT_EQ(reading.mask, 0);
        expectLog(reading.host, {error(GetParam().function, statusOf(GetParam()).missing)});
    }
}

TEST_P(SectionWithStatus, UnderAnotherRootIsNotLookedAt) {
    Host host;
    Document document(host, documentOf("ebo_ao_configs", GetParam().name, completeKeys(GetParam().name)));
    int mask = 0;
    EXPECT_TRUE(GetParam().reader.read(document.parser(), "ebo_configs", &mask).failed);
    expectLog(host, {error(GetParam().function, statusOf(GetParam()).missing)});
}

TEST_P(SectionWithStatus, HasALineOfItsOwnForEveryMessage) {
    std::set<int> lines;
    size_t messages = 0;
    for (const Key& key : keysOf(GetParam().name)) {
        if (key.missing == kOptional) continue;
        Reading reading(GetParam().name);
        if (is(GetParam(), "aec") && key.name != std::string("status")) reading.host.expectLeaks(1);
        reading.keys.erase(key.name);
        reading.run();
        ASSERT_FALSE(reading.host.log().empty());
        lines.insert(reading.host.log().back().line);
        ++messages;
    }
    EXPECT_EQ(lines.size(), messages);
}

class SectionWithBit : public testing::TestWithParam<Section> {};
INSTANTIATE_TEST_SUITE_P(Each, SectionWithBit, testing::ValuesIn(sectionsWhere(setsBit)),
                         nameOfCase<Section>);

// Read one after the other, as a loader does it, with the same mask.
TEST_P(SectionWithBit, LeavesTheBitsOfTheOthersWhenDisabled) {
    int mask = 0;
    {
        Reading reading(GetParam().name);
        reading.run();
        mask = reading.mask;
    }
    for (const Section& other : allSections()) {
        Reading reading(other.name);
        reading.keys["status"] = "disable";
        reading.mask = mask;
        reading.run();
        EXPECT_EQ(reading.mask, mask) << other.name;
    }
}

}  // namespace
