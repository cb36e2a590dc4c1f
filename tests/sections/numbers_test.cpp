// Numbers in texts, against sscanf() in the C locale, which the model reads with: what it stores is what the
// record must hold, the sign of zero and of "not a number" included.
#include <optional>
#include <random>

#include "harness/comma_locale.h"
#include "harness/modelled.h"
#include "model/rows.h"

namespace {

// Reads all rows of "aes" from these texts, in turn.
void expectAesRows(const std::vector<std::string>& texts) {
    for (size_t next = 0; next < texts.size();) {
        Reading aes("aes");
        for (const model::Key& key : aes.section.keys)
            if (key.count > 0) aes.keys[key.name] = texts[next++ % texts.size()];
        aes.run();
        ASSERT_FALSE(testing::Test::HasFailure());
    }
}

void expectBands(const std::string& thresholds, const std::string& factors) {
    Reading nlp("nlp");
    nlp.keys["band_pass_thd"] = thresholds;
    nlp.keys["super_est_factor"] = factors;
    nlp.run();
}

void expectMap(const std::string& text) {
    if (model::scanChannelMap(text).count > 16) return;  // ends the process
    Reading aec("aec");
    aec.keys["mic_chn_map"] = text;
    aec.run();
}

// Each alone, and with good numbers before and after it.
std::vector<std::string> oddRows() {
    // clang-format off
    const std::vector<std::string> odd = {
        "", " ", "+", "-", "+-1", "--1", "++1", "+ 1", ".", "-.", "+.", ".5", "5.", "-.5", "+5.", "..5", "1.2.3", "1..2",
        // exponents, also without digits; too large and too small
        "1e", "1e+", "1e-", "1E", "1e5", "1e+5", "1E-5", "1e5.5", "1e 5", ".e5", "e5", "1.e2", ".1e2", "1ee5", "1e5e5",
        "1e38", "3.4028235e38", "3.4028236e38", "3.5e38", "1e39", "-1e39", "1e999999999999", "1e-38", "1e-45", "7e-46", "7.1e-46",
        "1e-46", "-1e-999999999999", "0e999999999999", "-0", "+0", "-0.0", "00012", "1.17549435e-38", "1.1754943e-38",
        // rounding
        "0.1", "0.3333333333333333333333333", "16777217", "8589973000", "1.00000017881393432617187499",
        "1.00000017881393432617187500", "1.00000017881393432617187501",
        // hexadecimal
        "0x", "0x1", "0X1", "0x1p3", "0x1p+3", "0x1P-3", "0x1p", "0x1p+", "0x.8", "0x1.8", "0x.", "0x.p1",
        "0x1.fffffep127", "0x1p128", "0x1p-149", "0x1p-150", "0x1.8p-150", "-0x1p1", "+0x1p1", "0xg", "0xp1",
        "0x1.0000010", "0x1.00000100000001", "0x1p99999999999",
        // words
        "inf", "INF", "Inf", "infinity", "INFINITY", "infinit", "infi", "in", "i", "-inf", "+inf", "inf5", "infinityx",
        "nan", "NaN", "-nan", "+nan", "na", "n", "nan(", "nan()", "nan(123)", "nan(abc)", "nan(0x1)", "nan(a b)", "nan5",
        // other characters
        // the neighbours of digits and letters
        "1:2", "1/2", ":", "/", "0x1:", "0x1/", "0x1`", "0x1@", "0x1g", "0x1G", "1\b2", "1\0162", "1\0372",
        "1,2", "1;2", "1a2", "1f", "1l", "0b1", "1_000", "1'000", "\u00a01", "1\u00a0", "\uff11", "\u22121", "%d", "%", "\\",
        "\"1\"", "1\v2", "1\f2", "1\r2", "1\b2", "1 \t\n\v\f\r 2", "1-2", "1+2", "1.5-2.5", "1-", "1e5-3",
        std::string("1\0002", 3),
        // integers at the ends of their ranges
        "65535", "65536", "-65536", "2147483647", "2147483648", "-2147483648", "-2147483649", "4294967296",
        "-21474836470", "9223372036854775807", "9223372036854775808", "-9223372036854775809", "18446744073709551616",
        "99999999999999999999999999",
        // long ones
        std::string(5000, '9'), "0." + std::string(5000, '0') + "1", "1e" + std::string(5000, '0') + "2",
        std::string(5000, ' ') + "7", std::string(5000, '0') + "7",
        // too large or too small only when the digits and the exponent are taken together
        "0." + std::string(5000, '0') + "1e4000", "0." + std::string(5000, '0') + "1e5100",
        "1" + std::string(5000, '0') + "e-4000", "1" + std::string(5000, '0') + "e-5100",
        "0x1" + std::string(1000, '0') + "p-1500", "0x1" + std::string(1000, '0') + "p-5000",
        "0x0." + std::string(1000, '0') + "1p1500", "0x0." + std::string(1000, '0') + "1p5000",
        std::string(100, '0') + "1e-80", "1." + std::string(100, '1') + "e-60", "0x" + std::string(400, '0') + "1p-800",
        "0x1." + std::string(400, '1') + "p-800", "." + std::string(100, '0') + "1e90", "." + std::string(100, '0') + "1e110",
        std::string(1000, '0') + "1e400", "1." + std::string(1000, '1') + "e400",
        // too large or too small by the digits alone, with a number after the exponent that has none
        std::string(50, '9') + "e -90", "0." + std::string(50, '0') + "1e 90",
    };
    // clang-format on
    std::vector<std::string> rows;
    for (const std::string& text : odd) {
        rows.push_back(text);
        rows.push_back("8 " + text + " 9");
        rows.push_back("-7\t" + text);
        rows.push_back(text + "  " + text + "\n" + text);
        rows.push_back("4," + text + ",5");
        rows.push_back(text + " ,6");
    }
    return rows;
}

// Texts that are nearly numbers, the same on every run.
class Texts {
public:
    std::string next() {
        static const char* const pieces[] = {"0",  "1",  "7", "9",  "12",  "65536",       ".",   "-", "+",
                                             "e",  "E",  "x", "p",  "0x",  "inf",         "nan", " ", "  ",
                                             "\t", "\n", ",", "e5", "e-9", "99999999999", "a",   "("};
        std::string text;
        for (size_t n = random_() % 12; n > 0; --n) text += pieces[random_() % std::size(pieces)];
        return text;
    }

private:
    std::mt19937 random_{20240229};
};

class RowNumbers : public testing::TestWithParam<bool> {
protected:
    RowNumbers() {
        if (GetParam()) comma_.emplace();
    }

private:
    std::optional<CommaLocale> comma_;
};
INSTANTIATE_TEST_SUITE_P(, RowNumbers, testing::Values(false, true),
                         [](const auto& instance) { return instance.param ? "comma_locale" : "C_locale"; });

TEST_P(RowNumbers, AreReadAsSscanfReadsOddTexts) {
    const std::vector<std::string> rows = oddRows();
    // Each text comes to each kind of row: the number of rows of a section is not a divisor of this step.
    for (std::ptrdiff_t turn = 0; turn < 16; ++turn) expectAesRows({rows.begin() + turn, rows.end()});
    for (size_t i = 0; i < rows.size(); ++i) expectBands(rows[i], rows[rows.size() - 1 - i]);
    for (const std::string& row : rows) {
        expectMap(row);
        expectMap("3 chn;map:" + row);
        expectMap(row + " chn;map:1,2,3");
    }
}

TEST_P(RowNumbers, AreReadAsSscanfReadsNearlyNumbers) {
    Texts texts;
    std::vector<std::string> rows(16 * 500);
    for (std::string& row : rows) row = texts.next();
    expectAesRows(rows);
    for (int i = 0; i < 2000; ++i) {
        expectBands(texts.next() + "," + texts.next(), texts.next() + ", " + texts.next());
        expectMap("2 chn;map:" + texts.next() + "," + texts.next());
        expectMap(texts.next() + "chn;map:" + texts.next());
    }
}

// What the rows of a tuning file look like: few digits, a point somewhere.
TEST(RowNumber, IsTheNearestFloatToAPlainDecimal) {
    std::mt19937 random(7);
    std::vector<std::string> rows(16 * 300);
    for (std::string& row : rows) {
        for (int number = 0; number < 10; ++number) {
            std::string digits = std::to_string(random()).substr(0, 1 + random() % 9);
            if (random() % 4 != 0) digits.insert(random() % (digits.size() + 1), ".");
            row += (number == 0 ? "" : "  ") + digits;
        }
    }
    expectAesRows(rows);
}

TEST(RowNumber, MayBeAMegabyteLong) {
    const std::string megabyte(1 << 20, '1');
    expectAesRows({megabyte, "0." + megabyte, megabyte + "." + megabyte, "1e-" + megabyte,
                   "1 " + megabyte + " 2", std::string(1 << 20, '0') + "1", std::string(1 << 20, ' ') + "3",
                   "-" + megabyte, "0." + std::string(1 << 20, '0') + "1e1048577", "0x" + megabyte});
    expectBands(megabyte + ",2", "1,-" + megabyte + ",3");
    expectMap("2 chn;map:" + megabyte + ",-" + megabyte);
}

}  // namespace
