// What findInt32 and findFloat make of a JSON number.
#include <cmath>
#include <limits>

#include "kit.h"

using kit::explain;

namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();

TEST(Integers, AreFoundAsWritten) {
    explain("findInt32 gives the value of a JSON integer, and says that it has found it",
            "every load fails at its first integer key, or the engine runs on other values than the file's");
    const kit::Section section("\"zero\": 0, \"one\": 1, \"minus\": -17, \"rate\": 48000, \"nil\": -0");
    EXPECT_EQ(kit::integer(section.keys, "zero"), 0);
    EXPECT_EQ(kit::integer(section.keys, "one"), 1);
    EXPECT_EQ(kit::integer(section.keys, "minus"), -17);
    EXPECT_EQ(kit::integer(section.keys, "rate"), 48000);
    EXPECT_EQ(kit::integer(section.keys, "nil"), 0);
}

TEST(Integers, ReachBothEndsOf32Bits) {
    explain("findInt32 takes every number from -2147483648 to 2147483647",
            "masks and limits at the end of the range count as missing keys, and the file does not load");
    const kit::Section section("\"most\": 2147483647, \"least\": -2147483648");
    EXPECT_EQ(kit::integer(section.keys, "most"), 2147483647);
    EXPECT_EQ(kit::integer(section.keys, "least"), -2147483647 - 1);
}

TEST(Integers, BeyondTheRangeAreNone) {
    explain("findInt32 finds nothing in a number that does not fit 32 bits",
            "a mistyped 4294967297 is loaded as 1, and no message says so");
    for (const char* number : {"2147483648", "-2147483649", "4294967295", "4294967297", "9223372036854775807",
                               "-9223372036854775808", "18446744073709551615", "18446744073709551617",
                               "100000000000000000000000000000001"}) {
        const kit::Section section("\"k\": " + std::string(number));
        EXPECT_EQ(kit::integer(section.keys, "k"), kit::kNoInteger) << number;
    }
}

TEST(Integers, WithAPointOrExponentAreNone) {
    explain("findInt32 takes what is written as an integer, and neither 1.0 nor 1e3",
            "a file that eboconf check refuses runs on this device, and fails on the next one");
    for (const char* number : {"1.0", "0.0", "-2.0", "1.5", "1e3", "1E0", "10e-1", "-0.0"}) {
        const kit::Section section("\"k\": " + std::string(number));
        EXPECT_EQ(kit::integer(section.keys, "k"), kit::kNoInteger) << number;
    }
}

TEST(Integers, AreNotMadeOfOtherTypes) {
    explain("findInt32 takes a JSON integer and nothing else: no \"1\", true, null, array or object",
            "a wrong type is loaded as 0 or 1 where the library should report the key");
    const kit::Section section(
        R"("text": "1", "yes": true, "no": false, "nil": null, "list": [1], "object": {"object": 1})");
    for (const char* key : {"text", "yes", "no", "nil", "list", "object"})
        EXPECT_EQ(kit::integer(section.keys, key), kit::kNoInteger) << key;
}

TEST(Reals, AreTheNearestFloat) {
    explain("findFloat gives the float nearest to the number in the file",
            "the same tuning sounds different on two devices, and their dumps differ");
    const struct {
        const char* written;
        float value;
    } rows[] = {{"0.1", 0.1F},
                {"-0.25", -0.25F},
                {"3.14159265358979", 3.14159265F},
                {"1e-3", 0.001F},
                {"1.5E+2", 150.0F},
                {"123456789.125", 123456792.0F},
                {"0.000123", 0.000123F},
                {"16777217", 16777216.0F},
                {"16777219", 16777220.0F},
                {"3.4028234e38", 3.4028234e38F},
                {"1.17549435e-38", 1.17549435e-38F},
                {"1e-45", 1e-45F}};
    for (const auto& row : rows) {
        const kit::Section section("\"k\": " + std::string(row.written));
        EXPECT_EQ(kit::real(section.keys, "k"), row.value) << row.written;
    }
}

TEST(Reals, AreRoundedOnce) {
    explain("findFloat rounds the number of the file itself, not a double that has been rounded before",
            "a value in the middle between two floats differs by the last bit from that of other devices");
    const struct {
        const char* written;
        float value;
    } rows[] = {{"1.00000017881393432617187499", 0x1.000002p0F},
                {"1.00000017881393432617187500", 0x1.000004p0F},
                {"1.00000017881393432617187501", 0x1.000004p0F},
                {"1.00000005960464477539062501", 0x1.000002p0F}};
    for (const auto& row : rows) {
        const kit::Section section("\"k\": " + std::string(row.written));
        EXPECT_EQ(kit::real(section.keys, "k"), row.value) << row.written;
    }
}

TEST(Reals, AreFoundInIntegersToo) {
    explain("findFloat takes any JSON number, also one without a point",
            "\"gain\": 1 counts as missing, and the file does not load");
    const kit::Section section("\"k\": 3, \"n\": -17, \"m\": 2147483648, \"most\": 9223372036854775807");
    EXPECT_EQ(kit::real(section.keys, "k"), 3.0F);
    EXPECT_EQ(kit::real(section.keys, "n"), -17.0F);
    EXPECT_EQ(kit::real(section.keys, "m"), 2147483648.0F);
    EXPECT_EQ(kit::real(section.keys, "most"), 9223372036854775808.0F);
}

TEST(Reals, BeyondTheRangeAreInfinityOrZero) {
    explain("findFloat takes numbers of any size: infinity above the range of a float, 0 below it",
            "one number of too many digits makes the whole file fail here, and load elsewhere");
    const struct {
        const char* written;
        float value;
    } rows[] = {
        {"1e39", kInfinity}, {"1e400", kInfinity}, {"-1e400", -kInfinity}, {"1e-60", 0}, {"1e-400", 0}};
    for (const auto& row : rows) {
        const kit::Section section("\"k\": " + std::string(row.written));
        EXPECT_EQ(kit::real(section.keys, "k"), row.value) << row.written;
    }
}

TEST(Reals, AreNotMadeOfOtherTypes) {
    explain("findFloat takes a JSON number and nothing else",
            "a wrong type is loaded as 0 where the library should report the key");
    const kit::Section section(
        R"("text": "1.5", "yes": true, "no": false, "nil": null, "list": [1.5], "object": {"object": 1.5})");
    for (const char* key : {"text", "yes", "no", "nil", "list", "object"})
        EXPECT_EQ(kit::real(section.keys, key), kit::kNoReal) << key;
}

TEST(Reals, DoNotDependOnTheLocale) {
    explain("findFloat reads the point of JSON, whatever locale the host process has set",
            "under a locale with a decimal comma 1.5 is loaded as 1, and every gain is wrong");
    const kit::Locale locale(kit::Locale::kDecimalComma);
    if (!locale)
        KIT_SKIP("no locale with a decimal comma is installed: not tried whether findFloat depends on it");
    const kit::Section section("\"k\": 1.5, \"e\": 2.5e-1, \"t\": 1000.25");
    EXPECT_EQ(kit::real(section.keys, "k"), 1.5F);
    EXPECT_EQ(kit::real(section.keys, "e"), 0.25F);
    EXPECT_EQ(kit::real(section.keys, "t"), 1000.25F);
}

}  // namespace
