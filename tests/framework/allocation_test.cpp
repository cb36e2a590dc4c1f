// Memory: how little is taken, and what happens when there is none.
#include <gtest/gtest.h>

#include <filesystem>

#include "calls.h"
#include "scratch.h"

namespace {

constexpr char kPlain[] = R"({"r": {"s": {"k": 1}}})";

std::string manyKeys() {
    return "{\"r\": {\"s\": {" + repeat("\"x\":0,", 2000) + "\"k\": 1}}}";
}

// Too many keys for brackets as deep as these.
std::string manyBrackets() {
    return "{\"r\": {\"s\": {" + repeat("\"\":0,", 90) + "\"x\":[" + repeat("[", 500) + repeat("]", 500) +
           "], \"y\": 0, " + repeat("\"z\": 0,", 60) + " \"k\": 1}}}";
}

struct Row {
    const char* name;
    std::string text;
    int allocations;  // at least
};

class Allocation : public testing::TestWithParam<Row> {};

void failEach(const std::string& text, int allocations, bool later_too) {
    const ScratchFile file(text);
    int failed = 0;
    for (;; ++failed) {
        KAJsonParser parser;
        const Messages messages;
        calls = {};
        calls.fail_allocation = failed;
        calls.fail_later_too = later_too;
        const int loaded = parser.parseFile(file.path());
        calls.fail_allocation = -1;
        EXPECT_EQ(calls.open, calls.close);
        KaMetaData keys;
        int value = -1;
        parser.getOptions("r", "s", &keys);
        EXPECT_EQ(loaded != 0, keys.findInt32("k", &value));
        if (loaded != 0) break;
        EXPECT_EQ(": out of memory\n", messages.without(file.path()));
    }
    EXPECT_GE(failed, allocations);
}

TEST_P(Allocation, ThatFailsIsReportedAndNothingElseHappens) {
    failEach(GetParam().text, GetParam().allocations, false);
    failEach(GetParam().text, GetParam().allocations, true);
}

TEST_P(Allocation, IsGivenBackWithTheParser) {
    const ScratchFile file(GetParam().text);
    calls = {};
    {
        KAJsonParser parser;
        ASSERT_NE(0, parser.parseFile(file.path()));
        EXPECT_GT(calls.held, 0);
        ASSERT_NE(0, parser.parseFile(file.path()));
    }
    EXPECT_EQ(0, calls.held);
}

INSTANTIATE_TEST_SUITE_P(, Allocation,
                         testing::Values(Row{"Plain", kPlain, 2}, Row{"ManyKeys", manyKeys(), 3},
                                         Row{"ManyBrackets", manyBrackets(), 3}),
                         [](const auto& row) { return row.param.name; });

TEST(Allocations, ThatFailLeaveAWrongTextUnexplained) {
    const ScratchFile file("{\"r\": [1, 2}}");
    for (int failed = 0; failed < 4; ++failed) {
        KAJsonParser parser;
        const Messages messages;
        calls = {};
        calls.fail_allocation = failed;
        EXPECT_EQ(0, parser.parseFile(file.path()));
        calls.fail_allocation = -1;
        EXPECT_EQ(failed < 3 ? ": out of memory\n" : ":1:12: missing a comma or ']' after a value\n",
                  messages.without(file.path()));
    }
    EXPECT_EQ(0, calls.held);
}

TEST(Allocations, OfATuningFileAreFewAndSmall) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(EBO_TUNINGS)) {
        if (entry.path().extension() != ".json") continue;
        const std::string path = entry.path();
        KAJsonParser parser;
        KaMetaData keys;
        calls = {};
        EXPECT_NE(0, parser.parseFile(path.c_str()));
        parser.getOptions("ebo_configs", "aes", &keys);
        const char* text = nullptr;
        keys.findCString("status", &text);
        EXPECT_EQ(2, calls.allocations) << path;
        EXPECT_LE(calls.peak, static_cast<ptrdiff_t>(entry.file_size()) + 8192) << path;
        ++files;
    }
    EXPECT_GT(files, 0);
}

TEST(Allocations, LookingUpTakesNone) {
    Section section(R"("i": 1, "f": 1.5, "huge": 1e400, "t": "x")");
    calls = {};
    int integer;
    float real;
    const char* text;
    EXPECT_TRUE(section.keys.findInt32("i", &integer));
    EXPECT_TRUE(section.keys.findFloat("f", &real));
    EXPECT_TRUE(section.keys.findFloat("huge", &real));
    EXPECT_TRUE(section.keys.findCString("t", &text));
    EXPECT_EQ(0, calls.allocations);
}

}  // namespace
