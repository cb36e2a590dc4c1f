// What single sections do at their edges: one line of data per case. All that a line does not say is the
// model's to say; what it says does not depend on the model.
#include <algorithm>

#include "harness/modelled.h"

namespace {

struct Case {
    const char* name;
    const char* section;
    json keys;  // in place of the complete section's; null: the key is missing
    int mask;
    json fields;         // of the record; null: the reader fails
    json log = nullptr;  // texts without colours; null: not looked at
    int before = 0;
    const char* root = "ebo_configs";
};

const json kNothing = json::object();
const json kDisabled = {{"status", "disable"}};
constexpr const char* kPlayback = "ebo_ao_configs";

json map(const std::string& text) {
    return {{"mic_chn_map", text}};
}
json channels(const json& numbers) {
    return {{"mic_chn_map", numbers}, {"model_aec_en", 2}};
}
const json kNoMap = {{"mic_chn_map", nullptr}, {"model_aec_en", 0}};

// A mode and a number of words; nothing else unless it is said.
json wake(const json& mode, const json& words, const char* key = "wakeup_frames",
          const json& value = nullptr) {
    json keys = {{"wakeup_frames", nullptr}, {"model_word1", nullptr}, {"model_word2", nullptr}};
    keys["mode"] = mode;
    keys["wakeup_words"] = words;
    keys[key] = value;
    return keys;
}
json current(const char* mode) {
    return json::array({std::string("Current wakeup mode is: ") + mode + "\n"});
}
json invalid(const std::string& mode, bool without_words = false) {
    json lines = {"Invalid mode: " + mode + ", please check mode follow these:",
                  "    mode0 - none",
                  "    mode1 - oneshot only",
                  "    mode2 - wakeup + command",
                  "    mode3 - (oneshot) and (wakeup + command)",
                  "Current wakeup mode is: " + mode + "\n"};
    if (without_words)
        lines.insert(lines.begin(), "the wakeup word is 0, please configure it which you need\n");
    return lines;
}

// clang-format off
const Case kCases[] = {
    {"aec_in_capitals", "aec", {{"status", "ENABLE"}}, 0x1, kNothing},
    {"aec_with_a_d", "aec", {{"status", "enabled"}}, 0x2, {{"delay_len", 48}}, {"aec: not enable", "mic_chn_map:4 chn;map:3,1,2,-7"}, 0x2},
    {"aec_disabled_and_incomplete", "aec", {{"status", "disable"}, {"look_ahead", nullptr}, {"mic_chn_map", nullptr}}, 0, nullptr, {"aec: not enable", "find aec look_ahead failed"}},
    {"aec_flag_5", "aec", {{"drop_ref_channel", 5}}, 0x1, {{"drop_ref_channel", 1}}},
    {"aec_flag_minus_1", "aec", {{"drop_ref_channel", -1}}, 0x1, {{"drop_ref_channel", 1}}},
    {"aec_flag_65536", "aec", {{"drop_ref_channel", 65536}}, 0x1, {{"drop_ref_channel", 1}}},
    {"aec_without_flag_after_its_map", "aec", {{"drop_ref_channel", nullptr}}, 0x1, nullptr, {"mic_chn_map:4 chn;map:3,1,2,-7", "find aec drop_ref_channel failed"}},
    {"aec_from_zero", "aec", {{"pos", 9}, {"mic_chn_map", nullptr}}, 0x1, {{"pos", 0}, {"model_aec_en", 0}, {"mic_chn_map", nullptr}}, json::array()},
    {"filter_of_70000", "aec", {{"filter_len", 70000}}, 0x1, {{"filter_len", 4464}}},

    {"map_of_two", "aec", map("2 chn;map:1,0"), 0x1, channels({1, 0}), {"mic_chn_map:2 chn;map:1,0"}},
    {"map_of_sixteen", "aec", map("16 chn;map:15,14,13,12,11,10,9,8,7,6,5,4,3,2,1,0"), 0x1, channels({15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0})},
    {"map_with_more_than_its_count", "aec", map("2 chn;map:1,0,5,6"), 0x1, channels({1, 0})},
    {"map_with_more_than_sixteen", "aec", map("16 chn;map:1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18"), 0x1, channels({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16})},
    {"map_with_less_than_its_count", "aec", map("3 chn;map:7"), 0x1, channels({7, 0, 0})},
    {"map_of_a_count_alone", "aec", map("3"), 0x1, channels({0, 0, 0})},
    {"map_without_blank", "aec", map("2chn;map:1,9"), 0x1, channels({1, 9})},
    {"map_with_other_white_space", "aec", map(" \t2 \n chn;map: 1,\t9"), 0x1, channels({1, 9})},
    {"map_with_a_blank_before_a_comma", "aec", map("2 chn;map:1 ,9"), 0x1, channels({1, 0})},
    {"map_with_a_blank_in_its_words", "aec", map("2 chn; map:1,9"), 0x1, channels({0, 0})},
    {"map_in_capitals", "aec", map("2 CHN;map:1,9"), 0x1, channels({0, 0})},
    {"map_with_a_fraction", "aec", map("2.5 chn;map:1,9"), 0x1, channels({0, 0})},
    {"map_beyond_16_bits", "aec", map("2 chn;map:70000,-70000"), 0x1, channels({4464, -4464})},
    {"map_beyond_32_bits", "aec", map("2 chn;map:99999999999,-99999999999"), 0x1, channels({-1, 0})},
    {"map_of_zero", "aec", map("0 chn;map:"), 0x1, kNoMap, json::array()},
    {"map_of_minus_one", "aec", map("-1 chn;map:1,0"), 0x1, kNoMap, json::array()},
    {"map_without_count", "aec", map("chn;map:1,0"), 0x1, kNoMap, json::array()},
    {"map_of_nothing", "aec", map(""), 0x1, kNoMap, json::array()},
    {"map_that_is_a_number", "aec", {{"mic_chn_map", 7}}, 0x1, kNoMap, json::array()},

    {"delay_with_least_delay", "delay", {{"status", "ENABLE"}, {"LeastDelay", 5}}, 0, {{"LeastDelay", 0}}, json::array()},
    {"delay_disabled_and_empty", "delay", {{"status", "disable"}, {"MaxFrame", nullptr}, {"EndFreq", nullptr}}, 0x55, nullptr, {"delay: not enable"}, 0x55},
    {"delay_without_end", "delay", {{"EndFreq", nullptr}, {"SmoothFactor", nullptr}}, 0, nullptr, {"find delay EndFreq failed"}},
    {"delay_beyond_16_bits", "delay", {{"MaxFrame", 65537}, {"MicAmpThr", 40000}}, -1, {{"MaxFrame", 1}, {"MicAmpThr", -25536}}, json::array(), -1},

    {"bf_off", "bf", {{"status", "off"}, {"drop_ref_channel", 0}, {"targ", 3}}, 0x1, {{"targ", 3}, {"drop_ref_channel", 0}, {"model_en", 0}}, {"bf: not enable"}, 0x1},
    {"bf_from_zero", "bf", {{"ref_pos", 9}, {"num_ref_channel", 9}}, 0x2, {{"ref_pos", 0}, {"num_ref_channel", 0}, {"model_en", 0}}},
    {"gsc_disabled_with_method_1", "gsc", {{"status", "disable"}, {"method", 1}}, 0x100, kNothing, json::array()},
    {"gsc_with_method_1", "gsc", {{"method", 1}}, 0x180, kNothing},
    {"gsc_with_method_2", "gsc", {{"method", 2}}, 0x80, kNothing},
    {"gsc_with_method_65537", "gsc", {{"method", 65537}}, 0x80, kNothing},
    {"gsc_without_method", "gsc", {{"method", nullptr}}, 0x80, nullptr, {"find gsc method failed"}},
    {"wind_without_status", "wind", {{"status", nullptr}}, 0, nullptr, {"find bf status failed"}},
    {"fast_aec_in_mixed_case", "fast_aec", {{"status", "Enable"}}, 0x1, kNothing, json::array()},
    {"fast_aec_with_no", "fast_aec", {{"status", "no"}}, 0, kNothing, json::array()},
    {"fast_aec_without_status", "fast_aec", {{"status", nullptr}}, 0, nullptr, {"find bf status failed"}},

    {"wakeup_without_keys", "wakeup", wake(nullptr, nullptr), 0x2, {{"mode", 0}, {"wakeup_frames", 180}, {"wakeup_words", 0}, {"model_word1", nullptr}, {"model_word2", nullptr}}, invalid("0", true)},
    {"wakeup_disabled", "wakeup", kDisabled, ~0x2, {{"mode", 0}, {"wakeup_frames", 0}, {"wakeup_words", 0}, {"model_word1", nullptr}}, json::array(), ~0x2},
    {"wakeup_without_status", "wakeup", {{"status", nullptr}}, 0, {{"wakeup_frames", 0}}, json::array()},
    {"wakeup_disabled_with_the_bit", "wakeup", {{"status", "disable"}, {"wakeup_frames", nullptr}}, 0x2, {{"mode", 2}, {"wakeup_frames", 180}, {"model_word1", "hello-lamp"}}, current("2"), 0x2},
    {"wakeup_mode_4", "wakeup", wake(4, 1), 0x2, {{"mode", 4}}, invalid("4")},
    {"wakeup_mode_minus_1", "wakeup", wake(-1, 1), 0x2, {{"mode", -1}}, invalid("-1")},
    {"wakeup_mode_0", "wakeup", wake(0, 1), 0x2, {{"mode", 0}}, invalid("0")},
    {"wakeup_mode_65537", "wakeup", wake(65537, 1), 0x2, {{"mode", 65537}}, invalid("65537")},
    {"wakeup_mode_1", "wakeup", wake(1, 1), 0x2, {{"mode", 1}}, current("1")},
    {"wakeup_mode_2", "wakeup", wake(2, 2), 0x2, {{"wakeup_words", 2}}, current("2")},
    {"wakeup_mode_3", "wakeup", wake(3, -1), 0x2, {{"mode", 3}, {"wakeup_words", -1}}, current("3")},
    {"wakeup_mode_as_text", "wakeup", wake("1", 1), 0x2, {{"mode", 0}}, invalid("0")},
    {"wakeup_words_with_a_fraction", "wakeup", wake(1, 1.5), 0x2, {{"wakeup_words", 0}}, {"the wakeup word is 0, please configure it which you need\n", "Current wakeup mode is: 1\n"}},
    {"wakeup_frames_of_zero", "wakeup", wake(1, 1, "wakeup_frames", 0), 0x2, {{"wakeup_frames", 0}}},
    {"wakeup_frames_as_text", "wakeup", wake(1, 1, "wakeup_frames", "200"), 0x2, {{"wakeup_frames", 180}}},
    {"wakeup_word_empty", "wakeup", wake(1, 1, "model_word1", ""), 0x2, {{"model_word1", nullptr}}},
    {"wakeup_word_blank", "wakeup", wake(1, 1, "model_word2", " "), 0x2, {{"model_word2", " "}}},
    {"wakeup_word_in_utf8", "wakeup", wake(1, 1, "model_word2", u8"h\u00e9, \u4f60\u597d"), 0x2, {{"model_word2", u8"h\u00e9, \u4f60\u597d"}}},
    {"wakeup_words_alike", "wakeup", {{"model_word1", "x"}, {"model_word2", "x"}}, 0x2, {{"model_word1", "x"}, {"model_word2", "x"}}},

    {"doa_disabled", "doa", kDisabled, 0, {{"lg_num", 36}}, json::array()},
    {"doa_without_its_last_key", "doa", {{"lg_pitch_num", nullptr}}, 0x8000, nullptr, {"find doa lg_pitch_num failed"}},
    {"doa_start_of_70000", "doa", {{"start_freq", 70000}}, 0x8000, {{"start_freq", 4464}}},
    {"howl_of_playback", "howl", {{"mode", 1}}, 0x2, {{"mode", 1}}, json::array(), 0, kPlayback},
    {"howl_of_playback_in_capitals", "howl", kNothing, 0x2, kNothing, json::array(), 0, "EBO_AO_CONFIGS"},
    {"howl_of_capture", "howl", {{"mode", 65538}}, 0x4000, {{"mode", 2}}},
    {"howl_disabled", "howl", {{"status", "disable"}, {"mode", 2}}, 0, {{"mode", 2}}, json::array()},
    {"howl_of_playback_without_mode", "howl", {{"mode", nullptr}}, 0x2, nullptr, {"find howl mode failed"}, 0, kPlayback},
    {"anr_of_playback", "anr", kNothing, 0x1, kNothing, json::array(), 0, "Ebo_Ao_Configs"},
    {"anr_of_capture", "anr", kNothing, 0x40, kNothing},
    {"anr_of_half_a_root", "anr", kNothing, 0x40, kNothing, json::array(), 0, "ebo_ao_config"},
    {"anr_of_more_than_the_root", "anr", kNothing, 0x40, kNothing, json::array(), 0, "ebo_ao_configs2"},
    {"nlp_of_playback", "nlp", kNothing, 0x8, kNothing, json::array(), 0, kPlayback},
    {"anr_without_its_last_key", "anr", {{"TranMode", nullptr}}, 0x40, nullptr, {"find anr TranMode failed"}},
    {"anr_without_two_keys", "anr", {{"noiseFactor", nullptr}, {"swU", nullptr}}, 0x40, nullptr, {"find anr noiseFactor failed"}},
    {"anr_without_gain_and_window", "anr", {{"fGmin", nullptr}, {"swU", nullptr}}, 0x40, nullptr, {"find anr fGmin failed"}},
    {"anr_frequency_of_70000", "anr", {{"Sup_Freq1", 70000}}, 0x40, {{"Sup_Freq1", 4464}}},

    {"row_with_single_blanks", "aes", {{"LimitRatio_0", "1 2 3"}}, 0x10, {{"LimitRatio_0", {1, 2, 3}}}},
    {"row_with_tab_and_newline", "aes", {{"LimitRatio_0", "1\t2\n3"}}, 0x10, {{"LimitRatio_0", {1, 2, 3}}}},
    {"row_with_signs_alone", "aes", {{"LimitRatio_0", "1-2+3"}}, 0x10, {{"LimitRatio_0", {1, -2, 3}}}},
    {"row_of_nothing", "aes", {{"LimitRatio_0", ""}}, 0x10, {{"LimitRatio_0", {0, 0, 0}}}},
    {"row_too_short", "aes", {{"ThdSupDegree_0", "1 2 3 4 5 6 7 8 9"}}, 0x10, {{"ThdSupDegree_0", {1, 2, 3, 4, 5, 6, 7, 8, 9, 0}}}},
    {"row_too_long", "aes", {{"HardThreshold", "1 2 3 4 5"}}, 0x10, {{"HardThreshold", {1, 2, 3, 4}}}},
    {"row_with_commas", "aes", {{"LimitRatio_1", "1,2,3"}}, 0x10, {{"LimitRatio_1", {1, 0, 0}}}},
    {"row_with_a_letter", "aes", {{"LimitRatio_1", "1 x 3"}}, 0x10, {{"LimitRatio_1", {1, 0, 0}}}},
    {"row_after_a_good_one", "aes", {{"HardThreshold", "x"}, {"ThdSplitFreq_1", "x"}}, 0x10, {{"HardThreshold", {0, 0, 0, 0}}, {"ThdSplitFreq_1", {0, 0}}}},
    {"pair_with_a_comma", "aes", {{"ThdSplitFreq_2", "500,1000"}}, 0x10, {{"ThdSplitFreq_2", {500, 0}}}},
    {"pair_beyond_16_bits", "aes", {{"HardSplitFreq_0", "70000  -1"}}, 0x10, {{"HardSplitFreq_0", {4464, -1}}}},
    {"pair_beyond_32_bits", "aes", {{"HardSplitFreq_0", "99999999999  -99999999999"}}, 0x10, {{"HardSplitFreq_0", {-1, 0}}}},
    {"half_a_pair_of_17_bits", "aes", {{"ThdSplitFreq_1", "65536"}}, 0x10, {{"ThdSplitFreq_1", {0, 1}}}},
    {"half_a_pair_negative", "aes", {{"ThdSplitFreq_2", "-5"}}, 0x10, {{"ThdSplitFreq_2", {-5, -1}}}},
    {"half_a_pair_lowest", "aes", {{"HardSplitFreq_4", "-2147483648,7"}}, 0x10, {{"HardSplitFreq_4", {0, -32768}}}},
    {"aes_without_its_last_key", "aes", {{"HardThreshold", nullptr}}, 0x10, nullptr, {"find aes HardThreshold failed"}},
    {"aes_disabled", "aes", kDisabled, 0, {{"beta_up_low", 0.004F}}, json::array()},

    {"bands_with_blanks", "nlp", {{"band_pass_thd", "1, 2, 3, 4, 5, 6, 7, 8"}}, 0x8, {{"band_pass_thd", {1, 2, 3, 4, 5, 6, 7, 8}}}},
    {"bands_with_a_blank_before_a_comma", "nlp", {{"band_pass_thd", "1,2,3 ,4,5,6,7,8"}}, 0x8, {{"band_pass_thd", {1, 2, 3, 0, 0, 0, 0, 0}}}},
    {"bands_of_nothing", "nlp", {{"band_pass_thd", ""}}, 0x8, {{"band_pass_thd", {0, 0, 0, 0, 0, 0, 0, 0}}}},
    {"bands_beyond_their_bits", "nlp", {{"band_pass_thd", "70000,-70000,32768,99999999999,-99999999999,6,7,8"}}, 0x8, {{"band_pass_thd", {4464, -4464, -32768, -1, 0, 6, 7, 8}}}},
    {"three_factors", "nlp", {{"super_est_factor", "6,7,9"}}, 0x8, {{"super_est_factor", {6, 7, 9, 14, 15, 16, 17, -18}}}},
    {"bands_and_factors_too_short", "nlp", {{"band_pass_thd", "70000,2"}, {"super_est_factor", ""}}, 0x8, {{"super_est_factor", {4464, 2, 0, 0, 0, 0, 0, 0}}}},
    {"nlp_without_factors", "nlp", {{"super_est_factor", nullptr}}, 0x8, nullptr, {"find nlp super_est_factor failed"}},

    {"ainr_with_a_path", "ainr", kNothing, 0x20000, {{"model_path", "/models/noise.bin"}}, json::array()},
    {"ainr_with_an_empty_path", "ainr", {{"model_path", ""}}, 0x20000, {{"model_path", nullptr}}, json::array()},
    {"ainr_without_a_path", "ainr", {{"model_path", nullptr}}, 0x20000, {{"model_path", nullptr}}, json::array()},
    {"ainr_with_a_number", "ainr", {{"model_path", 7}}, 0x20000, {{"model_path", nullptr}}, json::array()},
    {"ainr_disabled_with_the_bit", "ainr", kDisabled, 0x20000, {{"model_path", nullptr}}, json::array(), 0x20000},
    {"ainr_without_status", "ainr", {{"status", nullptr}}, 0, nullptr, {"find ainr status failed"}},

    {"dereverb_disabled", "dereverb", kDisabled, 0, {{"rlsLg", 70000}, {"coCoeff", 1.25}}, json::array()},
    {"dereverb_without_delay", "dereverb", {{"delay", nullptr}}, 0x4, nullptr, {"find dereverb delay failed"}},
    {"cng_complete", "cng", kNothing, 0x800, {{"fGain", 12.5}, {"fMpy", 18.0}, {"fSmoothAlpha", 0.985F}, {"fSpeechGain", 0.3F}}},
    {"cng_without_its_last_key", "cng", {{"fSpeechGain", nullptr}}, 0x800, nullptr, {"find cng fSpeechGain failed"}},
    {"dtd_upside_down", "dtd", {{"ksiThd_high", 0.2}, {"ksiThd_low", 0.5}}, 0x400, {{"ksiThd_high", 0.2F}, {"ksiThd_low", 0.5}}, json::array()},
    {"dtd_without_its_last_key", "dtd", {{"ksiThd_low", nullptr}}, 0x400, nullptr, {"find dtd ksiThd_low failed"}},
    {"agc_with_a_rate", "agc", {{"sample_rate", 8000}, {"frame_len", 128}}, 0x20, {{"sample_rate", 16000}, {"frame_len", 256}}},
    {"agc_with_an_integer", "agc", {{"max_gain", 7}}, 0x20, {{"max_gain", 7.0}}},
    {"agc_without_its_last_key", "agc", {{"swSmL2", nullptr}}, 0x20, nullptr, {"find agc swSmL2 failed"}},
};
// clang-format on

class SectionCase : public testing::TestWithParam<Case> {};
INSTANTIATE_TEST_SUITE_P(Of, SectionCase, testing::ValuesIn(kCases), nameOfCase<Case>);

std::string withoutColours(std::string text) {
    for (const char* const colour : {"\x1b[31m\x1b[1m", "\x1b[32m\x1b[1m", "\x1b[0m"})
        if (const size_t at = text.find(colour); at != std::string::npos) text.erase(at, std::strlen(colour));
    return text;
}

TEST_P(SectionCase, HasItsOutcome) {
    const Case& want = GetParam();
    Reading reading(want.section);
    if constexpr (Host::kRecords) reading.host.recorder().garbage = true;
    reading.keys.merge_patch(want.keys);
    reading.mask = want.before;
    reading.root = want.root;
    reading.run();
    EXPECT_EQ(reading.failed, want.fields.is_null());
    EXPECT_EQ(reading.mask, want.mask);
    for (const auto& [key, value] : want.fields.items()) EXPECT_EQ(reading.value(key), value) << key;
    json log = json::array();
    for (const LogCall& line : reading.host.log()) log.push_back(withoutColours(line.text));
    if (!want.log.is_null()) {
        EXPECT_EQ(log, want.log);
    }
}

}  // namespace
