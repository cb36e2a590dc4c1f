// Documents made to hurt: deep, wide, repetitive. All of it must take time in proportion to the size of the
// file.
#include <gtest/gtest.h>

#include "calls.h"
#include "scratch.h"

namespace {

constexpr size_t kMillion = 1000000;

int valueOf(Document& document) {
    EXPECT_NE(0, document.loaded) << document.message;
    KaMetaData keys;
    document.parser.getOptions("r", "s", &keys);
    int value = -1;
    keys.findInt32("last", &value);
    return value;
}

struct Brackets {
    const char* open;
    const char* close;
};

class Deep : public testing::TestWithParam<Brackets> {
protected:
    std::string nest(size_t depth) const {
        return repeat(GetParam().open, depth) + "1" + repeat(GetParam().close, depth);
    }
};

TEST_P(Deep, DocumentLoads) {
    Document document(nest(kMillion));
    EXPECT_NE(0, document.loaded) << document.message;
}

TEST_P(Deep, ValueOfAKeyHidesNothingAfterIt) {
    Document document("{\"r\": {\"s\": {\"k\": " + nest(kMillion) + ", \"last\": 7}}}");
    EXPECT_EQ(7, valueOf(document));
}

TEST_P(Deep, NeighboursOfSectionsAndRootsHideNothingAfterThem) {
    const std::string nested = nest(1000);
    Document document("{\"q\": " + nested + ", \"r\": {\"t\": " + nested + ", \"s\": {\"last\": 7}}}");
    EXPECT_EQ(7, valueOf(document));
}

// Every depth around those where the reader changes its way or its memory.
TEST_P(Deep, ValueOfEveryDepthIsSkippedWhole) {
    for (size_t depth = 0; depth <= 140; ++depth) {
        Document document("{\"r\": {\"s\": {\"k\": " + nest(depth) + ", \"t\": \"\\u0041\", \"last\": 7}}}");
        EXPECT_EQ(7, valueOf(document)) << depth;
    }
}

TEST_P(Deep, UnclosedDocumentIsRejected) {
    Document document(repeat(GetParam().open, kMillion));
    EXPECT_EQ(0, document.loaded);
    EXPECT_NE(std::string::npos, document.message.find("the text ends too early")) << document.message;
}

INSTANTIATE_TEST_SUITE_P(, Deep,
                         testing::Values(Brackets{"[", "]"}, Brackets{"{\"s\":", "}"},
                                         Brackets{"[{\"last\":", "}]"}, Brackets{"[2,", "]"},
                                         Brackets{"{\"last\":3,\"k\":", ",\"last\":3}"}));

TEST(Wide, MillionEqualKeysAreRead) {
    Document document("{\"r\": {\"s\": {" + repeat("\"last\":1,", kMillion) + "\"last\":7}}}");
    EXPECT_EQ(7, valueOf(document));
}

TEST(Wide, MillionDifferentKeysAreRead) {
    std::string keys;
    for (size_t i = 0; i < kMillion; ++i) keys += "\"" + std::to_string(i) + "\":" + std::to_string(i) + ",";
    Document document("{\"r\": {\"s\": {" + keys + "\"last\":7}}}");
    EXPECT_EQ(7, valueOf(document));
    KaMetaData section;
    document.parser.getOptions("r", "s", &section);
    for (const char* key : {"0", "500000", "999999", "1"}) {
        int value = -1;
        EXPECT_TRUE(section.findInt32(key, &value));
        EXPECT_EQ(key, std::to_string(value));
    }
    int value = -1;
    EXPECT_FALSE(section.findInt32("1000000", &value));
}

TEST(Wide, MillionEqualSectionsAreRead) {
    Document document("{\"r\": {" + repeat("\"s\":{\"last\":1},", kMillion) + "\"s\":{\"last\":7}}}");
    EXPECT_EQ(7, valueOf(document));
}

TEST(Wide, MillionEqualRootsAreRead) {
    Document document("{" + repeat("\"r\":{\"s\":{}},", kMillion) + "\"r\":{\"s\":{\"last\":7}}}");
    EXPECT_EQ(7, valueOf(document));
}

TEST(Wide, MillionScalarsInsteadOfSectionsAreRead) {
    Document document("{\"r\": {" + repeat("\"s\":0,", kMillion) + "\"s\":{\"last\":7}}}");
    EXPECT_EQ(7, valueOf(document));
}

TEST(Wide, LongNumbersAndTextsAreRead) {
    Section section("\"n\": " + std::string(kMillion, '9') + ", \"e\": 1e" + std::string(kMillion, '9') +
                    ", \"t\": \"" + repeat("\\u0041", kMillion) + "\"");
    float number = -1;
    int integer = -1;
    const char* text = nullptr;
    EXPECT_TRUE(section.keys.findFloat("n", &number));
    EXPECT_GT(number, 3e38f);
    EXPECT_FALSE(section.keys.findInt32("n", &integer));
    EXPECT_TRUE(section.keys.findFloat("e", &number));
    EXPECT_GT(number, 3e38f);
    EXPECT_TRUE(section.keys.findCString("t", &text));
    EXPECT_EQ(std::string(kMillion, 'A'), text);
}

}  // namespace
