#include <gmock/gmock.h>

#include <regex>
#include <set>
#include <sstream>

#include "model/facts.h"
#include "model/meanings.h"
#include "report/keys.h"

namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// Sections as "agc", keys and fields as "agc.fRk0".
std::set<std::string> namesOfTables() {
    std::set<std::string> names;
    for (const SectionPlace& place : sectionPlaces()) {
        const std::string section = place.section->name;
        names.insert(section);
        for (const EboKeyRow* row : keysOf(*place.section)) names.insert(section + "." + row->key);
        for (const EboKeyRow* row : fieldsWithoutKey(*place.section)) names.insert(section + "." + row->key);
    }
    return names;
}

TEST(Meanings, AreThereForEveryKeyAndForNothingElse) {
    std::multiset<std::string> explained;
    for (size_t i = 0; i < kMeaningCount; ++i) {
        const Meaning& meaning = kMeanings[i];
        const std::string section = meaning.section;
        explained.insert(meaning.key != nullptr ? section + "." + meaning.key : section);
    }
    const std::set<std::string> names = namesOfTables();
    EXPECT_THAT(explained, testing::ElementsAreArray(names));
}

TEST(Meanings, AreSentencesWithoutTheirStopThatFitATable) {
    for (size_t i = 0; i < kMeaningCount; ++i) {
        const std::string text = kMeanings[i].text;
        EXPECT_TRUE(std::isupper(static_cast<unsigned char>(text.front())) || text.front() == '1') << text;
        EXPECT_NE(text.back(), '.') << text;
        EXPECT_THAT(text, Not(HasSubstr("|")));
    }
}

KeyFacts factsOf(const std::string& name) {
    for (const SectionPlace& place : sectionPlaces()) {
        for (const KeyFacts& facts : factsOf(place)) {
            if (facts.name == name) return facts;
        }
    }
    ADD_FAILURE() << name;
    return {};
}

TEST(KeyFacts, TellTheDefaultsOfTheCreateFunctions) {
    EXPECT_EQ(factsOf("agc.fRk0").value, "-40.0");
    EXPECT_EQ(factsOf("anr.swU").value, "10");
    EXPECT_EQ(factsOf("ebo_ao_configs.anr.psiMax").value, "0.516");
    EXPECT_EQ(factsOf("nlp.super_est_factor").value, "6,10,10,10,10,10,6,6");
    EXPECT_EQ(factsOf("aec.mic_chn_map").value, "8 chn;map:1,0,3,2,5,4,6,7");
    EXPECT_EQ(factsOf("bf.num_ref_channel").value, "1");
    EXPECT_EQ(factsOf("nlp.status").value, "enabled");
    EXPECT_EQ(factsOf("cng.status").value, "disabled");
    EXPECT_EQ(factsOf("delay.status").value, "enabled, but without a record");
    EXPECT_EQ(factsOf("doa.rad").value, "");
}

TEST(KeyFacts, TellWhatTheReaderTakesForAMissingOptionalKey) {
    EXPECT_EQ(factsOf("wakeup.wakeup_frames").value, "180");
    EXPECT_EQ(factsOf("wakeup.mode").value, "0");
    EXPECT_EQ(factsOf("wakeup.mode").missing, "");
}

TEST(KeyFacts, TellTheOrderOfTheLookups) {
    EXPECT_EQ(factsOf("anr.status").order, 1U);
    EXPECT_EQ(factsOf("anr.noiseFactor").order, 2U);
    EXPECT_EQ(factsOf("anr.swU").order, 6U);  // the record's second field
    EXPECT_EQ(factsOf("agc.sample_rate").order, 0U);
}

TEST(KeyFacts, TellBitAndMessage) {
    EXPECT_EQ(factsOf("howl.status").stored, "bit 0x4000 of bf.model_en");
    EXPECT_EQ(factsOf("ebo_ao_configs.howl.status").stored, "bit 0x2 of rx.model_en");
    EXPECT_EQ(factsOf("ebo_agc_configs.agc.status").stored, "no bit");
    EXPECT_EQ(factsOf("gsc.method").stored, "bit 0x100 of bf.model_en");
    EXPECT_EQ(factsOf("wind.status").missing, "find bf status failed");
    EXPECT_EQ(factsOf("dtd.ksiThd_low").missing, "find dtd ksiThd_low failed");
}

// The form that a fuzzer takes: comments, empty lines, and quoted entries with no escapes but these.
TEST(FuzzDictionary, IsWellFormedAndHoldsEveryName) {
    const std::string text = fuzzDictionary();
    const std::regex form(R"re((#.*|"([^"\\]|\\"|\\\\)+"))re");
    std::istringstream lines(text);
    std::set<std::string> seen;
    for (std::string line; std::getline(lines, line);) {
        EXPECT_TRUE(std::regex_match(line, form)) << line;
        EXPECT_TRUE(seen.insert(line).second) << line;
    }
    for (const SectionPlace& place : sectionPlaces()) {
        EXPECT_THAT(text, HasSubstr(std::string("\"\\\"") + place.root + "\\\"\"\n"));
        EXPECT_THAT(text, HasSubstr(std::string("\"\\\"") + place.section->name + "\\\"\"\n"));
        for (const EboKeyRow* row : keysOf(*place.section)) {
            EXPECT_THAT(text, HasSubstr(std::string("\"\\\"") + row->key + "\\\"\"\n"));
        }
    }
}

TEST(Meanings, SaySoWhereThereIsNone) {
    EXPECT_STREQ("Not explained yet", meaningOf("dtd", "unknown"));
    EXPECT_STREQ("Not explained yet", meaningOf("unknown", nullptr));
}

TEST(NameList, NamesWhatTheReferenceKnows) {
    std::istringstream lines(nameList());
    size_t count = 0;
    for (std::string line; std::getline(lines, line); ++count) {
        const bool section = line.find('.') == std::string::npos;
        if (!section) continue;
        EXPECT_STRNE("Not explained yet", meaningOf(line.c_str(), nullptr)) << line;
    }
    size_t expected = 0;
    for (const SectionPlace& place : sectionPlaces()) expected += keysOf(*place.section).size() + 2;
    EXPECT_EQ(count, expected);
}

}  // namespace
