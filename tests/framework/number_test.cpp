// Numbers at their limits.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "scratch.h"

namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kMax = std::numeric_limits<float>::max();
constexpr int kNone = 77;  // what *out held before

struct Row {
    std::string text;
    float real;
    int integer = kNone;
};

class Number : public testing::TestWithParam<Row> {};

TEST_P(Number, IsTheNearestFloatAndAnIntegerOnlyIfWrittenAsOne) {
    const Row& row = GetParam();
    for (const char* after : {"", " ", ", \"z\": 1", "\n"}) {
        Section section("\"k\": " + row.text + after);
        float real = 55;
        EXPECT_TRUE(section.keys.findFloat("k", &real));
        EXPECT_EQ(row.real, real);
        EXPECT_EQ(std::signbit(row.real), std::signbit(real));
        int integer = kNone;
        EXPECT_EQ(row.integer != kNone, section.keys.findInt32("k", &integer));
        EXPECT_EQ(row.integer, integer);
        const char* text = "kept";
        EXPECT_FALSE(section.keys.findCString("k", &text));
        EXPECT_STREQ("kept", text);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Integer, Number,
    testing::Values(Row{"0", 0, 0}, Row{"-0", -0.0f, 0}, Row{"1", 1, 1}, Row{"-1", -1, -1},
                    Row{"2147483647", 0x1p31f, 2147483647}, Row{"2147483648", 0x1p31f},
                    Row{"-2147483648", -0x1p31f, -2147483647 - 1}, Row{"-2147483649", -0x1p31f},
                    Row{"4294967295", 0x1p32f}, Row{"4294967297", 0x1p32f},
                    Row{"18446744073709551616", 0x1p64f}, Row{"18446744073709551617", 0x1p64f},
                    Row{"-9223372036854775809", -0x1p63f}, Row{"1" + std::string(400, '0'), kInfinity},
                    Row{"-1" + std::string(400, '0'), -kInfinity}));

INSTANTIATE_TEST_SUITE_P(NoInteger, Number,
                         testing::Values(Row{"1.0", 1}, Row{"0.0", 0}, Row{"-0.0", -0.0f}, Row{"1e3", 1000},
                                         Row{"1E3", 1000}, Row{"1e0", 1}, Row{"1e+3", 1000},
                                         Row{"1e-3", 0.001f}, Row{"-1.5e-2", -0.015f}, Row{"0e0", 0},
                                         Row{"1.25", 1.25f}));

INSTANTIATE_TEST_SUITE_P(
    Halfway, Number,
    testing::Values(Row{"3130.4407", 0x1.874e1ap+11f}, Row{"-7141.9652", -0x1.be5f72p+12f},
                    Row{"16777216", 0x1p24f, 16777216}, Row{"16777217", 0x1p24f, 16777217},
                    Row{"16777218", 0x1.000002p24f, 16777218}, Row{"16777219", 0x1.000004p24f, 16777219},
                    Row{"1.000000059604644775390625", 1}, Row{"1.000000059604644775390624999999999999", 1},
                    // A double would take this for the half.
                    Row{"1.000000059604644775390625000000000001", 0x1.000002p0f},
                    Row{"1.000000178813934326171875", 0x1.000004p0f},
                    Row{"1.000000059604644775390625" + std::string(1000, '0') + "1", 0x1.000002p0f}));

INSTANTIATE_TEST_SUITE_P(Large, Number,
                         testing::Values(Row{"3.4028234663852886e38", kMax}, Row{"3.4028235e38", kMax},
                                         Row{"340282356779733661637539395458142568447", kMax},
                                         Row{"340282356779733661637539395458142568448", kInfinity},
                                         Row{"-3.4028236e38", -kInfinity}, Row{"1e38", 1e38f},
                                         Row{"1e39", kInfinity}, Row{"1e308", kInfinity},
                                         Row{"1e309", kInfinity}, Row{"1e400", kInfinity},
                                         Row{"-1e400", -kInfinity}, Row{"1e2147483648", kInfinity},
                                         Row{"1e99999999999999999999", kInfinity}, Row{"0e400", 0},
                                         Row{"-0e99999999999999999999", -0.0f},
                                         Row{"1" + std::string(400, '0') + "e-400", 1},
                                         Row{"1" + std::string(400, '0') + ".5e-400", 1}));

INSTANTIATE_TEST_SUITE_P(
    Small, Number,
    testing::Values(Row{"1.17549435e-38", 0x1p-126f}, Row{"1.1754942e-38", 0x0.fffffep-126f},
                    Row{"1e-40", 0x1.16c2p-133f}, Row{"1e-45", 0x1p-149f}, Row{"-1e-45", -0x1p-149f},
                    Row{"1.401298464324817e-45", 0x1p-149f}, Row{"8e-46", 0x1p-149f}, Row{"7e-46", 0},
                    Row{"1e-46", 0}, Row{"-1e-46", -0.0f}, Row{"1e-400", 0}, Row{"-1e-400", -0.0f},
                    Row{"1e-99999999999999999999", 0}, Row{"0." + std::string(400, '0') + "1", 0},
                    Row{"0." + std::string(399, '0') + "1e400", 1},
                    Row{"0." + std::string(30, '0') + "15", 1.5e-31f}));

// One digit to ten, the point at every place or nowhere.
TEST(NumberOfEachLength, IsTheNearestFloatAndAnIntegerOnlyIfWrittenAsOne) {
    for (size_t length = 1; length <= 10; ++length) {
        for (size_t point = 1; point <= length; ++point) {
            for (const std::string sign : {"", "-"}) {
                std::string text = std::string("1928374655").substr(0, length);
                const int integer = static_cast<int>(std::stol(sign + text));
                if (point < length) text.insert(point, ".");
                Section section("\"k\": " + sign + text);
                float real = 55;
                EXPECT_TRUE(section.keys.findFloat("k", &real));
                EXPECT_EQ(std::stof(sign + text), real) << sign + text;
                int found = kNone;
                EXPECT_EQ(point == length, section.keys.findInt32("k", &found)) << sign + text;
                EXPECT_EQ(point == length ? integer : kNone, found) << sign + text;
            }
        }
    }
}

TEST(NumberNearTheBeginning, IsFoundInTheShortestDocument) {
    Document document(R"({"":{"":{"":7}}})");
    KaMetaData keys;
    ASSERT_NE(0, document.parser.getOptions("", "", &keys));
    int integer = kNone;
    EXPECT_TRUE(keys.findInt32("", &integer));
    EXPECT_EQ(7, integer);
    float real = 55;
    EXPECT_TRUE(keys.findFloat("", &real));
    EXPECT_EQ(7, real);
}

class NoNumber : public testing::TestWithParam<const char*> {};

TEST_P(NoNumber, IsNotFoundAsOne) {
    Section section(std::string("\"k\": ") + GetParam());
    int integer = kNone;
    float real = 55;
    EXPECT_FALSE(section.keys.findInt32("k", &integer));
    EXPECT_FALSE(section.keys.findFloat("k", &real));
    EXPECT_EQ(kNone, integer);
    EXPECT_EQ(55, real);
}

INSTANTIATE_TEST_SUITE_P(, NoNumber,
                         testing::Values("true", "false", "null", "\"1\"", "\"\"", "\"1.5\"", "[1]", "{}",
                                         "[]", "{\"k\": 1}"));

TEST(NumberAndLocale, DecimalCommaOfTheProcessDoesNotMatter) {
    const CommaLocale comma;
    Section section(R"("half": 1.5, "huge": 1.5e400, "tiny": 1.5e-400, "least": 1.5e-45, "n": 1)");
    const struct {
        const char* key;
        float value;
    } rows[] = {{"half", 1.5f}, {"huge", kInfinity}, {"tiny", 0}, {"least", 0x1p-149f}, {"n", 1}};
    for (const auto& row : rows) {
        float value = 55;
        EXPECT_TRUE(section.keys.findFloat(row.key, &value)) << row.key;
        EXPECT_EQ(row.value, value) << row.key;
    }
}

}  // namespace
