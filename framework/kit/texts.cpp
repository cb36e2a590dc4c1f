// What findCString gives, and how long.
#include <cstring>
#include <memory>
#include <vector>

#include "kit.h"

using kit::explain;

namespace {

TEST(Texts, AreFoundAsWritten) {
    explain("findCString gives the text of a JSON string, ending in NUL",
            "no section counts as enabled, since its \"status\" is not what the file says");
    const kit::Section section(R"("status": "enable", "empty": "", "blank": " two  words ", "after": 1)");
    EXPECT_EQ(kit::text(section.keys, "status"), "enable");
    EXPECT_EQ(kit::text(section.keys, "empty"), "");
    EXPECT_EQ(kit::text(section.keys, "blank"), " two  words ");
    EXPECT_EQ(kit::integer(section.keys, "after"), 1);
}

TEST(Texts, MayBeLong) {
    explain("findCString gives a text of any length whole",
            "the rows of a long table, or a long model path, are cut off");
    for (const size_t length : {127u, 128u, 255u, 256u, 1023u, 1024u, 4096u, 20000u}) {
        const std::string expected = std::string(length - 1, 'x') + "y";
        const kit::Section section("\"k\": \"" + expected + "\"");
        EXPECT_EQ(kit::text(section.keys, "k"), expected);
    }
}

TEST(Texts, AreDecoded) {
    explain("findCString gives the text that JSON escapes stand for",
            "a model path or wake-up word with an escape names another file or word");
    const kit::Section section(
        R"("letters": "\"\\\/\b\f\n\r\t", "path": "C:\\models\\n", "ascii": "\u0041\u004a")");
    EXPECT_EQ(kit::text(section.keys, "letters"), "\"\\/\b\f\n\r\t");
    EXPECT_EQ(kit::text(section.keys, "path"), "C:\\models\\n");
    EXPECT_EQ(kit::text(section.keys, "ascii"), "AJ");
}

TEST(Texts, AreUtf8) {
    explain("findCString gives UTF-8, from UTF-8 and from \\u escapes, pairs of surrogates included",
            "a wake-up word beyond ASCII never wakes the product");
    const kit::Section section(
        "\"raw\": \"\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E\", \"two\": \"\\u00e4\", \"three\": "
        "\"\\u20AC\", \"four\": \"\\uD834\\udd1e\", \"ends\": \"\\u0080\\u07ff\\u0800\\uffff\"");
    EXPECT_EQ(kit::text(section.keys, "raw"), "\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E");
    EXPECT_EQ(kit::text(section.keys, "two"), "\xC3\xA4");
    EXPECT_EQ(kit::text(section.keys, "three"), "\xE2\x82\xAC");
    EXPECT_EQ(kit::text(section.keys, "four"), "\xF0\x9D\x84\x9E");
    EXPECT_EQ(kit::text(section.keys, "ends"), "\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF");
}

TEST(Texts, EndAtANul) {
    explain("a text with \\u0000 inside ends there",
            "what stands after it is read as part of the text, or from memory that is not the text's");
    const kit::Section section(R"("k": "ab\u0000cd", "none": "\u0000", "after": "x")");
    EXPECT_EQ(kit::text(section.keys, "k"), "ab");
    EXPECT_EQ(kit::text(section.keys, "none"), "");
    EXPECT_EQ(kit::text(section.keys, "after"), "x");
}

// Whether these bytes are UTF-8: no character longer than need be, none beyond U+10FFFF, no half of a pair.
bool isUtf8(const std::string& text) {
    for (size_t at = 0; at < text.size();) {
        const auto byte = [&](size_t i) -> unsigned {
            return at + i < text.size() ? static_cast<unsigned char>(text[at + i]) : 0;
        };
        const size_t size = byte(0) < 0x80 ? 1 : byte(0) < 0xE0 ? 2 : byte(0) < 0xF0 ? 3 : 4;
        unsigned code = size == 1 ? byte(0) : byte(0) & (0x7Fu >> size);
        for (size_t i = 1; i < size; ++i) {
            if (byte(i) >> 6 != 2) return false;
            code = code << 6 | (byte(i) & 0x3F);
        }
        const unsigned least[] = {0, 0, 0x80, 0x800, 0x10000};
        if (byte(0) >> 6 == 2 || code < least[size] || code > 0x10FFFF || code >> 11 == 0xD800 >> 11)
            return false;
        at += size;
    }
    return true;
}

TEST(Texts, OfHalfASurrogatePairAreRefusedOrUtf8) {
    explain(
        "an escape that is half a surrogate pair is refused with its file, or given as some UTF-8, as U+FFFD "
        "is",
        "bytes that are no text reach the engine and the log, whose readers may refuse all of it");
    for (const char* written : {R"(\ud834)", R"(\udd1e)", R"(x\ud834y)", R"(\ud834\u0041)", R"(\ud834\ud834)",
                                R"(\udd1e\ud834)", R"(\ud834\n)", R"(\ud834\\udd1e)"}) {
        kit::Section section("\"k\": \"" + std::string(written) + "\"");
        const std::string text = kit::text(section.keys, "k");
        EXPECT_EQ(text == "<none>", section.opened.result == 0) << written;
        EXPECT_TRUE(isUtf8(text)) << written;
    }
}

TEST(Texts, ThatAreNotUtf8AreRefused) {
    explain("parseFile refuses a file with a string that is not UTF-8",
            "a file saved as Latin-1 loads here with spoilt words, and is refused by eboconf check");
    for (const char* bytes :
         {"\xE4", "\x80", "\xC3", "\xE2\x82", "\xFF", "\xC0\x80", "\xC1\xBF", "\xE0\x80\x80", "\xED\xA0\x80",
          "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xC3\xC3\xA4"}) {
        EXPECT_FALSE(kit::takes("{\"r\": {\"s\": {\"k\": \"a" + std::string(bytes) + "b\"}}}"))
            << testing::PrintToString(std::string(bytes));
        EXPECT_FALSE(kit::takes("{\"r\": {\"s\": {\"" + std::string(bytes) + "\": 1}}}"))
            << testing::PrintToString(std::string(bytes));
    }
}

TEST(Texts, AreNotMadeOfOtherTypes) {
    explain("findCString takes a JSON string and nothing else",
            "\"status\": 1 switches a section off without a word, where the library should report it");
    const kit::Section section(
        R"("number": 1, "real": 1.5, "yes": true, "nil": null, "list": ["x"], "o": {"o": "x"})");
    for (const char* key : {"number", "real", "yes", "nil", "list", "o"})
        EXPECT_EQ(kit::text(section.keys, key), "<none>") << key;
}

// Gives released memory away again, so that a text that lies in some is overwritten.
void churn() {
    std::vector<std::unique_ptr<char[]>> blocks;
    for (size_t size = 8; size < 4096; size += 8) {
        blocks.push_back(std::make_unique<char[]>(size));
        memset(blocks.back().get(), '?', size);
    }
}

// A short one, which may lie within an object, and a long one, which cannot.
const std::string kLong(200, 'l');
const std::string kTwoTexts = R"("short": "a\tb", "long": ")" + kLong + "\"";

struct TwoTexts {
    explicit TwoTexts(const KaMetaData& keys) {
        EXPECT_TRUE(keys.findCString("short", &first));
        EXPECT_TRUE(keys.findCString("long", &second));
    }
    void expectAlive() const {
        churn();
        EXPECT_STREQ(first, "a\tb");
        EXPECT_STREQ(second, kLong.c_str());
    }
    const char* first = "";
    const char* second = "";
};

TEST(TextsLive, ThroughOtherLookups) {
    explain("a text stays what it is while others are looked up in the same KaMetaData",
            "the two wake-up words, read one after the other and then copied, are the same word or none");
    const kit::Section section(kTwoTexts + R"(, "third": "c", "n": 1)");
    const TwoTexts texts(section.keys);
    kit::text(section.keys, "third");
    kit::text(section.keys, "missing");
    kit::integer(section.keys, "n");
    kit::integer(section.keys, "short");
    texts.expectAlive();
}

TEST(TextsLive, ThroughOtherSectionsOfTheParser) {
    explain("a text lives as long as its KaMetaData, whatever else is asked of the parser",
            "a string row of a table is read from memory that belongs to another section by then");
    kit::Opened opened("{\"r\": {\"s\": {" + kTwoTexts +
                       R"(}, "t": {"short": "other", "long": "another"}}})");
    KaMetaData keys;
    opened.parser.getOptions("r", "s", &keys);
    const TwoTexts texts(keys);
    {
        KaMetaData other;
        opened.parser.getOptions("r", "t", &other);
        EXPECT_EQ(kit::text(other, "short"), "other");
        opened.parser.getOptions("r", "missing", &other);
        opened.parser.getOptions("missing", "s", &other);
    }
    texts.expectAlive();
    EXPECT_EQ(kit::text(keys, "short"), "a\tb");
}

TEST(TextsLive, ThroughOtherDocuments) {
    explain("a text lives as long as its KaMetaData, whatever other parsers do",
            "a host that loads two files at a time gets words of the one in the records of the other");
    const kit::Section section(kTwoTexts);
    const TwoTexts texts(section.keys);
    {
        const kit::Section other(R"("short": "other", "long": "another")");
        EXPECT_EQ(kit::text(other.keys, "long"), "another");
        EXPECT_FALSE(kit::takes("{"));
    }
    texts.expectAlive();
}

}  // namespace
