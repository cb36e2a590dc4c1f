#include "sections/reading.h"

namespace {

const char* const kReader = "parseEboWakeupConfigs";

std::vector<ExpectedLine> linesOf(int words, int mode) {
    std::vector<ExpectedLine> lines;
    if (words == 0)
        lines.push_back(error(kReader, "the wakeup word is 0, please configure it which you need\n"));
    const std::string number = std::to_string(mode);
    if (mode < 1 || mode > 3) {
        lines.push_back({true, 2, kReader, red("Invalid mode: %d, please check mode follow these:"),
                         red("Invalid mode: " + number + ", please check mode follow these:")});
        lines.push_back(error(kReader, "    mode0 - none"));
        lines.push_back(error(kReader, "    mode1 - oneshot only"));
        lines.push_back(error(kReader, "    mode2 - wakeup + command"));
        lines.push_back(error(kReader, "    mode3 - (oneshot) and (wakeup + command)"));
    }
    lines.push_back({false, 4, kReader, green("Current wakeup mode is: %d\n"),
                     green("Current wakeup mode is: " + number + "\n")});
    return lines;
}

struct Wakeup {
    const char* name;
    json keys;  // besides the status
    int mode;
    int frames;
    int words;
    const char* word1;
    const char* word2;
};

class WakeupKeys : public testing::TestWithParam<Wakeup> {
protected:
    void expectRead(Reading* reading) {
        reading->run();
        reading->closeDocument();
        ASSERT_FALSE(reading->failed);
        EXPECT_EQ(reading->mask, 0x2);
        const auto& record = reading->as<EboWakeupParam>();
        EXPECT_EQ(record.mode, GetParam().mode);
        EXPECT_EQ(record.wakeup_frames, GetParam().frames);
        EXPECT_EQ(record.wakeup_words, GetParam().words);
        EXPECT_STREQ(record.model_word1, GetParam().word1);
        EXPECT_STREQ(record.model_word2, GetParam().word2);
        expectLog(reading->host, linesOf(GetParam().words, GetParam().mode));
    }
};

json with(const char* key, const json& value) {
    json keys = {{"mode", 1}, {"wakeup_words", 1}};
    keys[key] = value;
    return keys;
}

const std::string kLong(1000, 'x');

// One document, one line.
// clang-format off
const Wakeup kWakeups[] = {
    {"no_key", json::object(), 0, 180, 0, nullptr, nullptr},
    {"mode_minus_1", with("mode", -1), -1, 180, 1, nullptr, nullptr},
    {"mode_0", with("mode", 0), 0, 180, 1, nullptr, nullptr},
    {"mode_1", with("mode", 1), 1, 180, 1, nullptr, nullptr},
    {"mode_2", with("mode", 2), 2, 180, 1, nullptr, nullptr},
    {"mode_3", with("mode", 3), 3, 180, 1, nullptr, nullptr},
    {"mode_4", with("mode", 4), 4, 180, 1, nullptr, nullptr},
    {"mode_beyond_16_bits", with("mode", 65537), 65537, 180, 1, nullptr, nullptr},
    {"lowest_mode", with("mode", -2147483647 - 1), -2147483647 - 1, 180, 1, nullptr, nullptr},
    {"mode_as_text", with("mode", "1"), 0, 180, 1, nullptr, nullptr},
    {"no_frames", with("wakeup_frames", 0), 1, 0, 1, nullptr, nullptr},
    {"negative_frames", with("wakeup_frames", -5), 1, -5, 1, nullptr, nullptr},
    {"frames_beyond_16_bits", with("wakeup_frames", 70000), 1, 70000, 1, nullptr, nullptr},
    {"frames_as_text", with("wakeup_frames", "200"), 1, 180, 1, nullptr, nullptr},
    {"two_words", with("wakeup_words", 2), 1, 180, 2, nullptr, nullptr},
    {"negative_words", with("wakeup_words", -1), 1, 180, -1, nullptr, nullptr},
    {"zero_words", with("wakeup_words", 0), 1, 180, 0, nullptr, nullptr},
    {"words_with_a_fraction", with("wakeup_words", 1.5), 1, 180, 0, nullptr, nullptr},
    {"first_word", with("model_word1", "one"), 1, 180, 1, "one", nullptr},
    {"first_word_empty", with("model_word1", ""), 1, 180, 1, nullptr, nullptr},
    {"first_word_blank", with("model_word1", " "), 1, 180, 1, " ", nullptr},
    {"first_word_long", with("model_word1", kLong), 1, 180, 1, kLong.c_str(), nullptr},
    {"first_word_as_number", with("model_word1", 1), 1, 180, 1, nullptr, nullptr},
    {"second_word_blank", with("model_word2", " "), 1, 180, 1, nullptr, " "},
    {"second_word_empty", with("model_word2", ""), 1, 180, 1, nullptr, nullptr},
    {"second_word_as_array", with("model_word2", {"two"}), 1, 180, 1, nullptr, nullptr},
    {"second_word_in_utf8", with("model_word2", u8"h\u00e9, \u4f60\u597d"), 1, 180, 1, nullptr,
     u8"h\u00e9, \u4f60\u597d"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(With, WakeupKeys, testing::ValuesIn(kWakeups), nameOfCase<Wakeup>);

TEST_P(WakeupKeys, AreOptionalAndKeptWhenDoubtful) {
    Reading wakeup("wakeup");
    wakeup.keys = GetParam().keys;
    wakeup.keys["status"] = "enable";
    expectRead(&wakeup);
}

TEST_P(WakeupKeys, OfADisabledSectionAreReadWhenTheBitWasSetBefore) {
    for (const json& status : {json("disable"), json(nullptr), json(7)}) {
        Reading wakeup("wakeup");
        wakeup.keys = GetParam().keys;
        wakeup.keys["status"] = status;
        wakeup.mask = 0x2;
        expectRead(&wakeup);
    }
}

TEST(Wakeup, OwnsACopyOfEachOfTwoEqualWords) {
    Reading wakeup("wakeup");
    wakeup.keys["model_word1"] = "x";
    wakeup.keys["model_word2"] = "x";
    wakeup.run();
    EXPECT_STREQ(wakeup.as<EboWakeupParam>().model_word1, "x");
    EXPECT_STREQ(wakeup.as<EboWakeupParam>().model_word2, "x");
    EXPECT_NE(wakeup.as<EboWakeupParam>().model_word1, wakeup.as<EboWakeupParam>().model_word2);
}

TEST(Wakeup, ThatIsNotThereIsReadWhenTheBitWasSetBefore) {
    Reading wakeup("wakeup");
    wakeup.keys = nullptr;
    wakeup.mask = 0x2;
    wakeup.run();
    EXPECT_EQ(wakeup.as<EboWakeupParam>().wakeup_frames, 180);
    expectLog(wakeup.host, linesOf(0, 0));
}

TEST(Wakeup, ThatIsMissingOrDisabledYieldsAnAllZeroRecordInSilence) {
    for (const json& status : {json("disable"), json("enabled"), json(nullptr), json(1)}) {
        Reading wakeup("wakeup");
        wakeup.keys["status"] = status;
        wakeup.mask = ~0x2;
        if constexpr (Host::kRecords) {
            wakeup.host.recorder().garbage = true;
        }
        wakeup.run();
        const auto& record = wakeup.as<EboWakeupParam>();
        EXPECT_EQ(record.mode, 0);
        EXPECT_EQ(record.wakeup_frames, 0);
        EXPECT_EQ(record.wakeup_words, 0);
        EXPECT_EQ(record.model_word1, nullptr);
        EXPECT_EQ(record.model_word2, nullptr);
        EXPECT_EQ(wakeup.mask, ~0x2);
        expectLog(wakeup.host, {});
    }
    for (const json& keys : {json(nullptr), json::object()}) {
        Reading wakeup("wakeup");
        wakeup.keys = keys;
        wakeup.run();
        EXPECT_EQ(wakeup.as<EboWakeupParam>().wakeup_frames, 0);
        expectLog(wakeup.host, {});
    }
}

}  // namespace
