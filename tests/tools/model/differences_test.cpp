// Every bit of every record that two tunings differ in is named, and nothing else.
#include "model/differences.h"

#include <gmock/gmock.h>

#include <cstring>

#include "model/places.h"
#include "random_tuning.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> namesOf(const std::vector<Difference>& list) {
    std::vector<std::string> names;
    for (const Difference& difference : list) names.push_back(difference.name);
    return names;
}

class Differ : public testing::Test {
protected:
    const Tuning from_ = complete();
    const Tuning to_ = complete();

    // The first tree with every record, a map, and keys in every one of them.
    static Tuning complete() {
        for (uint32_t seed = 1;; ++seed) {
            Tuning tuning = randomTuning(seed);
            const bool enabled = (tuning.capture->bf->model_en & (EBO_BF_WAKEUP | EBO_BF_AINR)) ==
                                 (EBO_BF_WAKEUP | EBO_BF_AINR);
            const EboAecParam& aec = *tuning.capture->aec;
            if (enabled && aec.delay != nullptr && aec.Array_list != nullptr) return tuning;
        }
    }
};

TEST_F(Differ, FindsNothingBetweenEqualTrees) {
    for (uint32_t seed = 1; seed < 200; ++seed) {
        const Differences none = differencesOf(randomTuning(seed), randomTuning(seed));
        EXPECT_THAT(namesOf(none.switches), IsEmpty());
        EXPECT_THAT(namesOf(none.values), IsEmpty());
    }
}

TEST_F(Differ, FindsSomethingExactlyWhenTheBytesDiffer) {
    for (uint32_t seed = 1; seed < 200; ++seed) {
        const Tuning from = randomTuning(seed);
        const Tuning to = randomTuning(seed + 1);
        const Differences found = differencesOf(from, to);
        EXPECT_EQ(found.switches.empty() && found.values.empty(), bytesOf(from) == bytesOf(to));
    }
}

TEST_F(Differ, NamesEachNumberThatDiffersAndNoOther) {
    size_t numbersSeen = 0;
    for (const SectionPlace& place : sectionPlaces()) {
        char* record = static_cast<char*>(place.recordOf(to_));
        if (record == nullptr) continue;
        std::vector<const EboKeyRow*> rows = keysOf(*place.section);
        for (const EboKeyRow* row : fieldsWithoutKey(*place.section)) rows.push_back(row);
        for (const EboKeyRow* row : rows) {
            const Numbers numbers = numbersOf(*row);
            for (size_t i = 0; i < numbers.count; ++i, ++numbersSeen) {
                char& byte = record[numbers.offset + i * numbers.stride];
                byte = static_cast<char>(byte ^ 1);
                const std::string index = numbers.count > 1 ? "[" + std::to_string(i) + "]" : "";
                const Differences found = differencesOf(from_, to_);
                EXPECT_THAT(namesOf(found.values), ElementsAre(nameOf(place, *row) + index));
                EXPECT_THAT(found.switches, IsEmpty());
                byte = static_cast<char>(byte ^ 1);
            }
        }
    }
    EXPECT_GT(numbersSeen, 200U);
}

TEST_F(Differ, NamesEachModuleThatIsEnabledInOneOnly) {
    for (const SectionPlace& place : sectionPlaces()) {
        int32_t& mask = *place.maskOf(to_);
        const int32_t kept = mask;
        mask ^= place.bit;
        const Differences found = differencesOf(from_, to_);
        mask = kept;
        if (place.load->maskless != 0) {  // nobody keeps that bit
            EXPECT_THAT(found.switches, IsEmpty());
        } else {
            EXPECT_THAT(namesOf(found.switches), ElementsAre(nameOf(place)));
        }
        EXPECT_THAT(found.values, IsEmpty());
    }
}

TEST_F(Differ, NamesTheMethodOfGsc) {
    to_.capture->bf->model_en ^= EBO_BF_GSC_METHOD;
    EXPECT_THAT(namesOf(differencesOf(from_, to_).values), ElementsAre("gsc.method"));
}

TEST_F(Differ, TellsAMapFromNone) {
    const Tuning to = complete();
    free(to.capture->aec->Array_list);
    to.capture->aec->Array_list = nullptr;
    const Differences found = differencesOf(from_, to);
    ASSERT_EQ(found.values.size(), 1U + static_cast<size_t>(from_.channels));
    EXPECT_EQ(found.values[0].name, "aec.mic_chn_map.channels");
    EXPECT_EQ(found.values[0].to.text, "0");
    EXPECT_EQ(found.values[1].name, "aec.mic_chn_map[0]");
    EXPECT_EQ(found.values[1].to.kind, Value::None);
}

TEST_F(Differ, TellsWordsApartAndFromNone) {
    for (const Tuning* tuning : {&from_, &to_}) {
        free(tuning->capture->bf->ainr->model_path);
        tuning->capture->bf->ainr->model_path = nullptr;
    }
    to_.capture->bf->ainr->model_path = strdup("none");
    const Differences found = differencesOf(from_, to_);
    ASSERT_EQ(found.values.size(), 1U);
    EXPECT_EQ(found.values[0].from.kind, Value::None);
    EXPECT_EQ(found.values[0].to.kind, Value::Word);
    EXPECT_EQ(found.values[0].to.text, "none");
}

TEST_F(Differ, NamesAPartOrARecordThatOneOfThemLacks) {
    Tuning to = complete();
    destroyEboHowlConfig(&to.playback->rx->howl);
    destroyEboDelayConfig(&to.capture->aec->delay);
    to.gain.reset();
    EXPECT_THAT(namesOf(differencesOf(from_, to).switches),
                ElementsAre("ebo_agc_configs", "ebo_ao_configs.howl"));
}

}  // namespace
