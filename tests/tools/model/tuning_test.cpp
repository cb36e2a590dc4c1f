// The tool's own walk through a file gives what the library's entry points give.
#include "model/tuning.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <thread>

#include "report/export.h"

namespace {

using testing::HasSubstr;

std::string textOf(const Tuning& tuning) {
    return exportText(tuning).text;
}

class Examples : public testing::TestWithParam<const char*> {
protected:
    std::string file() const { return std::string(TUNINGS "/") + GetParam() + ".json"; }
};
INSTANTIATE_TEST_SUITE_P(Tuning, Examples,
                         testing::Values("two-mic-speaker", "six-mic-conference", "minimal"),
                         [](const auto& example) {
                             std::string name = example.param;
                             for (char& c : name) c = c == '-' ? '_' : c;
                             return name;
                         });

TEST_P(Examples, LoadAsTheLoadersLoadThem) {
    const Load load = loadTuning(file(), nullptr);
    ASSERT_TRUE(load.loaded);
    Tuning loaded;
    messagesOf([&] {
        loaded.capture.reset(parseEboConfigs(file().c_str()));
        loaded.playback.reset(parseEboAoConfigs(file().c_str()));
        loaded.gain.reset(parseEboAgcConfigsFile(file().c_str()));
    });
    loaded.gainMask = load.tuning.gainMask;
    loaded.channels = load.tuning.channels;
    EXPECT_EQ(textOf(load.tuning), textOf(loaded));
    EXPECT_EQ(load.tuning.capture->model_en, loaded.capture->model_en);
    EXPECT_EQ(load.tuning.capture->bf->model_en, loaded.capture->bf->model_en);
    EXPECT_EQ(load.tuning.playback->model_en, loaded.playback->model_en);
}

TEST_P(Examples, LoadInPartsAsInWhole) {
    const std::string whole = textOf(loadTuning(file(), nullptr).tuning);
    for (const Part part : {&kEboLoads[kEboAecLoad], &kEboLoads[kEboBeamFormLoad], &kEboLoads[kEboAoLoad],
                            &kEboLoads[kEboAgcLoad]}) {
        const Load load = loadTuning(file(), part);
        ASSERT_TRUE(load.loaded);
        std::istringstream lines(textOf(load.tuning));
        for (std::string line; std::getline(lines, line);) {
            EXPECT_THAT(whole, HasSubstr(line.substr(0, line.find_last_not_of(',') + 1)));
        }
    }
}

struct WhyCase {
    const char* text;
    const char* why;
};

TEST(Tuning, LoadsAPlaybackPathOfWhichNothingCouldBeReadAsItsLoaderDoes) {
    const std::string file = testing::TempDir() + std::to_string(getpid()) + "-tuning-playback.json";
    std::ofstream(file) << R"({"ebo_ao_configs": {}})";
    const Load load = loadTuning(file, nullptr);
    std::remove(file.c_str());
    ASSERT_TRUE(load.loaded);
    EXPECT_EQ(load.tuning.playback->model_en, EBO_PATH_RX);
    EXPECT_EQ(load.tuning.playback->rx->anr, nullptr);
    EXPECT_EQ(load.tuning.playback->rx->howl, nullptr);
}

TEST(Tuning, SaysInTheLoadersWordsWhyAFileDoesNotLoad) {
    const WhyCase cases[] = {
        {"{}", "FILE: does not load: find aec status failed, in \"aec\" of \"ebo_configs\""},
        {R"({"ebo_configs": {}})",
         "FILE: does not load: find aec status failed, in \"aec\" of \"ebo_configs\""},
        {R"({"ebo_agc_configs": {}})",
         "FILE: does not load: find agc status failed, in \"agc\" of \"ebo_agc_configs\""},
        {"[", "FILE:1:2: "},
        {R"({"ebo_configs": {"aec": {"status": "", "mic_chn_map": "17 chn;map:1"}}})",
         "FILE: does not load: mic_chn_map asks for 17 channels: a device aborts, Assertion chns <= 16 "
         "failed, in \"aec\" of \"ebo_configs\""},
        {R"({"ebo_configs": {"aec": {"mic_chn_map": "17 chn;map:1"}}})",
         "FILE: does not load: find aec status failed, in \"aec\" of \"ebo_configs\""},
    };
    const std::string file = testing::TempDir() + std::to_string(getpid()) + "-tuning-why.json";
    for (const WhyCase& c : cases) {
        std::ofstream(file) << c.text;
        const Load load = loadTuning(file, nullptr);
        EXPECT_FALSE(load.loaded);
        std::string why = whyNotLoaded(load, file);
        const size_t at = why.find(file);
        if (at != std::string::npos) why.replace(at, file.size(), "FILE");
        EXPECT_THAT(why, testing::StartsWith(c.why));
    }
    unlink(file.c_str());
}

// Loads `text` through a pipe; its name is put in place of FILE in `why`.
Load loadFromPipe(const std::string& text, std::string* why) {
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    std::thread writer([&] {
        EXPECT_EQ(write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
        close(ends[1]);
    });
    const std::string file = "/dev/fd/" + std::to_string(ends[0]);
    Load load = loadTuning(file, nullptr);
    writer.join();
    close(ends[0]);
    if (why->compare(0, 4, "FILE") == 0) why->replace(0, 4, file);
    EXPECT_EQ(whyNotLoaded(load, file), *why);
    return load;
}

TEST(Tuning, IsReadFromAPipeToo) {
    std::ifstream example(TUNINGS "/minimal.json");
    std::stringstream text;
    text << example.rdbuf();
    std::string why;
    EXPECT_TRUE(loadFromPipe(text.str(), &why).loaded);
    why = "FILE:1:2: missing a key in double quotes";
    EXPECT_FALSE(loadFromPipe("{1", &why).loaded);
}

TEST(Tuning, LeavesSectionsThatFailOutOfTheBeamformersPart) {
    const std::string file = testing::TempDir() + std::to_string(getpid()) + "-tuning-bf.json";
    std::ofstream(file)
        << R"({"ebo_configs": {"bf": {"status": "enable", "drop_ref_channel": 0, "targ": 1}}})";
    const Load load = loadTuning(file, &kEboLoads[kEboBeamFormLoad]);
    ASSERT_TRUE(load.loaded);
    EXPECT_EQ(load.tuning.capture->bf->agc, nullptr);
    EXPECT_EQ(load.tuning.capture->model_en, EBO_PATH_BF);
    EXPECT_FALSE(loadTuning(file, &kEboLoads[kEboAecLoad]).loaded);
    EXPECT_FALSE(loadTuning(file, nullptr).loaded);
    unlink(file.c_str());
}

}  // namespace
