// Texts that are not JSON, and what is said about them.
#include <gtest/gtest.h>

#include "scratch.h"

namespace {

using namespace std::string_literals;

struct Row {
    const char* name;
    std::string text;
    unsigned line;
    unsigned column;
    const char* reason;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.name;
}

std::string messageOf(const Row& row, unsigned lines_before) {
    return ":" + std::to_string(row.line + lines_before) + ":" + std::to_string(row.column) + ": " +
           row.reason + "\n";
}

class Malformed : public testing::TestWithParam<Row> {};
class MalformedValue : public testing::TestWithParam<Row> {};

TEST_P(Malformed, IsRejectedWithPlaceAndReason) {
    Document document(GetParam().text);
    EXPECT_EQ(0, document.loaded);
    EXPECT_EQ(messageOf(GetParam(), 0), document.message);
}

TEST_P(MalformedValue, IsRejectedWithPlaceAndReason) {
    Document document(GetParam().text);
    EXPECT_EQ(0, document.loaded);
    EXPECT_EQ(messageOf(GetParam(), 0), document.message);
}

// So deep the reader goes another way; nobody should notice.
TEST_P(MalformedValue, IsRejectedAlikeDeepInside) {
    Document document(std::string(100, '[') + "\n" + GetParam().text);
    EXPECT_EQ(0, document.loaded);
    EXPECT_EQ(messageOf(GetParam(), 1), document.message);
}

TEST_P(MalformedValue, IsRejectedAlikeBelowAKey) {
    Document document("{\"r\": {\"s\": {\"k\": \"\\n\\n\", \"v\":\n" + GetParam().text);
    EXPECT_EQ(0, document.loaded);
    EXPECT_EQ(messageOf(GetParam(), 1), document.message);
}

std::string nameOf(const testing::TestParamInfo<Row>& info) {
    return info.param.name;
}

constexpr char kEnd[] = "the text ends too early";
constexpr char kValue[] = "not a JSON value";
constexpr char kKey[] = "missing a key in double quotes";
constexpr char kComma[] = "missing a comma or '}' after a value";
constexpr char kArrayComma[] = "missing a comma or ']' after a value";
constexpr char kControl[] = "a line break or control character in a string";
constexpr char kEscape[] = "an unknown escape in a string";
constexpr char kUtf8[] = "a string that is not UTF-8";
constexpr char kHex[] = "\\u without four hexadecimal digits";
constexpr char kSurrogate[] = "\\u with half a surrogate pair";
constexpr char kNul[] = "a NUL byte";
constexpr char kMark[] = "a byte order mark: save the file as UTF-8 without one";

// clang-format off
INSTANTIATE_TEST_SUITE_P(, Malformed, testing::Values(
    Row{"OnlyBlanks", " \n\t ", 2, 3, kEnd},
    Row{"SecondDocument", "{}\n{}", 2, 1, "text after the end of the document"},
    Row{"SecondScalar", "1 2", 1, 3, "text after the end of the document"},
    Row{"BracketTooMany", "{}}", 1, 3, "text after the end of the document"},
    Row{"AfterNumbersBeyondADouble", "{\"a1e999\\u1e99\": [-1e400, 1.5E999], \"b\" 1}", 1, 41, "missing a ':' after a key"},
    Row{"OnlyClosing", "]", 1, 1, kValue},
    Row{"OnlyComma", ",", 1, 1, kValue},
    Row{"ByteOrderMark", "\xEF\xBB\xBF{}", 1, 1, kMark},
    Row{"OnlyByteOrderMark", "\xEF\xBB\xBF", 1, 1, kMark},
    Row{"OtherByteOrder", "\xFF\xFE{\0}\0"s, 1, 1, kValue},
    Row{"TwoByteCharacters", "{\0}\0"s, 1, 2, kNul},
    Row{"OnlyNul", "\0"s, 1, 1, kNul},
    Row{"NulAfterDocument", "{}\n\0"s, 2, 1, kNul},
    Row{"TextAfterNulAfterDocument", "{} \0 {}"s, 1, 4, kNul}), nameOf);

INSTANTIATE_TEST_SUITE_P(, MalformedValue, testing::Values(
    Row{"UnclosedObject", "{\"a\": 1", 1, 8, kEnd},
    Row{"UnclosedArray", "[1,\n2\n", 3, 1, kEnd},
    Row{"UnclosedString", "[\"abc", 1, 6, kEnd},
    Row{"UnclosedKey", "{\"abc", 1, 6, kEnd},
    Row{"EndAfterKey", "{\"a\"", 1, 5, kEnd},
    Row{"EndAfterColon", "{\"a\":", 1, 6, kEnd},
    Row{"EndAfterComma", "{\"a\":1,", 1, 8, kEnd},
    Row{"EndAfterBackslash", "[\"\\", 1, 3, kEscape},
    Row{"EndInNumber", "[1.", 1, 4, kEnd},
    Row{"EndInWord", "[tru", 1, 5, kEnd},
    Row{"ClosedByTheWrongBracket", "[1}", 1, 3, kArrayComma},
    Row{"ObjectClosedByTheWrongBracket", "{\"a\": 1]", 1, 8, kComma},
    Row{"TrailingComma", "{\"a\": 1,\n}", 2, 1, kKey},
    Row{"TrailingCommaInArray", "[1,\n]", 2, 1, kValue},
    Row{"LeadingComma", "[,1]", 1, 2, kValue},
    Row{"TwoCommas", "{\"a\": 1,, \"b\": 2}", 1, 9, kKey},
    Row{"MissingColon", "{\"a\" 1}", 1, 6, "missing a ':' after a key"},
    Row{"MissingComma", "{\"a\": 1\n \"b\": 2}", 2, 2, kComma},
    Row{"MissingCommaAfterEscapes", "{\"\\n\\n\": \"\\n\"\n \"b\": 2}", 2, 2, kComma},
    Row{"MissingCommaInArray", "[1 2]", 1, 4, kArrayComma},
    Row{"MissingValue", "{\"a\": }", 1, 7, kValue},
    Row{"BareKey", "{a: 1}", 1, 2, kKey},
    Row{"NumberAsKey", "{1: 1}", 1, 2, kKey},
    Row{"SingleQuotes", "['a']", 1, 2, kValue},
    Row{"SingleQuotedKey", "{'a': 1}", 1, 2, kKey},
    Row{"LineComment", "[1, // one\n2]", 1, 5, kValue},
    Row{"BlockComment", "{/* a */ \"a\": 1}", 1, 2, kKey},
    Row{"HashComment", "[\n# one\n1]", 2, 1, kValue},
    Row{"CapitalWord", "[True]", 1, 2, kValue},
    Row{"MisspeltWord", "[nul]", 1, 5, kValue},
    Row{"WordTooLong", "[nulll]", 1, 6, kArrayComma},
    Row{"NotANumber", "[NaN]", 1, 2, kValue},
    Row{"Infinity", "[Infinity]", 1, 2, kValue},
    Row{"MinusInfinity", "[-Infinity]", 1, 3, kValue},
    Row{"LeadingZero", "[01]", 1, 3, kArrayComma},
    Row{"LeadingZeroAfterMinus", "[-01]", 1, 4, kArrayComma},
    Row{"LeadingPointAfterMinus", "[-.5]", 1, 3, kValue},
    Row{"PointBeforeExponent", "[1.e5]", 1, 4, "missing a digit after a decimal point"},
    Row{"TwoPoints", "[1.2.3]", 1, 5, kArrayComma},
    Row{"PointInExponent", "[1e5.5]", 1, 5, kArrayComma},
    Row{"LeadingPlus", "[+1]", 1, 2, kValue},
    Row{"LeadingPoint", "[.5]", 1, 2, kValue},
    Row{"TrailingPoint", "[1.]", 1, 4, "missing a digit after a decimal point"},
    Row{"OnlyMinus", "[-]", 1, 3, kValue},
    Row{"NoExponent", "[1e]", 1, 4, "missing a digit in an exponent"},
    Row{"NoExponentAfterSign", "[1e+]", 1, 5, "missing a digit in an exponent"},
    Row{"Hexadecimal", "[0x10]", 1, 3, kArrayComma},
    Row{"DecimalComma", "{\"a\": 1,5}", 1, 9, kKey},
    Row{"UnderscoreInNumber", "[1_000]", 1, 3, kArrayComma},
    Row{"UnknownEscape", "[\"a\\x41\"]", 1, 4, kEscape},
    Row{"EscapedSingleQuote", "[\"\\'\"]", 1, 3, kEscape},
    Row{"EscapedCapital", "[\"\\N\"]", 1, 3, kEscape},
    Row{"EscapedLineBreak", "[\"a\\\nb\"]", 1, 4, kEscape},
    Row{"LineBreakInString", "[\"abc\ndef\"]", 1, 6, kControl},
    Row{"TabInString", "[\"a\tb\"]", 1, 4, kControl},
    Row{"ControlInKey", "{\"a\x1f\": 1}", 1, 4, kControl},
    Row{"ControlAfterEscape", "[\"\\n\x1b\"]", 1, 5, kControl},
    Row{"ShortHex", "[\"\\u12\"]", 1, 3, kHex},
    Row{"WrongHex", "[\"\\u12G4\"]", 1, 3, kHex},
    Row{"LoneHighSurrogate", "[\"\\uD834\"]", 1, 3, kSurrogate},
    Row{"HighSurrogateAndLetter", "[\"\\uD834\\u0041\"]", 1, 3, kSurrogate},
    Row{"HighSurrogateTwice", "[\"\\uD834\\uD834\"]", 1, 3, kSurrogate},
    Row{"LoneLowSurrogate", "[\"\\udd1e\"]", 1, 3, kSurrogate},
    Row{"LowestLowSurrogate", "[\"\\n\\udc00\"]", 1, 5, kSurrogate},
    Row{"HighestLowSurrogate", "{\"a\\uDFFF\": 1}", 1, 4, kSurrogate},
    Row{"LowSurrogateAfterAPair", "[\"\\uD834\\uDD1E\\uDD1E\"]", 1, 15, kSurrogate},
    Row{"LoneContinuation", "[\"\x80\"]", 1, 3, kUtf8},
    Row{"LatinLetter", "[\"caf\xE9\"]", 1, 6, kUtf8},
    Row{"Overlong2", "[\"\xC0\xAF\"]", 1, 3, kUtf8},
    Row{"Overlong3", "[\"\xE0\x80\x80\"]", 1, 3, kUtf8},
    Row{"Overlong4", "[\"\xF0\x80\x80\x80\"]", 1, 3, kUtf8},
    Row{"EncodedSurrogate", "[\"\xED\xA0\x80\"]", 1, 3, kUtf8},
    Row{"BeyondUnicode", "[\"\xF4\x90\x80\x80\"]", 1, 3, kUtf8},
    Row{"NoLeadByte", "[\"\xFF\"]", 1, 3, kUtf8},
    Row{"CutCharacter", "[\"\xE2\x82\"]", 1, 3, kUtf8},
    Row{"CutCharacterInKey", "{\"\xE2\x82\": 1}", 1, 3, kUtf8},
    Row{"CutCharacterAfterEscape", "[\"\\n\xE2\x82\"]", 1, 5, kUtf8},
    Row{"CutCharacterAtTheEnd2", "[\"\xC3", 1, 3, kUtf8},
    Row{"CutCharacterAtTheEnd3", "[\"\\n\xE2", 1, 5, kUtf8},
    Row{"CutCharacterAtTheEnd4", "[\"\xF0", 1, 3, kUtf8},
    Row{"Utf8OutsideStrings", "[\xC3\xA4]", 1, 2, kValue},
    Row{"ColumnsCountBytes", "[\"\xC3\xA4\", x]", 1, 8, kValue},
    Row{"CarriageReturns", "[1,\r\n2,\r\nx]", 3, 1, kValue},
    Row{"NulBetweenTokens", "[1,\0 2]"s, 1, 4, kNul},
    Row{"NulInString", "[\"a\0b\"]"s, 1, 4, kNul},
    Row{"NulInKey", "{\"a\0b\": 1}"s, 1, 4, kNul},
    Row{"NulInNumber", "[1\0]"s, 1, 3, kNul},
    Row{"NulInWord", "[tr\0ue]"s, 1, 4, kNul},
    Row{"NulAfterEscape", "[\"\\n\0\"]"s, 1, 5, kNul},
    Row{"NulInCharacter", "[\"\xE2\0\x80\"]"s, 1, 3, kUtf8},
    Row{"BlanksThatAreNone", "[1,\f2]", 1, 4, kValue},
    Row{"VerticalTab", "[\v1]", 1, 2, kValue}), nameOf);
// clang-format on

}  // namespace
