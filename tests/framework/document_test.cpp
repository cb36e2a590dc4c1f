// Roots, sections and keys as a loader asks for them.
#include <gtest/gtest.h>

#include "scratch.h"

namespace {

constexpr char kTwoRoots[] = R"({
    "capture": {"aec": {"status": "enable", "len": 7}, "bf": {"targ": 2}, "empty": {}},
    "playback": {"aec": {"len": 9}}
})";

int lengthOf(KAJsonParser& parser, const char* root, const char* section) {
    KaMetaData keys;
    parser.getOptions(root, section, &keys);
    int length = -1;
    keys.findInt32("len", &length);
    return length;
}

TEST(Document, GivesEachSectionOfEachRootItsOwnKeys) {
    Document document(kTwoRoots);
    ASSERT_NE(0, document.loaded);
    EXPECT_EQ("", document.message);
    EXPECT_EQ(7, lengthOf(document.parser, "capture", "aec"));
    EXPECT_EQ(9, lengthOf(document.parser, "playback", "aec"));
    EXPECT_EQ(-1, lengthOf(document.parser, "capture", "bf"));
}

TEST(Document, SaysWhetherASectionWasFound) {
    Document document(kTwoRoots);
    KaMetaData keys;
    EXPECT_NE(0, document.parser.getOptions("capture", "aec", &keys));
    EXPECT_NE(0, document.parser.getOptions("capture", "empty", &keys));
    EXPECT_EQ(0, document.parser.getOptions("capture", "howl", &keys));
    EXPECT_EQ(0, document.parser.getOptions("capture", "len", &keys));
    EXPECT_EQ(0, document.parser.getOptions("aec", "len", &keys));
    EXPECT_EQ(0, document.parser.getOptions("playback", "bf", &keys));
    EXPECT_EQ(0, document.parser.getOptions("Capture", "aec", &keys));
    EXPECT_EQ(0, document.parser.getOptions("capture", "AEC", &keys));
    EXPECT_NE(0, document.parser.getOptions("capture", "aec", &keys));
    EXPECT_EQ(0, document.parser.getOptions("capture, and more of it", "aec", &keys));
    EXPECT_EQ(0, document.parser.getOptions("capture", "", &keys));
    EXPECT_EQ(0, document.parser.getOptions("", "aec", &keys));
}

TEST(Document, EmptiesTheRecordWhenThereIsNoSuchSection) {
    Document document(kTwoRoots);
    KaMetaData keys;
    int length = -1;
    ASSERT_NE(0, document.parser.getOptions("capture", "aec", &keys));
    ASSERT_TRUE(keys.findInt32("len", &length));
    document.parser.getOptions("capture", "howl", &keys);
    EXPECT_FALSE(keys.findInt32("len", &length));
    document.parser.getOptions("capture", "aec", &keys);
    document.parser.getOptions("records", "aec", &keys);
    EXPECT_FALSE(keys.findInt32("len", &length));
    document.parser.getOptions("capture", "aec", &keys);
    document.parser.getOptions(nullptr, "aec", &keys);
    EXPECT_FALSE(keys.findInt32("len", &length));
    document.parser.getOptions("capture", "aec", &keys);
    document.parser.getOptions("capture", nullptr, &keys);
    EXPECT_FALSE(keys.findInt32("len", &length));
}

TEST(Document, SurvivesNullArguments) {
    Document document(kTwoRoots);
    KaMetaData keys;
    EXPECT_EQ(0, document.parser.getOptions(nullptr, nullptr, &keys));
    EXPECT_EQ(0, document.parser.getOptions("capture", "aec", nullptr));
    int number = -1;
    float real = -1;
    const char* text = "";
    ASSERT_NE(0, document.parser.getOptions("capture", "aec", &keys));
    EXPECT_FALSE(keys.findInt32(nullptr, &number));
    EXPECT_FALSE(keys.findFloat(nullptr, &real));
    EXPECT_FALSE(keys.findCString(nullptr, &text));
}

TEST(Document, IsEmptyBeforeAFileAndAfterABadOne) {
    KAJsonParser fresh;
    KaMetaData keys;
    EXPECT_EQ(0, fresh.getOptions("capture", "aec", &keys));
    Document document(kTwoRoots);
    const ScratchFile bad("{");
    const Messages messages;
    EXPECT_EQ(0, document.parser.parseFile(bad.path()));
    EXPECT_EQ(0, document.parser.getOptions("capture", "aec", &keys));
}

TEST(Document, TakesAnotherFileInPlaceOfTheFirst) {
    Document document(kTwoRoots);
    const ScratchFile other(R"({"capture": {"aec": {"len": 8}}})");
    ASSERT_NE(0, document.parser.parseFile(other.path()));
    EXPECT_EQ(8, lengthOf(document.parser, "capture", "aec"));
    EXPECT_EQ(-1, lengthOf(document.parser, "playback", "aec"));
}

// The second file has a root where the first has a section.
TEST(Document, ForgetsTheRootOfTheFirstFile) {
    Document document(R"({"capture": {"aec": {"len": 7}}})");
    EXPECT_EQ(7, lengthOf(document.parser, "capture", "aec"));
    const ScratchFile other(R"({"capture": {}, "aec": {"len": 8}})");
    ASSERT_NE(0, document.parser.parseFile(other.path()));
    EXPECT_EQ(-1, lengthOf(document.parser, "capture", "aec"));
}

TEST(Document, GivesNothingOfTheFormerRootWhenTheNextIsNoObject) {
    Document document(R"({"capture": {"aec": {"len": 7}}, "playback": 7})");
    EXPECT_EQ(7, lengthOf(document.parser, "capture", "aec"));
    for (int again = 0; again < 2; ++again) EXPECT_EQ(-1, lengthOf(document.parser, "playback", "aec"));
    EXPECT_EQ(7, lengthOf(document.parser, "capture", "aec"));
}

TEST(Document, FillsARecordThatAnotherFilledBefore) {
    Document first(kTwoRoots);
    Document second(R"({"capture": {"other": {}, "aec": {"note": "longer", "len": 8}}})");
    KaMetaData keys;
    int length = -1;
    first.parser.getOptions("capture", "aec", &keys);
    second.parser.getOptions("capture", "aec", &keys);
    EXPECT_TRUE(keys.findInt32("len", &length));
    EXPECT_EQ(8, length);
}

TEST(Document, FindsKeysInAnyOrderAndAgain) {
    Section section(R"("a": 1, "b": 2, "c": 3, "d": 4)");
    for (const char* order : {"abcd", "dcba", "aabbccdd", "cadb", "bdbdacac", "axbycz", "xdxcxbxa"}) {
        for (const char* letter = order; *letter != '\0'; ++letter) {
            const char key[] = {*letter, '\0'};
            int value = -1;
            EXPECT_EQ(*letter < 'x', section.keys.findInt32(key, &value)) << order << " at " << key;
            EXPECT_EQ(*letter < 'x' ? *letter - 'a' + 1 : -1, value) << order << " at " << key;
        }
    }
}

TEST(Document, TellsKeysApartByCaseAndLength) {
    Section section(R"("key": 1, "Key": 2, "KEY": 3, "ke": 4, "keys": 5, "": 6, "fRth0": 7, "fRth1": 8)");
    const struct {
        const char* key;
        int value;
    } rows[] = {{"key", 1},  {"Key", 2}, {"KEY", 3},   {"ke", 4},
                {"keys", 5}, {"", 6},    {"fRth0", 7}, {"fRth1", 8}};
    for (const auto& row : rows) {
        int value = -1;
        EXPECT_TRUE(section.keys.findInt32(row.key, &value)) << row.key;
        EXPECT_EQ(row.value, value) << row.key;
    }
    int value = -1;
    EXPECT_FALSE(section.keys.findInt32("kEy", &value));
    EXPECT_FALSE(section.keys.findInt32("k", &value));
    EXPECT_FALSE(section.keys.findInt32(" key", &value));
}

class NoSection : public testing::TestWithParam<const char*> {};

TEST_P(NoSection, IsEmptyButLoads) {
    Document document(GetParam());
    EXPECT_NE(0, document.loaded) << document.message;
    KaMetaData keys;
    EXPECT_EQ(0, document.parser.getOptions("r", "s", &keys));
    int value = -1;
    EXPECT_FALSE(keys.findInt32("k", &value));
}

INSTANTIATE_TEST_SUITE_P(, NoSection,
                         testing::Values("{}", "[]", "7", "\"r\"", "null", "[{\"r\": {\"s\": {\"k\": 1}}}]",
                                         "{\"r\": []}", "{\"r\": [{\"s\": {\"k\": 1}}]}", "{\"r\": \"s\"}",
                                         "{\"r\": null}", "{\"r\": {}}",
                                         "{\"r\": \"a longer text\", \"s\": {\"k\": 1}}",
                                         "{\"r\": {\"s\": \"a longer text\", \"t\": {\"k\": 1}}}",
                                         "{\"r\": {\"s\": \"k\"}}", "{\"r\": {\"s\": [{\"k\": 1}]}}",
                                         "{\"r\": {\"s\": null}}", "{\"r\": {\"s\": 1}}",
                                         "{\"r\": {\"s\": true}}", "{\"r\": {\"x\": {\"s\": {\"k\": 1}}}}",
                                         "{\"s\": {\"k\": 1}}", "{\"x\": {\"r\": {\"s\": {\"k\": 1}}}}",
                                         "{\"r\": {\"S\": {\"k\": 1}}, \"R\": {\"s\": {\"k\": 1}}}"));

TEST(Document, GivesNoValueForKeysThatHoldMoreThanAScalar) {
    Section section(R"("o": {"k": 1, "deep": {"k": 2}}, "a": [1, {"k": 3}, "t"], "k": 4, "e": {}, "f": [])");
    for (const char* key : {"o", "a", "e", "f", "deep"}) {
        int number = -1;
        float real = -1;
        const char* text = "kept";
        EXPECT_FALSE(section.keys.findInt32(key, &number)) << key;
        EXPECT_FALSE(section.keys.findFloat(key, &real)) << key;
        EXPECT_FALSE(section.keys.findCString(key, &text)) << key;
        EXPECT_EQ(-1, number) << key;
        EXPECT_EQ(-1, real) << key;
        EXPECT_STREQ("kept", text) << key;
    }
    int value = -1;
    EXPECT_TRUE(section.keys.findInt32("k", &value));
    EXPECT_EQ(4, value);
}

}  // namespace
