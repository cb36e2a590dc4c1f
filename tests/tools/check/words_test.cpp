// What the check takes a name for, and how it helps with broken JSON.
#include <gtest/gtest.h>

#include "check/syntax/mends.h"
#include "model/places.h"
#include "text/words.h"

namespace {

struct Slip {
    const char* written;
    const char* meant;
};

class Slips : public testing::TestWithParam<Slip> {};

TEST_P(Slips, AreUnderstood) {
    std::vector<std::string> keys;
    for (const SectionPlace& place : sectionPlaces()) {
        keys.emplace_back(place.section->rows[0].key);
        for (const EboKeyRow* row : keysOf(*place.section)) keys.emplace_back(row->key);
    }
    EXPECT_EQ(nearestName(GetParam().written, keys), GetParam().meant);
}

INSTANTIATE_TEST_SUITE_P(Names, Slips,
                         testing::Values(Slip{"ksiThd_lo", "ksiThd_low"}, Slip{"KSITHD_LOW", "ksiThd_low"},
                                         Slip{"ksiThdlow", "ksiThd_low"}, Slip{"targt", "targ"},
                                         Slip{"drop_ref_chanel", "drop_ref_channel"},
                                         Slip{"stauts", "status"}, Slip{"moed", "mode"},
                                         Slip{"wakeup_word", "wakeup_words"}, Slip{"t_60", "t60"},
                                         Slip{"comment", ""}, Slip{"x", ""}, Slip{"", ""},
                                         Slip{"gain", "fGain"}));

struct Broken {
    const char* text;  // the parser stops at the '^', which is left out
    const char* help;
};

class BrokenJson : public testing::TestWithParam<Broken> {};

TEST_P(BrokenJson, IsHelpedWith) {
    std::string text = GetParam().text;
    const size_t offset = text.find('^');
    text.erase(offset, 1);
    EXPECT_EQ(mendSyntax(text, offset).help, GetParam().help);
}

constexpr char kNumbers[] =
    "write numbers as 5, -5, 0.5 or 1e-3: no '+', no leading zeros, digits on both sides of the point";
constexpr char kNames[] = "write names and texts in double quotes; true, false and null in lower case";
constexpr char kUnit[] =
    "write the number with digits and a decimal point only: no unit, nothing between the digits";
constexpr char kEither[] = "write a decimal point for a decimal comma, and nothing between thousands";
constexpr char kThousands[] = "leave the comma out: nothing separates thousands";
constexpr char kNoNumber[] = "write a number: JSON knows no NaN and no infinity";
constexpr char kTab[] = "replace the tab or control character by a blank, or remove it";

INSTANTIATE_TEST_SUITE_P(
    Documents, BrokenJson,
    testing::Values(Broken{"{\"a\": 1\n^\"b\": 2}", "put a comma at the end of line 1"},
                    Broken{"{\"a\": {}\n\n^\"b\": 2}", "put a comma at the end of line 1"},
                    Broken{"{\"a\": 1,\n^}",
                           "remove the comma at the end of line 1, or add what should follow it"},
                    Broken{"{\"a\": ^}", "write a value after the ':'"},
                    Broken{"{\"a\": ^,", "write a value after the ':'"},
                    Broken{"{\"a\": 1, ^// why", "JSON has no comments: remove it"},
                    Broken{"{^'a': 1}", "use double quotes"}, Broken{"{\"a\": ^True}", kNames},
                    Broken{"{^a: 1}", kNames}, Broken{"{\"a\": ^+1}", kNumbers},
                    Broken{"{\"a\": ^.5}", kNumbers}, Broken{"{\"a\": 0^5}", kNumbers},
                    Broken{"{\"a\": 0,^5}", "write a decimal point, not a decimal comma"},
                    Broken{"{\"a\": 12,^50}", "write a decimal point, not a decimal comma"},
                    Broken{"{\"a\": 1,^0000}", "write a decimal point, not a decimal comma"},
                    Broken{"{\"a\": 100,^000.0,", kThousands}, Broken{"{\"a\": 1,^000,000}", kThousands},
                    Broken{"{\"a\": 1,^250,\n", kEither}, Broken{"{\"a\": 1,^250", kEither},
                    Broken{"{\"a\": 24.0 ^dB,", kUnit}, Broken{"{\"a\": 24.0^dB,", kUnit},
                    Broken{"{\"a\": 24^%,", kUnit}, Broken{"{\"a\": 0^x30,", kUnit},
                    Broken{"{\"a\": 100^_000,", kUnit}, Broken{"{\"a\": 100 ^000,", kUnit},
                    Broken{"{\"a\": 100^'000,", kUnit}, Broken{"{\"a\": -^-1.5,", kNumbers},
                    Broken{"{\"a\": 3.^\n", kNumbers}, Broken{"{\"a\": 3.^}", kNumbers},
                    Broken{"{\"a\": 12.5e^,", kNumbers}, Broken{"{\"a\": ^NaN}", kNoNumber},
                    Broken{"{\"a\": n^an}", kNoNumber}, Broken{"{\"a\": -^Infinity}", kNoNumber},
                    Broken{"{\"a\": ^(24.0),", "write the number without '(' and ')'"},
                    Broken{"{\"a\": 24.0,^,", "remove one of the two commas"},
                    Broken{"{\"a\": [ \"status\"^: 1",
                           "names with values stand between '{' and '}': open them with a '{'"},
                    Broken{"{\"a\": \"b\"\n^],", "close with a '}' what a '{' opens"},
                    Broken{"{\"a\": 1}\n^]", "remove what comes after the last '}'"},
                    Broken{"{\"a\": \"1.0^\t0.85\"", kTab}, Broken{"{\"a^\t\": 1}", kTab},
                    Broken{"{\"a\": \"b^\x1B\"", kTab}, Broken{"{\"a\": 24^\xC2\xA0", "write a plain blank"},
                    Broken{"{\"a\": ^\xE2\x88\x92-1", "write a plain '-'"},
                    Broken{"{\"a\": ^\xE2\x80\x93-1", "write a plain '-'"},
                    Broken{"{\"a\": 1^\xEF\xBC\x8C", "write a plain ','"},
                    Broken{"{\"a\": 30^\xB0,", "save the file as UTF-8"},
                    Broken{"^\xEF\xBB\xBF{", "save the file as UTF-8 without a byte order mark"},
                    Broken{"{\"a\": \"C:^\\x\"}", "write two backslashes for one, or '/' in a path"},
                    Broken{"{\"a\": \"b^\n", "close the string with a quote on the same line"},
                    Broken{"{\"a\": 1^;", "remove it"}, Broken{"{\"a\": 1^; \"b\"", "write a comma instead"},
                    Broken{"{\"a\" ^= 1", "write a ':' between key and value"},
                    Broken{"{\"a\" ^1", "put a ':' between key and value, a comma after a value"},
                    Broken{"{}^x", "remove what comes after the last '}'"},
                    Broken{"{\"a\": ^\xE2\x80\x9C", "use plain double quotes, not typographic ones"},
                    Broken{"{\"a\": \"^\xE9\"}", "save the file as UTF-8"},
                    Broken{"{\"a\": {^", "the file ends too early: close every '{' with a '}'"},
                    Broken{"^", "the file ends too early"}));

}  // namespace
