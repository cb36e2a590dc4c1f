// Sections "aec" and "delay": echo canceller and delay estimator.
#include <algorithm>
#include <cstdlib>

#include "ebo_parse.h"
#include "row_scan.h"
#include "section_reader.h"

namespace {

constexpr uint8_t kMaxChannels = 16;

void takeChannelMap(const EboSection& section, const EboKeyRow& /*row*/, const char* text, void* record) {
    const char* const function = section.function;
    auto* aec = static_cast<EboAecParam*>(record);
    int32_t chns = 0;
    int32_t map[kMaxChannels] = {};
    EboScanner scanner(text);
    if (scanner.integer(&chns)) {
        scanner.skipBlanks();
        if (scanner.literal("chn;map:")) eboScanIntList(scanner, map, kMaxChannels);
    }
    if (chns <= 0) return;
    // On purpose the one way in which a file can end the process.
    if (chns > kMaxChannels) eboAssertFailed("chns <= 16", function, __LINE__);

    aec->model_aec_en |= EBO_AEC_CHN_MAP;
    const auto count = static_cast<size_t>(chns);
    aec->Array_list = static_cast<int16_t*>(ka_mem_malloc(count * sizeof(int16_t), function));
    if (aec->Array_list == KA_NULL) eboAssertFailed("aec->Array_list != KA_NULL", function, __LINE__);
    ka_log(EBO_INFO, "mic_chn_map:%s", function, __LINE__, text);
    std::transform(map, map + count, aec->Array_list,
                   [](int32_t channel) { return static_cast<int16_t>(channel); });
}

// clang-format off
#define AEC(field, text) EBO_NUMBER(EboAecParam, field, text)
constexpr EboKeyRow kAecKeys[] = {
    EBO_STATUS("find aec status failed"),
    EBO_TEXT_OPTIONAL("mic_chn_map", ChannelMap, kMaxChannels, offsetof(EboAecParam, Array_list)),
    EBO_FLAG(EboAecParam, drop_ref_channel, "find aec drop_ref_channel failed"),
    AEC(delay_len, "find aec delay_len failed"),
    AEC(look_ahead, "find aec look_ahead failed"),
    AEC(filter_len, "find aec filter_len failed"),
};

// No row for LeastDelay on purpose: the field is printed, but no key fills it.
#define DELAY(field, text) EBO_NUMBER(EboDelayParam, field, text)
constexpr EboKeyRow kDelayKeys[] = {
    EBO_STATUS("find delay status failed"),
    DELAY(MaxFrame, "find delay MaxFrame failed"),
    DELAY(JumpFrame, "find delay JumpFrame failed"),
    DELAY(DelayOffset, "find delay DelayOffset failed"),
    DELAY(MicAmpThr, "find delay MicAmpThr failed"),
    DELAY(RefAmpThr, "find delay RefAmpThr failed"),
    DELAY(StartFreq, "find delay StartFreq failed"),
    DELAY(EndFreq, "find delay EndFreq failed"),
    DELAY(SmoothFactor, "find delay SmoothFactor failed"),
};
// clang-format on

}  // namespace

// clang-format off
const EboSection kEboAecSection = {EBO_SECTION("aec", parseEboAecConfigs, kAecKeys, EboAecParam, EBO_PATH_AEC, "aec != KA_NULL"), 0, "aec: not enable", takeChannelMap};
// The bit of a delay record is set by the loaders, in the echo canceller's own mask.
const EboSection kEboDelaySection = {EBO_SECTION("delay", parseEboDelayConfigs, kDelayKeys, EboDelayParam, 0, "delay != KA_NULL"), 0, "delay: not enable"};
// clang-format on

// A failure after the channel map was read leaks the map on purpose: only the record's own block is released.
EboAecParam* parseEboAecConfigs(void* parser, const char* root, int* model_en) {
    return readSection<EboAecParam>(parser, root, model_en, kEboAecSection);
}

// On purpose, unlike other sections, a disabled one is not read further and leaves no record.
EboDelayParam* parseEboDelayConfigs(void* parser, const char* root, int* model_en) {
    if (parser == KA_NULL || root == KA_NULL || model_en == KA_NULL) return KA_NULL;
    const EboReading reading(kEboDelaySection, parser, root);
    void* delay = eboMakeRecord(kEboDelaySection);
    int untouched = 0;  // on purpose: no bit of the caller's mask is this section's
    const EboStatus status = eboReadStatus(reading, kEboDelaySection.bit, &untouched);
    if (status == EboStatus::Disabled) {
        ka_mem_safe_free(&delay, __func__);  // on purpose not free(), unlike the failures below
        return KA_NULL;
    }
    if (status == EboStatus::Missing || !eboReadKeys(reading, delay)) {
        std::free(delay);
        return KA_NULL;
    }
    return static_cast<EboDelayParam*>(delay);
}
