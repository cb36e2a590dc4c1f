// What no tuning file can say is named.
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "report/export.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

Tuning example() {
    return std::move(loadTuning(TUNINGS "/two-mic-speaker.json", nullptr).tuning);
}

TEST(Losses, OfANumberThatIsNone) {
    const Tuning tuning = example();
    tuning.capture->bf->agc->fRk0 = std::numeric_limits<float>::quiet_NaN();
    const Export result = exportText(tuning);
    EXPECT_THAT(result.losses,
                ElementsAre("agc.fRk0 is not a number, which JSON cannot say: read back, it is 0"));
    EXPECT_THAT(result.text, HasSubstr("\"fRk0\": 0.0,"));
}

TEST(Losses, NotOfInfinitiesAndOfRows) {
    const Tuning tuning = example();
    tuning.capture->bf->agc->fRk0 = -std::numeric_limits<float>::infinity();
    tuning.capture->bf->agc->fRk1 = std::numeric_limits<float>::infinity();
    tuning.capture->bf->aes->HardThreshold[0] = std::numeric_limits<float>::quiet_NaN();
    tuning.capture->bf->aes->HardThreshold[1] = -std::numeric_limits<float>::infinity();
    const Export result = exportText(tuning);
    EXPECT_TRUE(result.losses.empty());
    EXPECT_THAT(result.text, HasSubstr("\"fRk0\": -1e999,\n"));
    EXPECT_THAT(result.text, HasSubstr("\"fRk1\": 1e999,\n"));
    EXPECT_THAT(result.text, HasSubstr("\"HardThreshold\": \"nan  -inf  0.3  0.225\""));
}

TEST(Losses, OfFieldsWithoutKey) {
    const Tuning tuning = example();
    tuning.capture->aec->delay->LeastDelay = 3;
    tuning.capture->bf->agc->frame_len = 128;
    EXPECT_THAT(exportText(tuning).losses,
                ElementsAre("delay.LeastDelay is 3 and has no key: read back, it is 0",
                            "agc.frame_len is 128 and has no key: read back, it is 256"));
}

TEST(Losses, OfTheDefaults) {
    std::vector<std::string> values = exportText(defaultTuning()).losses;
    const auto isRecord = [](const std::string& loss) {
        return loss.find(" has no record: read back") != std::string::npos;
    };
    const auto end = std::stable_partition(values.begin(), values.end(),
                                           [&](const std::string& loss) { return !isRecord(loss); });
    const std::vector<std::string> records(end, values.end());
    values.erase(end, values.end());
    EXPECT_THAT(values,
                ElementsAre("aec.mic_chn_map is the shared map: read back, the record has a map of its own",
                            "aec.pos is 1 and has no key: read back, it is 0",
                            "delay is enabled but has no record: disabled",
                            "bf.ref_pos is 1 and has no key: read back, it is 0",
                            "bf.num_ref_channel is 1 and has no key: read back, it is 0"));
    EXPECT_THAT(records, Contains("howl has no record: read back, it has a zero one"));
}

}  // namespace
