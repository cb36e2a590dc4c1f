#include <gtest/gtest.h>

#include "text/edited_text.h"
#include "text/glob.h"
#include "text/lines.h"
#include "text/odd_characters.h"
#include "text/terminal.h"
#include "text/utf8.h"
#include "text/width.h"
#include "text/words.h"

namespace {

using Edits = std::vector<TextEdit>;

TEST(Utf8, KnowsWhereACharacterBeginsAndWhichItIs) {
    const struct {
        const char* text;
        char32_t code;
        size_t length;
    } rows[] = {
        {"a", 'a', 1},
        {"\xC3\xA9", 0xE9, 2},
        {"\xE2\x80\x8B", 0x200B, 3},
        {"\xF0\x9F\x8E\x99", 0x1F399, 4},
        {"\xF4\x8F\xBF\xBF", 0x10FFFF, 4},
        {"\x80", 0, 0},              // continues nothing
        {"\xC3", 0, 0},              // cut off
        {"\xC3z", 0, 0},             // not continued
        {"\xC0\xAF", 0, 0},          // overlong
        {"\xE0\x80\xAF", 0, 0},      // overlong
        {"\xED\xA0\x80", 0, 0},      // half a surrogate pair
        {"\xF4\x90\x80\x80", 0, 0},  // beyond the last
        {"\xFF", 0, 0},
    };
    for (const auto& row : rows) {
        const Utf8Character character = utf8At(row.text, 0);
        EXPECT_EQ(character.length, row.length) << row.text;
        EXPECT_EQ(character.length != 0 ? character.code : 0, row.code) << row.text;
    }
}

TEST(Words, ShowNothingThatSteersATerminal) {
    EXPECT_EQ(printable("a\x1b[2J\xC2\x9B\xE2\x80\xAE\xFFz\xC3\xA9"), "a?[2J???z\xC3\xA9");
    EXPECT_EQ(inQuotes("\x1b\xC2\x9B\xE2\x80\xAE\xFF\"\\\n\r\t"),
              "\"\\u001B\\u009B\\u202E?\\\"\\\\\\n\\r\\t\"");
}

TEST(Words, EscapeWhatCannotBeSeenAndKeepWhatCan) {
    EXPECT_EQ(inQuotes("a\xE2\x80\x8B\xC2\xA0"), "\"a\\u200B\\u00A0\"");
    EXPECT_EQ(inQuotes("\xD0\xB0\xC3\xA9"), "\"\xD0\xB0\xC3\xA9\"");
}

TEST(OddCharacters, HaveNamesAndPlainForms) {
    EXPECT_EQ(nameOfCharacter(0x200B), "the zero-width space (U+200B)");
    EXPECT_EQ(nameOfCharacter(0xFF1A), "the full-width form (U+FF1A)");
    EXPECT_EQ(nameOfCharacter(0xE9), "the character U+00E9");
    EXPECT_EQ(plainForm("st\xD0\xB0tus\xE2\x80\x8B\xEF\xBC\x9A\xC2\xA0\xFF"), "status: \xFF");
    EXPECT_EQ(firstOddCharacter("ab\xC2\xA0\xE2\x80\x8B")->code, 0xA0U);
    EXPECT_FALSE(firstOddCharacter("ab\xC3\xA9"));
    // They are looked up by their order.
    for (char32_t code = 0x80, before = 0; code < 0x10000; ++code) {
        if (!oddCharacter(code)) continue;
        EXPECT_LT(before, code);
        EXPECT_EQ(oddCharacter(code)->code, code);
        before = code;
    }
    for (const char32_t code : {0x00A0U, 0x0430U, 0x201CU, 0x2212U, 0x3000U, 0xFEFFU}) {
        EXPECT_TRUE(oddCharacter(code)) << code;
    }
}

TEST(Widths, AreThoseOfATerminal) {
    EXPECT_EQ(widthOf("abc"), 3U);
    EXPECT_EQ(widthOf("\xE6\xBC\xA2\xED\x95\x9C\xEF\xBC\x9A"), 6U);  // East Asian
    EXPECT_EQ(widthOf("\xF0\x9F\x8E\x99\xF0\x9F\x98\x80"), 3U);      // a picture as a letter, and as one
    EXPECT_EQ(widthOf("e\xCC\x81\xE0\xB8\x81\xE0\xB8\xB4"), 2U);     // marks that combine
    EXPECT_EQ(widthOf("\xFF\x1b"), 2U);
    EXPECT_EQ(shortened("\xE6\xBC\xA2\xE6\xBC\xA2\xE6\xBC\xA2", 6), "\xE6\xBC\xA2\xE6\xBC\xA2\xE6\xBC\xA2");
    EXPECT_EQ(shortened("\xE6\xBC\xA2\xE6\xBC\xA2\xE6\xBC\xA2", 5), "\xE6\xBC\xA2...");
}

TEST(Widths, DecideWhereALineIsBroken) {
    EXPECT_EQ(wrapped("\xE6\xBC\xA2\xE6\xBC\xA2 \xE6\xBC\xA2 a", 0, 7),
              "\xE6\xBC\xA2\xE6\xBC\xA2 \xE6\xBC\xA2\na\n");
}

TEST(Lines, PlaceTheEndOfALineThatEndsInACarriageReturn) {
    const TextLines lines("ab\r\ncd\r");
    EXPECT_EQ(lines.place(2, 1).quote, "ab");
    EXPECT_EQ(lines.place(2, 1).quoteMark, 2U);
    EXPECT_EQ(lines.place(7, 1).line, 2U);
    EXPECT_EQ(lines.place(7, 1).quoteMark, 2U);
    EXPECT_EQ(lines.place(99, 1).offset, 7U);
}

TEST(EditedText, KnowsWhereItsBytesComeFrom) {
    EditedText text("0123456789");
    ASSERT_TRUE(text.apply({{2, 1, "abc"}, {5, 2, ""}}));
    EXPECT_EQ(text.text(), "01abc34789");
    const size_t originals[] = {0, 1, 3, 3, 3, 3, 4, 7, 8, 9, 10};
    for (size_t i = 0; i <= 10; ++i) {
        EXPECT_EQ(text.originalOffset(i), originals[i]) << i;
        EXPECT_EQ(text.isOriginal(i), i < 2 || i > 4) << i;
    }
    EXPECT_EQ(text.originalOffset(11), 10U);
}

TEST(EditedText, GivesEditsOfTheOriginal) {
    EditedText text("0123456789");
    ASSERT_TRUE(text.apply({{2, 1, "abc"}}));
    const std::optional<Edits> edits = text.apply({{6, 1, "x"}, {12, 0, "end"}});
    ASSERT_TRUE(edits);
    ASSERT_EQ(edits->size(), 2U);
    EXPECT_EQ(edits->at(0).offset, 4U);
    EXPECT_EQ(edits->at(1).offset, 10U);
    EXPECT_EQ(text.text(), "01abc3x56789end");
}

TEST(EditedText, RefusesToEditWhatWasPutIn) {
    const Edits rows[] = {{{3, 1, ""}}, {{1, 3, ""}}, {{2, 0, "y"}}, {{5, 0, "y"}}, {{99, 0, "y"}}};
    for (const Edits& row : rows) {
        EditedText text("0123456789");
        ASSERT_TRUE(text.apply({{2, 1, "abc"}}));
        EXPECT_FALSE(text.apply(row)) << row[0].offset;
        EXPECT_EQ(text.text(), "01abc3456789");
    }
}

TEST(EditedText, EditsRightAfterWhatWasTakenOut) {
    EditedText text("0123456789");
    ASSERT_TRUE(text.apply({{2, 3, ""}}));
    const std::optional<Edits> edits = text.apply({{2, 1, "x"}});
    ASSERT_TRUE(edits);
    EXPECT_EQ(edits->at(0).offset, 5U);
    EXPECT_EQ(text.text(), "01x6789");
}

TEST(Glob, MatchesPartByPart) {
    const struct {
        const char* pattern;
        const char* path;
        bool matches;
    } rows[] = {
        {"a", "a", true},
        {"a", "b", false},
        {"a", "a/b", false},
        {"a/b", "a", false},
        {"/a//b/.", "./a/b/", true},
        {"*", "abc", true},
        {"*", "a/b", false},
        {"a*c", "abc", true},
        {"a?c", "abbc", false},
        {"[a-c]x", "bx", true},
        {"[!a-c]x", "bx", false},
        {"\\*", "*", true},
        {"\\*", "a", false},
        {"**", "", true},
        {"**", "a/b/c", true},
        {"**/c", "c", true},
        {"**/c", "a/b/c", true},
        {"**/c", "a/b", false},
        {"a/**", "a", true},
        {"a/**", "b/a", false},
        {"a/**/c", "a/c", true},
        {"a/**/c", "a/b/b/c", true},
        {"**/b/**/d", "a/b/c/d", true},
        {"**/b/**/d", "a/c/d", false},
        {"a**", "abc", true},  // within a part it is a "*"
        {"", "", true},
        {"", "a", false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(matchesGlob(partsOfPath(row.pattern), partsOfPath(row.path)), row.matches)
            << row.pattern << " / " << row.path;
    }
    std::string stars = "x";
    for (int i = 0; i < 50; ++i) stars += "/**/a";
    EXPECT_FALSE(matchesGlob(partsOfPath(stars), PathParts(200, "a")));
}

TEST(Glob, IsKnownByItsCharacters) {
    for (const char* glob : {"*", "a?", "[b]"}) EXPECT_TRUE(isGlob(glob));
    for (const char* none : {"", "a.json", "a]", "{a,b}"}) EXPECT_FALSE(isGlob(none));
}

}  // namespace
