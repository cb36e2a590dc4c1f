// Sections "aec" and "delay": echo canceller and delay estimator.
#include <algorithm>

#include "ebo_parse.h"
#include "row_scan.h"
#include "section_reader.h"
#include "section_table.h"

namespace {

constexpr uint8_t kMaxChannels = 16;

void takeChannelMap(const EboSection& section, const EboKeyRow& row, const char* text, void* record) {
    if (row.kind != EboKeyKind::ChannelMap || text == KA_NULL) return;
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
    EBO_NO_KEY(EboAecParam, pos),
};

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
    EBO_NO_KEY(EboDelayParam, LeastDelay),  // on purpose: it is printed, but no key fills it
};
// clang-format on

}  // namespace

// clang-format off
constexpr EboSection kEboAecSection = EBO_SECTION("aec", parseEboAecConfigs, kAecKeys, EboAecParam, EBO_PATH_AEC, Root, KAEboParam, aec, "aec != KA_NULL")
    .disabled(EboDisabled::IsRead, "aec: not enable").with(takeChannelMap);
EBO_SOUND(kEboAecSection);
// On purpose, unlike other sections, a disabled one is not read further and leaves no record.
constexpr EboSection kEboDelaySection = EBO_SECTION("delay", parseEboDelayConfigs, kDelayKeys, EboDelayParam, EBO_AEC_DELAY, EchoCanceller, EboAecParam, delay, "delay != KA_NULL")
    .disabled(EboDisabled::LeavesNoRecord, "delay: not enable").isOptional();
EBO_SOUND(kEboDelaySection);
// clang-format on

// A failure after the channel map was read leaks the map on purpose: only the record's own block is released.
EboAecParam* parseEboAecConfigs(void* parser, const char* root, int* model_en) {
    return readSection<EboAecParam>(parser, root, model_en, kEboAecSection);
}

EboDelayParam* parseEboDelayConfigs(void* parser, const char* root, int* model_en) {
    return readSection<EboDelayParam>(parser, root, model_en, kEboDelaySection);
}
