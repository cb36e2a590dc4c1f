// What is exported loads again as the same records, bit by bit.
#include <gmock/gmock.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

#include "model/places.h"
#include "random_tuning.h"
#include "report/export.h"

namespace {

constexpr uint32_t kTrees = 3000;

class RoundTrip : public testing::Test {
protected:
    ~RoundTrip() override { std::remove(file_.c_str()); }

    // `text` as the library's own entry points load it.
    Tuning load(const std::string& text, int channels, int gainMask) {
        std::ofstream(file_, std::ios::binary) << text;
        Tuning tuning;
        messagesOf([&] {
            tuning.capture.reset(parseEboConfigs(file_.c_str()));
            tuning.playback.reset(parseEboAoConfigs(file_.c_str()));
            tuning.gain.reset(parseEboAgcConfigsFile(file_.c_str()));
        });
        tuning.channels = channels;
        tuning.gainMask = gainMask;
        return tuning;
    }

    const std::string file_ = testing::TempDir() + "round-trip-" + std::to_string(getpid()) + ".json";
};

TEST_F(RoundTrip, KeepsEveryBitOfRandomTrees) {
    for (uint32_t seed = 1; seed <= kTrees; ++seed) {
        const Tuning tuning = randomTuning(seed);
        const Export result = exportText(tuning);
        ASSERT_TRUE(result.losses.empty()) << "seed " << seed << ": " << result.losses.front();
        const Tuning again = load(result.text, tuning.channels, tuning.gainMask);
        ASSERT_TRUE(again.capture && again.playback && again.gain) << "seed " << seed << "\n" << result.text;
        ASSERT_EQ(bytesOf(again), bytesOf(tuning)) << "seed " << seed << "\n" << result.text;
        // The tool's own load also finds what the records do not hold: the map's count and the gain's status.
        const Load own = loadTuning(file_, nullptr);
        ASSERT_TRUE(own.loaded);
        ASSERT_EQ(exportText(own.tuning).text, result.text) << "seed " << seed;
    }
}

// Guards the test above: a change of one bit anywhere shows in what it compares.
TEST_F(RoundTrip, ComparesEveryField) {
    const Tuning tuning = randomTuning(7);
    for (const SectionPlace& place : sectionPlaces()) {
        char* record = static_cast<char*>(place.recordOf(tuning));
        if (record == nullptr) continue;
        for (const EboKeyRow* row : keysOf(*place.section)) {
            if (numbersOf(*row).count == 0) continue;
            const std::string before = bytesOf(tuning);
            record[row->offset] = static_cast<char>(record[row->offset] ^ 1);
            EXPECT_NE(bytesOf(tuning), before) << nameOf(place, *row);
        }
    }
}

TEST_F(RoundTrip, KeepsTheExamples) {
    for (const char* name : {"two-mic-speaker", "six-mic-conference", "minimal"}) {
        const Load example = loadTuning(std::string(TUNINGS "/") + name + ".json", nullptr);
        const Export result = exportText(example.tuning);
        EXPECT_TRUE(result.losses.empty());
        const Tuning again = load(result.text, example.tuning.channels, example.tuning.gainMask);
        EXPECT_EQ(bytesOf(again), bytesOf(example.tuning)) << name;
    }
}

}  // namespace
