// Texts that hold several numbers: the tables of "aes" and the bands of "nlp".
#include "sections/reading.h"

namespace {

struct Row {
    const char* name;
    const char* section;
    const char* key;
    const char* text;
    std::vector<double> values;
};

class RowText : public testing::TestWithParam<Row> {};

// One text, one line.
// clang-format off
const Row kRows[] = {
    {"single_blanks", "aes", "LimitRatio_0", "1 2 3", {1, 2, 3}},
    {"tab_and_newline", "aes", "LimitRatio_0", "1\t2\n3", {1, 2, 3}},
    {"all_white_space", "aes", "LimitRatio_0", "\r\n 1 \v\f 2     3 ", {1, 2, 3}},
    {"signs_without_blanks", "aes", "LimitRatio_0", "1-2+3", {1, -2, 3}},
    {"empty", "aes", "LimitRatio_0", "", {0, 0, 0}},
    {"blank", "aes", "LimitRatio_0", "   ", {0, 0, 0}},
    {"one_of_three", "aes", "LimitRatio_1", "1", {1, 0, 0}},
    {"two_of_three", "aes", "LimitRatio_1", "1  2", {1, 2, 0}},
    {"four_for_three", "aes", "LimitRatio_1", "1  2  3  4", {1, 2, 3}},
    {"three_of_four", "aes", "HardThreshold", "1 2 3", {1, 2, 3, 0}},
    {"five_for_four", "aes", "HardThreshold", "1 2 3 4 5", {1, 2, 3, 4}},
    {"nine_of_ten", "aes", "ThdSupDegree_0", "1 2 3 4 5 6 7 8 9", {1, 2, 3, 4, 5, 6, 7, 8, 9, 0}},
    {"eleven_for_ten", "aes", "ThdSupDegree_3", "1 2 3 4 5 6 7 8 9 10 11", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}},
    {"commas", "aes", "LimitRatio_0", "1,2,3", {1, 0, 0}},
    {"letter_in_the_middle", "aes", "LimitRatio_0", "1 x 3", {1, 0, 0}},
    {"letter_first", "aes", "LimitRatio_0", "x 2 3", {0, 0, 0}},
    {"sign_alone", "aes", "LimitRatio_0", "1 - 3", {1, 0, 0}},
    {"two_points", "aes", "LimitRatio_0", "1.25.5 4", {1.25, .5, 4}},
    {"points_at_the_ends", "aes", "LimitRatio_0", ".5 5. -.25", {.5, 5, -.25}},
    {"exponents", "aes", "LimitRatio_0", "1e2 25E-2 -1e+1", {100, 0.25, -10}},
    {"integers", "aes", "ThdSplitFreq_0", "500 1000", {500, 1000}},
    {"integers_with_signs", "aes", "ThdSplitFreq_1", "\t-500\n+1000", {-500, 1000}},
    {"integers_with_comma", "aes", "ThdSplitFreq_2", "500,1000", {500, 0}},
    {"three_integers_for_two", "aes", "ThdSplitFreq_3", "500 1000 1500", {500, 1000}},
    {"integer_with_a_fraction", "aes", "ThdSplitFreq_3", "500.5 1000", {500, 0}},
    {"integers_beyond_16_bits", "aes", "HardSplitFreq_0", "70000  -1", {4464, -1}},
    {"integers_beyond_32_bits", "aes", "HardSplitFreq_0", "99999999999  -99999999999", {-1, 0}},
    // the second of a pair that has one number only is the upper half of that number
    {"empty_pair", "aes", "ThdSplitFreq_0", "", {0, 0}},
    {"pair_without_its_first", "aes", "ThdSplitFreq_0", "x 5", {0, 0}},
    {"half_a_pair_of_16_bits", "aes", "ThdSplitFreq_0", "65535", {-1, 0}},
    {"half_a_pair_of_17_bits", "aes", "ThdSplitFreq_1", "65536", {0, 1}},
    {"half_a_pair_small_negative", "aes", "ThdSplitFreq_2", "-5", {-5, -1}},
    {"half_a_pair_then_a_letter", "aes", "ThdSplitFreq_3", "-32769 x", {32767, -1}},
    {"half_a_pair_large", "aes", "HardSplitFreq_1", "70000", {4464, 1}},
    {"half_a_pair_large_negative", "aes", "HardSplitFreq_2", "-65537", {-1, -2}},
    {"half_a_pair_highest", "aes", "HardSplitFreq_3", "2147483647", {-1, 32767}},
    {"half_a_pair_lowest", "aes", "HardSplitFreq_4", "-2147483648,7", {0, -32768}},
    {"half_a_pair_above_32_bits", "aes", "HardSplitFreq_4", "99999999999", {-1, 32767}},
    {"half_a_pair_below_32_bits", "aes", "HardSplitFreq_4", "-99999999999", {0, -32768}},
    {"bands_with_blanks_after_commas",
     "nlp",
     "band_pass_thd",
     "1, 2, 3, 4, 5, 6, 7, 8",
     {1, 2, 3, 4, 5, 6, 7, 8}},
    {"bands_with_other_white_space",
     "nlp",
     "band_pass_thd",
     " 1,\t2,\n3,4,5,6,7,8",
     {1, 2, 3, 4, 5, 6, 7, 8}},
    {"bands_with_a_blank_before_a_comma",
     "nlp",
     "band_pass_thd",
     "1,2,3 ,4,5,6,7,8",
     {1, 2, 3, 0, 0, 0, 0, 0}},
    {"bands_without_commas", "nlp", "band_pass_thd", "1 2 3", {1, 0, 0, 0, 0, 0, 0, 0}},
    {"nine_bands", "nlp", "band_pass_thd", "1,2,3,4,5,6,7,8,9", {1, 2, 3, 4, 5, 6, 7, 8}},
    {"bands_with_a_gap", "nlp", "band_pass_thd", "1,2,,4", {1, 2, 0, 0, 0, 0, 0, 0}},
    {"no_bands", "nlp", "band_pass_thd", "", {0, 0, 0, 0, 0, 0, 0, 0}},
    {"letter_for_bands", "nlp", "band_pass_thd", "x", {0, 0, 0, 0, 0, 0, 0, 0}},
    {"bands_beyond_their_bits",
     "nlp",
     "band_pass_thd",
     "70000,-70000,32768,99999999999,-99999999999,6,7,8",
     {4464, -4464, -32768, -1, 0, 6, 7, 8}},
    {"factors_with_signs", "nlp", "super_est_factor", "-1,+2,-3,4,5,6,7,-8", {-1, 2, -3, 4, 5, 6, 7, -8}},
    // a short text leaves the band-pass numbers 10,11,8,5,4,3,1,0
    {"three_factors", "nlp", "super_est_factor", "6,7,9", {6, 7, 9, 5, 4, 3, 1, 0}},
    {"three_factors_and_a_comma", "nlp", "super_est_factor", "6,7,9,", {6, 7, 9, 5, 4, 3, 1, 0}},
    {"factors_with_a_blank_before_a_comma", "nlp", "super_est_factor", "6 ,7,9", {6, 11, 8, 5, 4, 3, 1, 0}},
    {"no_factors", "nlp", "super_est_factor", "", {10, 11, 8, 5, 4, 3, 1, 0}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(With, RowText, testing::ValuesIn(kRows), nameOfCase<Row>);

const Key& keyOf(const std::string& section, const std::string& name) {
    for (const Key& key : allKeys())
        if (section == key.section && name == key.name) return key;
    throw std::out_of_range(name);
}

TEST_P(RowText, FillsItsRowAndNoOther) {
    Reading reading(GetParam().section);
    reading.keys[GetParam().key] = GetParam().text;
    reading.run();
    ASSERT_FALSE(reading.failed);
    expectLog(reading.host, {});
    EXPECT_EQ(keyOf(GetParam().section, GetParam().key).field.read(reading.bytes()), json(GetParam().values));
    for (const Key& other : keysOf(GetParam().section)) {
        if (!other.field.read || other.name == std::string(GetParam().key)) continue;
        EXPECT_EQ(other.field.read(reading.bytes()), stored(other, other.sample)) << other.name;
    }
}

TEST(Nlp, ShortTextsOfBothKeysLeaveTheSharedValues) {
    Reading nlp("nlp");
    nlp.keys["band_pass_thd"] = "70000,2,3,4";
    nlp.keys["super_est_factor"] = "";
    nlp.run();
    const auto& record = nlp.as<EboNlpParam>();
    const int16_t values[8] = {4464, 2, 3, 4, 0, 0, 0, 0};
    for (int band = 0; band < 8; ++band) {
        EXPECT_EQ(record.bands[band].band_pass_thd, values[band]);
        EXPECT_EQ(record.bands[band].super_est_factor, values[band]);
    }
}

TEST(Aes, RowWithoutNumbersDoesNotTakeThoseOfTheRowBefore) {
    Reading aes("aes");
    for (const char* key :
         {"LimitRatio_1", "ThdSplitFreq_1", "ThdSupDegree_1", "HardSplitFreq_1", "HardThreshold"})
        aes.keys[key] = "x";
    aes.run();
    const auto& record = aes.as<EboAesParam>();
    EXPECT_THAT(record.LimitRatio[1], testing::Each(0.0F));
    EXPECT_THAT(record.ThdSplitFreq[1], testing::Each(0));
    EXPECT_THAT(record.ThdSupDegree[1], testing::Each(0.0F));
    EXPECT_THAT(record.HardSplitFreq[1], testing::Each(0));
    EXPECT_THAT(record.HardThreshold, testing::Each(0.0F));
}

}  // namespace
