// The lines that are put down to each module, together with the frame, are the whole dump.
#include "model/module_dump.h"

#include <gmock/gmock.h>

#include "random_tuning.h"

namespace {

using testing::ElementsAre;

const SectionPlace& placeOf(const std::string& name) {
    for (const SectionPlace& place : sectionPlaces()) {
        if (nameOf(place) == name) return place;
    }
    throw std::invalid_argument(name);
}

std::vector<std::string> linesOf(const Tuning& tuning, const std::string& name) {
    return linesOfSection(placeOf(name), tuning);
}

TEST(ModuleDump, SharesOutEveryLineOfRandomTrees) {
    for (uint32_t seed = 1; seed < 100; ++seed) {
        const Tuning tuning = randomTuning(seed);
        size_t lines = 0;
        for (const SectionPlace& place : sectionPlaces()) lines += linesOfSection(place, tuning).size();
        const size_t frameOfPlayback = 3;
        const DumpLines all = dumpLines([&] {
            dumpEboAecConfig(tuning.capture->aec);
            dumpEboBeamFormConfig(tuning.capture->bf);
            dumpEboAoConfig(tuning.playback->rx);
        });
        EXPECT_EQ(lines + frameOfPlayback, all.size()) << "seed " << seed;
    }
}

TEST(ModuleDump, FindsABlockByItsHeading) {
    const Load load = loadTuning(TUNINGS "/two-mic-speaker.json", nullptr);
    EXPECT_EQ(linesOf(load.tuning, "dtd").front(), "stdt:");
    EXPECT_EQ(linesOf(load.tuning, "anr").front(), "anr:");
    EXPECT_EQ(linesOf(load.tuning, "delay").front(), "delay:");
    EXPECT_EQ(linesOf(load.tuning, "ebo_ao_configs.howl").front(), "howl:");
    EXPECT_THAT(linesOf(load.tuning, "fast_aec"), ElementsAre("fast_aec:", "   enabled"));
    EXPECT_THAT(linesOf(load.tuning, "gsc"), ElementsAre("gsc:", "   enabled"));
    EXPECT_THAT(linesOf(load.tuning, "dereverb"), ElementsAre());
    EXPECT_THAT(linesOf(load.tuning, "ebo_agc_configs.agc"), ElementsAre());
}

// Blocks with equal lines stand next to each other.
TEST(ModuleDump, KeepsNeighboursThatLookAlikeApart) {
    const Load load = loadTuning(TUNINGS "/minimal.json", nullptr);
    load.tuning.capture->bf->model_en = EBO_BF_FAST_AEC | EBO_BF_GSC_METHOD | EBO_BF_WIND;
    EXPECT_THAT(linesOf(load.tuning, "fast_aec"), ElementsAre("fast_aec:", "   enabled"));
    EXPECT_THAT(linesOf(load.tuning, "gsc"), ElementsAre("gsc:", "   enabled"));
    EXPECT_THAT(linesOf(load.tuning, "wind"), ElementsAre("wind:", "   enabled"));
}

}  // namespace
