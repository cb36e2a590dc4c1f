#include <gtest/gtest.h>
#include <ka/framework.h>

#include "scratch.h"

namespace {

int sign(int value) {
    return (value > 0) - (value < 0);
}

TEST(CaseBlindComparison, OrdersTexts) {
    const struct {
        const char* a;
        const char* b;
        int order;
    } rows[] = {{"enable", "enable", 0},
                {"ENABLE", "enable", 0},
                {"eNaBlE", "EnAbLe", 0},
                {"", "", 0},
                {"enabled", "enable", 1},
                {"enabl", "enable", -1},
                {"", "a", -1},
                {"a", "B", -1},
                {"B", "a", 1},
                {"disable", "enable", -1},
                {"enable ", "enable", 1},
                {"[", "a", -1},
                {"_", "A", -1},
                {"{", "Z", 1},
                {"\xC3\xA4", "\xC3\x84", 1},
                {"\xFF", "a", 1},
                {"a\xFF", "ab", 1},
                {nullptr, nullptr, 0},
                {nullptr, "", -1},
                {"", nullptr, 1}};
    for (const auto& row : rows)
        EXPECT_EQ(row.order, sign(util_strcasecmp(row.a, row.b))) << row.a << " " << row.b;
}

void expectOnlyAsciiLettersToHaveCase() {
    for (int a = 1; a < 256; ++a) {
        for (int b = 1; b < 256; ++b) {
            const char left[] = {static_cast<char>(a), '\0'};
            const char right[] = {static_cast<char>(b), '\0'};
            const bool letters = (a | 32) >= 'a' && (a | 32) <= 'z' && (a | 32) == (b | 32);
            EXPECT_EQ(a == b || letters, util_strcasecmp(left, right) == 0) << a << " " << b;
        }
    }
}

TEST(CaseBlindComparison, KnowsTheCaseOfAsciiLettersOnly) {
    expectOnlyAsciiLettersToHaveCase();
}

TEST(CaseBlindComparison, DoesNotDependOnTheLocale) {
    const CommaLocale locale;
    expectOnlyAsciiLettersToHaveCase();
}

}  // namespace
