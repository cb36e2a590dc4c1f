// Texts of keys and values: escapes, UTF-8.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>

#include "scratch.h"

namespace {

struct Row {
    std::string written;  // between quotes in the file
    std::string text;
};

class String : public testing::TestWithParam<Row> {};

TEST_P(String, IsDecodedAsValueAndAsKey) {
    const Row& row = GetParam();
    Section section("\"v\": \"" + row.written + "\", \"" + row.written + "\": 7, \"after\": \"x\"");
    const char* text = nullptr;
    EXPECT_TRUE(section.keys.findCString("v", &text));
    EXPECT_EQ(row.text, text);
    int number = -1;
    EXPECT_TRUE(section.keys.findInt32(row.text.c_str(), &number));
    EXPECT_EQ(7, number);
    EXPECT_TRUE(section.keys.findCString("after", &text));
    EXPECT_STREQ("x", text);
}

// The names that a caller asks for end where their memory ends.
TEST(Names, AreReadToTheirEndOnly) {
    const auto page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    void* const memory = mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(MAP_FAILED, memory);
    ASSERT_EQ(0, mprotect(static_cast<char*>(memory) + page, page, PROT_NONE));
    for (size_t length = 0; length < 40; ++length) {
        const std::string name(length, 'n');
        char* const last = static_cast<char*>(memory) + page - length - 1;
        std::memcpy(last, name.c_str(), length + 1);
        Document document("{\"" + name + "\": {\"" + name + "\": {\"" + name + "\": 7}}}");
        KaMetaData keys;
        EXPECT_NE(0, document.parser.getOptions(last, last, &keys));
        EXPECT_NE(0, document.parser.getOptions(last, last, &keys));
        int value = 0;
        EXPECT_TRUE(keys.findInt32(last, &value));
        EXPECT_EQ(7, value);
    }
    munmap(memory, 2 * page);
}

INSTANTIATE_TEST_SUITE_P(
    , String,
    testing::Values(
        Row{"", ""}, Row{"enable", "enable"}, Row{"two words", "two words"}, Row{"seven_b", "seven_b"},
        Row{"eight_by", "eight_by"}, Row{"nine_byte", "nine_byte"},
        Row{"sixteen_bytes_16", "sixteen_bytes_16"}, Row{std::string(5000, 'x'), std::string(5000, 'x')},
        Row{"\x7f ~!#[]", "\x7f ~!#[]"}, Row{R"(\"\\\/\b\f\n\r\t)", "\"\\/\b\f\n\r\t"},
        Row{R"(a\"b)", "a\"b"},
        Row{R"(plain text, then \\ and plain text)", "plain text, then \\ and plain text"},
        Row{R"(C:\\dir\\file)", "C:\\dir\\file"}, Row{R"(\u0041\u00e4\u20AC)", "A\xC3\xA4\xE2\x82\xAC"},
        Row{R"(\uD834\uDD1E)", "\xF0\x9D\x84\x9E"}, Row{"\xC3\xA4", "\xC3\xA4"},
        Row{"\xE2\x82\xAC and \xF0\x9D\x84\x9E.", "\xE2\x82\xAC and \xF0\x9D\x84\x9E."},
        Row{"\\n\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E!", "\n\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E!"},
        Row{"\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBF", "\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBF"},
        Row{R"(\ud7ff\ue000\uDBFF\uDFFF)", "\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBF"},
        Row{R"(\\udd1e)", "\\udd1e"}));

// In front of the special one, every number of plain characters that a word may hold and more.
TEST(StringRuns, EndAtEverySpecialCharacterWhereverItStands) {
    for (size_t before = 0; before <= 40; ++before) {
        const std::string plain(before, 'p');
        for (const char* special : {R"(\\)", R"(\")", "\xC3\xA4"}) {
            Section section("\"k\": \"" + plain + special + plain + "\", \"n\": 1");
            const char* text = nullptr;
            ASSERT_TRUE(section.keys.findCString("k", &text));
            EXPECT_EQ(plain + (*special == '\\' ? special + 1 : special) + plain, text);
        }
        for (const char special : {'\x01', '\x1a', '\x1f', '\n', '\x80', '\x9f', '\xbf', '\xff'}) {
            Document document("[\"" + plain + special + plain + "\"]");
            const bool control = static_cast<unsigned char>(special) < ' ';
            EXPECT_EQ(0, document.loaded);
            EXPECT_EQ(":1:" + std::to_string(before + 3) + ": " +
                          (control ? "a line break or control character in a string"
                                   : "a string that is not UTF-8") +
                          "\n",
                      document.message);
        }
    }
}

TEST(StringWithNul, EndsThereAsAValue) {
    Section section(R"("k": "ab\u0000cd", "n": 1)");
    const char* text = nullptr;
    EXPECT_TRUE(section.keys.findCString("k", &text));
    EXPECT_STREQ("ab", text);
}

TEST(StringWithNul, IsNoKeyThatCanBeAskedFor) {
    Section section(R"("ab\u0000cd": 1, "\u0000": 2)");
    int number = -1;
    EXPECT_FALSE(section.keys.findInt32("ab", &number));
    EXPECT_FALSE(section.keys.findInt32("", &number));
    EXPECT_FALSE(section.keys.findInt32("ab\0cd", &number));
    Section hidden(R"("ab": 1, "ab\u0000": 2)");
    EXPECT_TRUE(hidden.keys.findInt32("ab", &number));
    EXPECT_EQ(1, number);
}

// Short names are compared another way, unless they end with their page.
TEST(Names, LongOnesAreComparedToTheirEnd) {
    Section section(
        R"("a_key_of_many_letters\u0000": 1, "a_key_of_many_letters": 2, "another_key_of_letters": 3)");
    int value = 0;
    ASSERT_TRUE(section.keys.findInt32("a_key_of_many_letters", &value));
    EXPECT_EQ(value, 2);
    EXPECT_FALSE(section.keys.findInt32("a_key_of_many_letterz", &value));
    EXPECT_FALSE(section.keys.findInt32("another_key_of_letters_more", &value));
    EXPECT_FALSE(section.keys.findInt32("another_key", &value));
    ASSERT_TRUE(section.keys.findInt32("another_key_of_letters", &value));
    EXPECT_EQ(value, 3);
}

TEST(StringAsNameOfSections, IsDecodedToo) {
    Document document(R"({"\u0072": {"\"s\"": {"k": 3}, "t\u0000": {"k": 4}}})");
    KaMetaData keys;
    EXPECT_NE(0, document.parser.getOptions("r", "\"s\"", &keys));
    EXPECT_EQ(0, document.parser.getOptions("r", "t", &keys));
}

TEST(BlankRuns, OfEveryLengthAreSkippedWhole) {
    for (size_t length = 0; length <= 40; ++length) {
        for (const char* first : {"", "\n", "\r\n", "\t", " \n"}) {
            const std::string blanks = first + std::string(length, ' ');
            Section section(blanks + "\"k\"" + blanks + ":" + blanks + "12" + blanks + ",\"n\":34" + blanks);
            int number = -1;
            EXPECT_TRUE(section.keys.findInt32("k", &number));
            EXPECT_EQ(12, number);
            EXPECT_TRUE(section.keys.findInt32("n", &number));
            EXPECT_EQ(34, number);
        }
    }
}

// Indents are guessed from the line before; each pair of lengths is one right or wrong guess.
TEST(BlankRuns, MayDifferFromLineToLine) {
    for (size_t first = 0; first <= 20; ++first) {
        for (size_t second = 0; second <= 20; ++second) {
            const std::string line = "\n" + std::string(first, ' ');
            const std::string next = "\r\n" + std::string(second, ' ');
            Section section(line + "\"a\":1," + next + "\"b\":2," + line + "\"c\":" + next + "3" + line);
            for (const auto& [key, value] : {std::pair{"a", 1}, {"b", 2}, {"c", 3}}) {
                int found = 0;
                EXPECT_TRUE(section.keys.findInt32(key, &found)) << first << ' ' << second;
                EXPECT_EQ(found, value) << first << ' ' << second;
            }
        }
    }
}

TEST(StringText, KeepsWhiteSpaceAndKindOfEveryBlank) {
    Section section("\"k\"\t:\r\n\r\n  \"\\t x \"  \n,\n\n        \t    \"n\"   :                    1   ");
    const char* text = nullptr;
    int number = -1;
    EXPECT_TRUE(section.keys.findCString("k", &text));
    EXPECT_STREQ("\t x ", text);
    EXPECT_TRUE(section.keys.findInt32("n", &number));
    EXPECT_EQ(1, number);
}

TEST(StringOnly, IsFoundAsString) {
    Section section(R"("n": 1, "t": true, "z": null, "a": ["x"], "o": {"x": "y"})");
    for (const char* key : {"n", "t", "z", "a", "o", "x", "missing"}) {
        const char* text = "kept";
        EXPECT_FALSE(section.keys.findCString(key, &text)) << key;
        EXPECT_STREQ("kept", text) << key;
    }
}

}  // namespace
