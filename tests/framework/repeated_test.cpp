// Of keys, sections and roots that are there several times the last one counts.
#include <gtest/gtest.h>

#include "scratch.h"

namespace {

int valueOf(Document& document, const char* key = "k") {
    KaMetaData keys;
    document.parser.getOptions("r", "s", &keys);
    int value = -1;
    keys.findInt32(key, &value);
    return value;
}

TEST(Repeated, KeyCountsWhereItIsLast) {
    Section section(R"("a": 1, "k": 1, "b": 2, "k": 2, "c": 3, "k": 3, "d": 4)");
    for (int pass = 0; pass < 2; ++pass) {
        for (const char* key : {"a", "b", "c", "d"}) {
            int value = -1;
            EXPECT_TRUE(section.keys.findInt32(key, &value));
            EXPECT_EQ(*key - 'a' + 1, value);
            EXPECT_TRUE(section.keys.findInt32("k", &value));
            EXPECT_EQ(3, value);
        }
    }
}

// Whatever stands before it.
TEST(Repeated, KeyOfEachLength) {
    for (size_t length = 0; length <= 20; ++length) {
        const std::string key(length, 'x');
        Section section(" \"" + key + "\": 1,\"" + key + "\": 2,\n\"y\": 0");
        int value = -1;
        EXPECT_TRUE(section.keys.findInt32(key.c_str(), &value));
        EXPECT_EQ(2, value);
    }
}

TEST(Repeated, KeyIsMissingWhenTheLastOneHasTheWrongType) {
    Document document(R"({"r": {"s": {"k": 1, "k": "1"}}})");
    EXPECT_EQ(-1, valueOf(document));
}

TEST(Repeated, KeyWrittenWithEscapesIsTheSameKey) {
    Document document(R"({"r": {"s": {"k": 1, "\u006b": 2}}})");
    EXPECT_EQ(2, valueOf(document));
}

// Around the number of keys up to which a section is searched for equal ones beforehand.
TEST(Repeated, KeyIsFoundInSectionsOfEverySize) {
    for (int count = 2; count <= 140; ++count) {
        std::string keys;
        for (int i = 0; i < count; ++i)
            keys += "\"key_" + std::to_string(i) + "\": " + std::to_string(i) + ",";
        Section distinct(keys + "\"last\": 0");
        Section first_again(keys + "\"key_0\": 1000");
        Section last_again(keys + "\"key_" + std::to_string(count - 1) + "\": 1000");
        for (int i = 0; i < count; ++i) {
            const std::string key = "key_" + std::to_string(i);
            int value = -1;
            EXPECT_TRUE(distinct.keys.findInt32(key.c_str(), &value));
            EXPECT_EQ(i, value);
            EXPECT_TRUE(first_again.keys.findInt32(key.c_str(), &value));
            EXPECT_EQ(i == 0 ? 1000 : i, value);
            EXPECT_TRUE(last_again.keys.findInt32(key.c_str(), &value));
            EXPECT_EQ(i == count - 1 ? 1000 : i, value);
        }
    }
}

// Equal in length, first, middle and last letter.
TEST(Repeated, KeysThatLookAlikeAreToldApart) {
    std::string keys;
    for (int i = 0; i < 60; ++i)
        keys += "\"k" + std::to_string(10 + i) + "mmmk\": " + std::to_string(i) + ",";
    Section distinct(keys + "\"k\": 0");
    Section again(keys + "\"k10mmmk\": 1000");
    for (int i = 0; i < 60; ++i) {
        const std::string key = "k" + std::to_string(10 + i) + "mmmk";
        int value = -1;
        EXPECT_TRUE(distinct.keys.findInt32(key.c_str(), &value));
        EXPECT_EQ(i, value);
        EXPECT_TRUE(again.keys.findInt32(key.c_str(), &value));
        EXPECT_EQ(i == 0 ? 1000 : i, value);
    }
}

TEST(Repeated, SectionCountsWhereItIsLastAndIsNotMerged) {
    Document document(R"({"r": {"s": {"k": 1, "j": 1}, "t": {}, "s": {"k": 2}}})");
    EXPECT_EQ(2, valueOf(document));
    EXPECT_EQ(-1, valueOf(document, "j"));
    Document no_object(R"({"r": {"s": {"k": 1}, "s": "k"}})");
    EXPECT_EQ(-1, valueOf(no_object));
    Document object_at_last(R"({"r": {"s": ["k"], "s": {"k": 3}}})");
    EXPECT_EQ(3, valueOf(object_at_last));
}

TEST(Repeated, RootCountsWhereItIsLastAndIsNotMerged) {
    Document document(R"({"r": {"s": {"k": 1}, "t": {"k": 1}}, "q": {}, "r": {"s": {"k": 2}}})");
    EXPECT_EQ(2, valueOf(document));
    KaMetaData keys;
    EXPECT_EQ(0, document.parser.getOptions("r", "t", &keys));
    Document no_object(R"({"r": {"s": {"k": 1}}, "r": 7})");
    EXPECT_EQ(-1, valueOf(no_object));
}

}  // namespace
