// The calls that a reader makes, in their order: one test instance per required key and per section.
#include <cstring>

#include "sections/reading.h"

using ka_recording::Event;
using ka_recording::Op;
using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;

namespace {

std::string nameOfKey(const testing::TestParamInfo<Key>& info) {
    return std::string(info.param.section) + "_" + info.param.name;
}

std::string lookup(const Key& key) {
    const char* const call = key.call == Call::Int32   ? "findInt32 "
                             : key.call == Call::Float ? "findFloat "
                                                       : "findCString ";
    return call + std::string(key.name);
}

// The lookups of a whole section, or up to the key that is missing.
std::vector<std::string> lookups(const std::string& section, const std::string& missing = "") {
    std::vector<std::string> lines;
    for (const Key& key : keysOf(section)) {
        if (key.name == missing) {
            lines.push_back("missing " + lookup(key));
            return lines;
        }
        lines.push_back(lookup(key));
    }
    return lines;
}

const std::initializer_list<Op> kLookups = {Op::FindInt32, Op::FindFloat, Op::FindCString};

std::vector<Key> requiredKeys() {
    std::vector<Key> keys;
    for (const Key& key : allKeys())
        if (key.missing != kOptional) keys.push_back(key);
    return keys;
}

class MissingKey : public testing::TestWithParam<Key> {
protected:
    MissingKey() : reading_(GetParam().section) {
        reading_.keys.erase(GetParam().name);
        // The channel map is not released with its record.
        if (GetParam().section == std::string("aec") && GetParam().name != std::string("status"))
            reading_.host.expectLeaks(1);
        reading_.run();
    }
    Reading reading_;
};
INSTANTIATE_TEST_SUITE_P(Each, MissingKey, testing::ValuesIn(requiredKeys()), nameOfKey);

TEST_P(MissingKey, IsTheLastOneLookedUp) {
    EXPECT_EQ(reading_.trace(kLookups), lookups(GetParam().section, GetParam().name));
}

TEST_P(MissingKey, EndsInMessageThenReleaseThenEndOfTheKeys) {
    const Section& section = reading_.section;
    std::vector<std::string> end = {"err " + std::string(section.function) + " " + red(GetParam().missing)};
    if (section.assertion && section.release == Op::Free) end.push_back("free #1");
    if (section.assertion && section.release == Op::SafeFree)
        end.push_back("safe_free #1 " + std::string(section.function));
    end.push_back("meta gone");
    const auto calls = reading_.trace({Op::Log, Op::Free, Op::SafeFree, Op::MetaGone, Op::ParserGone});
    ASSERT_GE(calls.size(), end.size());
    EXPECT_THAT(std::vector<std::string>(calls.end() - static_cast<std::ptrdiff_t>(end.size()), calls.end()),
                ElementsAreArray(end));
    EXPECT_EQ(reading_.host.recorder().only({Op::Free, Op::SafeFree}).size(), section.assertion ? 1U : 0U);
    EXPECT_EQ(reading_.host.recorder().live_metas, 0);
}

class Calls : public testing::TestWithParam<Section> {};
INSTANTIATE_TEST_SUITE_P(Each, Calls, testing::ValuesIn(allSections()), nameOfCase<Section>);

TEST_P(Calls, LookUpEveryKeyOnceInOrder) {
    Reading reading(GetParam().name);
    reading.run();
    EXPECT_EQ(reading.trace(kLookups), lookups(GetParam().name));
}

TEST_P(Calls, LookTheKeysUpEvenWhenDisabled) {
    Reading reading(GetParam().name);
    reading.keys["status"] = "disable";
    reading.run();
    const std::string name = GetParam().name;
    const bool status_only = name == "delay" || name == "wakeup" || name == "ainr";
    const std::vector<std::string> status = {"findCString status"};
    EXPECT_EQ(reading.trace(kLookups), status_only ? status : lookups(name));
}

TEST_P(Calls, MakeTheRecordBetweenTheSectionAndItsFirstKey) {
    Reading reading(GetParam().name);
    reading.run();
    std::vector<std::string> begin = {"meta made", "getOptions ebo_configs/" + std::string(GetParam().name)};
    if (GetParam().assertion) {
        begin.push_back("malloc #1 " + std::string(GetParam().function));
        begin.push_back("memset #1 0");
    }
    begin.push_back("findCString status");
    auto calls = reading.trace({Op::MetaMade, Op::GetOptions, Op::Malloc, Op::Memset, Op::FindInt32,
                                Op::FindFloat, Op::FindCString, Op::MetaGone});
    EXPECT_EQ(calls.back(), "meta gone");
    calls.resize(begin.size());
    EXPECT_EQ(calls, begin);
}

TEST_P(Calls, MakeAndClearOneRecordOfTheRightSize) {
    Reading reading(GetParam().name);
    reading.run();
    for (const Op op : {Op::Malloc, Op::Memset}) {
        const auto calls = reading.host.recorder().only({op});
        if (!GetParam().assertion) {
            EXPECT_TRUE(calls.empty());
        } else {
            ASSERT_FALSE(calls.empty());
            EXPECT_EQ(calls[0].size, GetParam().reader.size);
        }
    }
}

TEST_P(Calls, MakeOneSetOfKeysAndOpenNoDocument) {
    Reading reading(GetParam().name);
    reading.run();
    EXPECT_THAT(reading.trace({Op::MetaMade, Op::MetaGone}), ElementsAre("meta made", "meta gone"));
    EXPECT_THAT(reading.trace({Op::ParserMade, Op::ParseFile, Op::ParserGone}), ElementsAre());
    EXPECT_EQ(reading.host.recorder().live_metas, 0);
}

TEST_P(Calls, CompareTheStatusThroughTheFramework) {
    Reading reading(GetParam().name);
    reading.keys["status"] = "EnAbLe";
    reading.run();
    EXPECT_THAT(reading.trace({Op::Compare}),
                Contains(testing::AnyOf("compare EnAbLe|enable", "compare enable|EnAbLe")).Times(1));
}

TEST_P(Calls, GoByTheKeysWhateverIsSaidOfTheSection) {
    Reading reading(GetParam().name);
    reading.host.recorder().section_result = 0;
    reading.run();
    EXPECT_FALSE(reading.failed);
    EXPECT_EQ(reading.mask, GetParam().bit);
    EXPECT_EQ(reading.trace(kLookups), lookups(GetParam().name));
}

TEST_P(Calls, ReleaseNothingWhenTheyEndWell) {
    Reading reading(GetParam().name);
    reading.run();
    EXPECT_THAT(reading.trace({Op::Free, Op::SafeFree}), ElementsAre());
}

TEST_P(Calls, CarryTheNameOfTheReader) {
    Reading reading(GetParam().name);
    reading.run();
    for (const Event& call : reading.host.recorder().only({Op::Malloc}))
        EXPECT_EQ(call.name, GetParam().function);
}

TEST(PlaybackRoot, IsComparedBeforeAnythingElse) {
    for (const char* section : {"anr", "howl"}) {
        Reading reading(section);
        reading.run();
        EXPECT_THAT(reading.trace({Op::Compare, Op::MetaMade}),
                    ElementsAre(HasSubstr("ebo_ao_configs"), "meta made", HasSubstr("enable")));
    }
}

TEST(Wakeup, ComplainsAboutAKeyBeforeItLooksUpTheNext) {
    Reading wakeup("wakeup");
    wakeup.keys = {{"status", "enable"}};
    wakeup.run();
    EXPECT_THAT(
        wakeup.trace({Op::FindInt32, Op::FindFloat, Op::FindCString, Op::Log}),
        ElementsAre("findCString status", "missing findInt32 wakeup_frames", "missing findInt32 wakeup_words",
                    HasSubstr("the wakeup word is 0"), "missing findInt32 mode", HasSubstr("Invalid mode"),
                    HasSubstr("mode0"), HasSubstr("mode1"), HasSubstr("mode2"), HasSubstr("mode3"),
                    HasSubstr("Current wakeup mode"), "missing findCString model_word1",
                    "missing findCString model_word2"));
}

// Whatever the allocator hands out, a record starts from zero.
TEST_P(Calls, ReadTheSameIntoDirtyMemory) {
    Reading clean(GetParam().name);
    clean.run();
    Reading dirty(GetParam().name);
    dirty.host.recorder().garbage = true;
    dirty.run();
    for (const Key& key : keysOf(GetParam().name)) {
        if (key.field.read) {
            EXPECT_EQ(key.field.read(dirty.bytes()), stored(key, key.sample)) << key.name;
        }
    }
    const std::string name = GetParam().name;
    const bool holds_pointers = name == "aec" || name == "wakeup" || name == "ainr";
    if (GetParam().reader.size && !holds_pointers) {
        EXPECT_EQ(memcmp(clean.bytes(), dirty.bytes(), GetParam().reader.size), 0);
    }
}

}  // namespace
