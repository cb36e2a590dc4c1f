// util_strcasecmp.
#include "kit.h"

using kit::explain;

namespace {

int sign(int value) {
    return (value > 0) - (value < 0);
}

TEST(Comparison, FindsEqualTextsEqual) {
    explain("util_strcasecmp gives 0 for texts that are equal but for the case of A-Z",
            "\"status\": \"Enable\" does not switch its section on");
    EXPECT_EQ(util_strcasecmp("enable", "enable"), 0);
    EXPECT_EQ(util_strcasecmp("ENABLE", "enable"), 0);
    EXPECT_EQ(util_strcasecmp("eNaBlE", "EnAbLe"), 0);
    EXPECT_EQ(util_strcasecmp("", ""), 0);
    EXPECT_EQ(util_strcasecmp("ABCDEFGHIJKLMNOPQRSTUVWXYZ", "abcdefghijklmnopqrstuvwxyz"), 0);
}

TEST(Comparison, TellsOthersApart) {
    explain("util_strcasecmp gives 0 for no others: a part of a text, or one with more after it, is another",
            "\"status\": \"enabled\", or an empty one, switches its section on");
    for (const char* other :
         {"enabled", "enabl", "", "disable", "enable ", " enable", "e", "enab1e", "enable\xC3\xA4"}) {
        EXPECT_NE(util_strcasecmp(other, "enable"), 0) << other;
        EXPECT_NE(util_strcasecmp("enable", other), 0) << other;
    }
}

TEST(Comparison, Sorts) {
    explain(
        "util_strcasecmp gives below or above 0 as the first text sorts before or after the second, as a-z",
        "a host's sorted table of words is searched in vain");
    const struct {
        const char* a;
        const char* b;
        int order;
    } rows[] = {{"a", "B", -1},           {"B", "a", 1}, {"enable", "enabled", -1},
                {"enabled", "ENABLE", 1}, {"", "a", -1}, {"[", "a", -1},
                {"_", "A", -1},           {"{", "Z", 1}, {"9", "a", -1}};
    for (const auto& row : rows)
        EXPECT_EQ(sign(util_strcasecmp(row.a, row.b)), row.order) << row.a << " " << row.b;
}

void expectCaseOfAsciiLettersAlone() {
    int wrong = 0;
    for (int a = 1; a < 256; ++a) {
        for (int b = 1; b < 256; ++b) {
            const char left[] = {'x', static_cast<char>(a), '\0'};
            const char right[] = {'x', static_cast<char>(b), '\0'};
            const bool letters = (a | 32) >= 'a' && (a | 32) <= 'z' && (a | 32) == (b | 32);
            if ((a == b || letters) == (util_strcasecmp(left, right) == 0)) continue;
            if (++wrong < 4) ADD_FAILURE() << "byte " << a << " and byte " << b;
        }
    }
}

TEST(Comparison, KnowsTheCaseOfAsciiLettersAlone) {
    explain("A-Z count as a-z, and every other byte is equal to itself alone",
            "@ and ` or two letters beyond ASCII count as one");
    expectCaseOfAsciiLettersAlone();
    EXPECT_GT(util_strcasecmp("a\xFF", "ab"), 0) << "bytes beyond ASCII sort after it";
}

TEST(Comparison, DoesNotDependOnTheLocale) {
    explain("A-Z count as a-z in every locale, Turkish and Latin-1 included, and nothing else does",
            "a word with an I in it is another one in a product that is set to Turkish");
    int tried = 0;
    for (const kit::Locale::Kind kind : {kit::Locale::kTurkish, kit::Locale::kLatin1}) {
        const kit::Locale locale(kind);
        if (!locale) continue;
        ++tried;
        expectCaseOfAsciiLettersAlone();
    }
    if (tried < 2)
        KIT_SKIP(
            "no Turkish, or no Latin-1 locale is installed: not tried whether util_strcasecmp depends on "
            "them");
}

TEST(Comparison, TakesNull) {
    explain("null sorts before every text and equals null", "comparing a text that was never set crashes");
    EXPECT_EQ(util_strcasecmp(nullptr, nullptr), 0);
    EXPECT_LT(util_strcasecmp(nullptr, ""), 0);
    EXPECT_GT(util_strcasecmp("", nullptr), 0);
    EXPECT_GT(util_strcasecmp("a", nullptr), 0);
}

}  // namespace
