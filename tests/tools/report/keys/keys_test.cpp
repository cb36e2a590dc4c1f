#include <gmock/gmock.h>

#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>
#include <sstream>

#include "model/facts.h"
#include "model/meanings.h"
#include "report/keys.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
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
    const std::string text = keysDictionary();
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

std::vector<std::string> namesFound(const std::string& word) {
    std::vector<std::string> names;
    for (const KeyHit& hit : findKeys(word).list) names.push_back(hit.name());
    return names;
}

TEST(FindKeys, TakesASectionWithItsKeysUnderItsOwnRoot) {
    EXPECT_THAT(namesFound("gsc"), ElementsAre("gsc", "gsc.status", "gsc.method"));
    EXPECT_THAT(namesFound("ebo_ao_configs.howl"),
                ElementsAre("ebo_ao_configs.howl", "ebo_ao_configs.howl.status", "ebo_ao_configs.howl.mode"));
}

TEST(FindKeys, TakesAKeyInEverySectionThatHasIt) {
    EXPECT_THAT(namesFound("drop_ref_channel"), ElementsAre("aec.drop_ref_channel", "bf.drop_ref_channel"));
    EXPECT_THAT(namesFound("mode"), ElementsAre("howl.mode", "wakeup.mode", "ebo_ao_configs.howl.mode"));
}

TEST(FindKeys, PrefersTheSpellingGivenThenAnyCaseThenAPart) {
    EXPECT_THAT(namesFound("startfreq"), ElementsAre("delay.StartFreq"));
    EXPECT_THAT(namesFound("start"), ElementsAre("delay.StartFreq", "doa.start_freq"));
    EXPECT_TRUE(findKeys("startfreq").inFull);
    EXPECT_FALSE(findKeys("start").inFull);
    EXPECT_TRUE(findKeys("t60").inFull);
    EXPECT_THAT(namesFound("agc.attack"), ElementsAre("agc.attack_time"));
    EXPECT_TRUE(findKeys("agc.attack").inFull);
}

TEST(FindKeys, LooksIntoMeaningsOfSectionsAndKeysButNotOfStatuses) {
    EXPECT_THAT(namesFound("wake-word"), ElementsAre("wakeup"));
    EXPECT_THAT(namesFound("double-talk"), ElementsAre("dtd"));
    EXPECT_THAT(namesFound("enables the module"), IsEmpty());
    EXPECT_THAT(namesFound("peak"), ElementsAre("agc.max_peak"));  // not the delay to the loudspeaker
    EXPECT_THAT(namesFound("mic"), ElementsAre("aec", "aec.mic_chn_map", "delay", "delay.MicAmpThr"));
    EXPECT_THAT(namesFound("no such word"), IsEmpty());
}

TEST(FindKeys, TakesEverythingWithoutAName) {
    size_t expected = 0;
    for (const SectionPlace& place : sectionPlaces()) expected += factsOf(place).size() + 1;
    EXPECT_EQ(namesFound("").size(), expected);
}

// Each hit states what the facts do; what is empty there is null here.
TEST(KeysJson, HoldsWhatIsKnown) {
    const nlohmann::json all = nlohmann::json::parse(keysJson(findKeys("")));
    EXPECT_EQ(all["sections"].size(), sectionPlaces().size());
    std::map<std::string, nlohmann::json> keys;
    for (const nlohmann::json& key : all["keys"]) keys[key["name"]] = key;
    EXPECT_EQ(keys.size(), all["keys"].size());
    for (const SectionPlace& place : sectionPlaces()) {
        for (const KeyFacts& facts : factsOf(place)) {
            const nlohmann::json& key = keys[facts.name];
            EXPECT_EQ(key["section"], nameOf(place));
            EXPECT_EQ(key["key"], facts.key);
            EXPECT_EQ(key["meaning"], facts.meaning);
            EXPECT_EQ(key["default"].is_null(), facts.value.empty()) << facts.name;
            EXPECT_EQ(key["required"], !facts.missing.empty()) << facts.name;
            EXPECT_EQ(key["order"].is_null(), facts.order == 0) << facts.name;
        }
    }
    EXPECT_EQ(keys["agc.fRk0"]["default"], -40.0);
    EXPECT_EQ(keys["anr.swU"]["default"], 10);
    EXPECT_EQ(keys["aec.mic_chn_map"]["default"], "8 chn;map:1,0,3,2,5,4,6,7");
}

// Those that a file can hold.
TEST(KeysNames, AreTheNamesOfSectionsAndKeys) {
    std::istringstream lines(keysNames(findKeys("")));
    std::vector<std::string> names;
    for (std::string line; std::getline(lines, line);) names.push_back(line);
    size_t expected = 0;
    for (const SectionPlace& place : sectionPlaces()) expected += keysOf(*place.section).size() + 2;
    EXPECT_EQ(names.size(), expected);
    EXPECT_THAT(names, Contains("agc.fRk0"));
    EXPECT_THAT(names, Not(Contains("agc.sample_rate")));
}

}  // namespace
