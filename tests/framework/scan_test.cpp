// The scanner: it takes what is JSON, and never what the JSON library refuses.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "scan_check.h"
#include "scratch.h"

namespace {

using namespace std::string_literals;

std::string section(const std::string& keys) {
    return "{\"r\": {\"s\": {" + keys + "}}}";
}

// A word of JSON that says little about what may follow it.
const std::string kWords[] = {"{",
                              "}",
                              "[",
                              "]",
                              ",",
                              ":",
                              "\"",
                              "\\",
                              "\"a\"",
                              "\"a\":",
                              "1",
                              "0",
                              "-",
                              ".5",
                              "e3",
                              "E-2",
                              "1e5",
                              "true",
                              "false",
                              "null",
                              " ",
                              "\n",
                              "\r\n",
                              "\t",
                              "\\n",
                              "\\u0041",
                              "\\ud834\\udd1e",
                              "\\udd1e",
                              "\\ud834",
                              "\xC3\xA4",
                              "\xE2\x82\xAC",
                              "\xF0\x9D\x84\x9E",
                              "\xC3",
                              "\x80",
                              "\x01",
                              "\0"s,
                              "//",
                              "'",
                              "{}",
                              "[]",
                              "1234567890123456789"};

const std::string kBases[] = {
    section("\"status\": \"enable\",\n  \"len\": 7,\n  \"gain\": -2.5,\n  \"row\": \"1 2  3.5\"\n"),
    section("\"a\":1,\"b\":[1,[2,{\"c\":[]}],\"x\"],\"d\":{\"e\":{\"f\":null}},\"g\":true") + " ",
    "{\r\n\"r\":{\"s\":{\"\\u0061\\n\":\"\\\"\\ud834\\udd1e\",\"\xC3\xA4\":\"\xE2\x82\xAC\"},\"t\":{}},\"q\":"
    "[{}]\r\n}",
    "[1.5e3,-0.0,10,\"a\",[[[]]],{\"a\":{\"b\":{\"c\":{\"d\":1}}}},false]"};

TEST(Scan, AgreesWithTheLibraryOnMutatedDocuments) {
    std::mt19937 random(7);
    const auto below = [&random](size_t limit) { return random() % limit; };
    int taken = 0;
    for (int i = 0; i < 200000; ++i) {
        std::string text = kBases[below(std::size(kBases))];
        for (size_t edits = 1 + below(3); edits > 0; --edits) {
            const size_t at = below(text.size() + 1);
            const std::string& word = kWords[below(std::size(kWords))];
            const size_t removed = below(2) == 0 ? 0 : 1 + below(3);
            text.replace(at, removed, below(3) == 0 ? "" : word);
        }
        ASSERT_EQ("", scanDifference(text)) << text;
        taken += loads(text);
    }
    EXPECT_GT(taken, 20000);
    EXPECT_LT(taken, 180000);
}

// Every byte at every place of a document that has something of everything.
TEST(Scan, AgreesWithTheLibraryOnEveryByte) {
    for (const std::string& base : kBases) {
        for (size_t at = 0; at < base.size(); ++at) {
            for (int byte = 0; byte < 256; ++byte) {
                std::string text = base;
                text[at] = static_cast<char>(byte);
                ASSERT_EQ("", scanDifference(text)) << text;
            }
            ASSERT_EQ("", scanDifference(base.substr(0, at))) << base.substr(0, at);
        }
    }
}

// Tokens of every length up to beyond a vector register, at every place in one.
TEST(Scan, AgreesWithTheLibraryOnTokensOfEveryLength) {
    for (size_t before = 0; before < 20; ++before) {
        for (size_t length = 1; length < 40; ++length) {
            const std::string digits(length, '7');
            for (const std::string& value :
                 {digits, "-" + digits, digits + ".5", "0." + digits, digits + ".25e2", "\"" + digits + "\"",
                  "\"" + digits + "\xC3\xA4\"", "\"" + digits + "\\n\"", "\"" + digits + "\x01\"",
                  "0" + digits, digits + ".", digits + ".x", digits + "e", digits + "x", "[" + digits + "]",
                  digits + " 1"}) {
                const std::string text =
                    std::string(before, ' ') + section("\"" + digits + "\":" + value + ",\"b\":1");
                ASSERT_EQ("", scanDifference(text)) << text;
            }
        }
    }
}

struct Row {
    const char* name;
    std::string text;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.name;
}

class Taken : public testing::TestWithParam<Row> {};

TEST_P(Taken, AsTheLibraryTakesIt) {
    EXPECT_EQ("", scanDifference(GetParam().text));
    EXPECT_TRUE(loads(GetParam().text));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(, Taken, testing::Values(
    Row{"Minified", R"({"r":{"s":{"a":1,"b":"x","c":-2.5},"t":{"a":0}}})"},
    Row{"LineBreaksOfWindows", "{\r\n  \"r\": {\r\n    \"s\": {\r\n      \"a\": 1,\r\n      \"b\": 2\r\n    }\r\n  }\r\n}\r\n"},
    Row{"Exponents", section(R"("a": 1e5, "b": 1.5E-30, "c": 1E+2)")},
    Row{"NumberBeyondADouble", section(R"("a": 1e400, "b": 2)")},
    Row{"LongNumbers", section("\"a\": 12345678901234567890.12345678901234567890, \"b\": 2")},
    Row{"Words", section(R"("a": true, "b": false, "c": null)")},
    Row{"Utf8", section("\"\xC3\xA4\": \"\xE2\x82\xAC \xF0\x9D\x84\x9E\"")},
    Row{"LastOfEachLength", section("\"a\": \"\x7F\xDF\xBF\xEF\xBF\xBF\xF4\x8F\xBF\xBF\"")},
    Row{"FirstOfEachLength", section("\"a\": \"\xC2\x80\xE0\xA0\x80\xF0\x90\x80\x80\xED\x9F\xBF\xEE\x80\x80\"")},
    Row{"Escapes", section(R"("\u0061\ud834\udd1e": "\"\\\/\b\f\n\r\t\u00e4\u20AC")")},
    Row{"Arrays", section(R"("a": [], "b": [1, [2, "x"], {"c": [null]}], "d": 1)")},
    Row{"DeepObjects", section(R"("a": {"b": {"c": {}}}, "d": 1)")},
    Row{"RootsAndSectionsOfAllKinds", R"({"a":1,"b":[],"c":"x","d":{"e":1,"f":[{}],"g":{}},"h":{}})"},
    Row{"NoObject", R"(["a", {"b": 1}])"},
    Row{"OnlyText", "\"a\\n\""},
    Row{"OnlyNumber", " -1.5e3 "},
    Row{"EmptyKeys", R"({"":{"":{"":0,"":"","":null}}})"},
    Row{"WideIndent", "{\n" + std::string(40, ' ') + "\"a\": 1,\n" + std::string(40, ' ') + "\"b\": 2}"},
    Row{"WideIndentOfKeys", section("\"a\": 1,\n" + std::string(31, ' ') + "\"b\": 2,\n\"c\": 3, \"d\": 4")},
    Row{"Deep", section("\"a\": " + repeat("[", 1000) + repeat("]", 1000) + ", \"b\": 1")},
    Row{"MoreKeysThanForeseen", section(repeat("\"\":0,", 1000) + "\"a\":1")}),
    [](const auto& row) { return std::string(row.param.name); });
// clang-format on

TEST(TakenFiles, AreAllTunings) {
    for (const auto& entry : std::filesystem::directory_iterator(EBO_TUNINGS)) {
        if (entry.path().extension() != ".json") continue;
        std::ifstream file(entry.path());
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        EXPECT_EQ("", scanDifference(text)) << entry.path();
        EXPECT_TRUE(loads(text)) << entry.path();
    }
}

// Open brackets are kept in what is left of the table's memory, which depends on the number of keys before.
TEST(TakenTexts, DeepAfterManyKeys) {
    for (size_t keys = 0; keys < 40; ++keys) {
        for (size_t depth = 0; depth < 200; depth += 7) {
            // A number beyond a double, brackets in strings; after them the bracket of an object.
            const std::string value = repeat("[", depth) + "1e400, \"]}\\\"\", " +
                                      std::string(depth + 1, '1') + ", {}" + repeat("]", depth);
            const std::string text = repeat("\"\":0,", keys) + "\"n\": [" + value + "], \"k\": 7";
            Section loaded(text);
            int found = 0;
            EXPECT_TRUE(loaded.keys.findInt32("k", &found)) << keys << ' ' << depth;
            EXPECT_EQ(7, found);
        }
    }
}

// Keys, then nothing but brackets.
TEST(TakenTexts, AllBracketsToTheLast) {
    for (size_t keys = 0; keys < 400; keys += 13) {
        for (size_t depth = 1; depth < 700; depth += 31) {
            const std::string text = "{\"\":{\"\":{" + repeat("\"\":0,", keys) +
                                     "\"\":" + repeat("[", depth) + repeat("]", depth) + "}}}";
            ASSERT_TRUE(loads(text)) << keys << ' ' << depth;
        }
    }
}

}  // namespace
