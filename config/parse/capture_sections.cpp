// Sections "wakeup", "doa" and "howl": wake-up, direction of arrival, howling suppression.
#include "ebo_parse.h"
#include "section_reader.h"
#include "section_table.h"

namespace {

void reviewWords(const EboWakeupParam& wakeup, const char* function) {
    if (wakeup.wakeup_words != 0) return;
    ka_err(EBO_ERROR, EBO_RED("the wakeup word is 0, please configure it which you need\n"), function,
           __LINE__);
}

// The list offers mode 0 and the check refuses it, on purpose.
void reviewMode(const EboWakeupParam& wakeup, const char* function) {
    const int mode = eboAsInt(wakeup.mode);
    if (mode < 1 || mode > 3) {
        ka_err(EBO_ERROR, EBO_RED("Invalid mode: %d, please check mode follow these:"), function, __LINE__,
               mode);
        ka_err(EBO_ERROR, EBO_RED("    mode0 - none"), function, __LINE__);
        ka_err(EBO_ERROR, EBO_RED("    mode1 - oneshot only"), function, __LINE__);
        ka_err(EBO_ERROR, EBO_RED("    mode2 - wakeup + command"), function, __LINE__);
        ka_err(EBO_ERROR, EBO_RED("    mode3 - (oneshot) and (wakeup + command)"), function, __LINE__);
    }
    ka_log(EBO_NOTICE, EBO_GREEN("Current wakeup mode is: %d\n"), function, __LINE__, mode);
}

void reviewWakeup(const EboSection& section, const EboKeyRow& row, const char* /*text*/, void* record) {
    const auto& wakeup = *static_cast<const EboWakeupParam*>(record);
    if (row.offset == offsetof(EboWakeupParam, wakeup_words)) reviewWords(wakeup, section.function);
    if (row.offset == offsetof(EboWakeupParam, mode)) reviewMode(wakeup, section.function);
}

// clang-format off
// Every key is optional here, the status included, on purpose.
#define WAKEUP(field) EBO_NUMBER_OPTIONAL(EboWakeupParam, field)
constexpr EboKeyRow kWakeupKeys[] = {
    EBO_STATUS_OPTIONAL,
    EBO_NUMBER_PRESET(EboWakeupParam, wakeup_frames, 180),
    WAKEUP(wakeup_words),
    WAKEUP(mode),
    EBO_WORD_OPTIONAL(EboWakeupParam, model_word1),
    EBO_WORD_OPTIONAL(EboWakeupParam, model_word2),
};

#define DOA(field, text) EBO_NUMBER(EboDoaParam, field, text)
constexpr EboKeyRow kDoaKeys[] = {
    EBO_STATUS("find doa status failed"),
    DOA(rad, "find doa rad failed"),
    DOA(start_freq, "find doa start_freq failed"),
    DOA(end_freq, "find doa end_freq failed"),
    DOA(lg_num, "find doa lg_num failed"),
    DOA(lg_pitch_num, "find doa lg_pitch_num failed"),
};

constexpr EboKeyRow kHowlKeys[] = {
    EBO_STATUS("find howl status failed"),
    EBO_NUMBER(EboHowlParam, mode, "find howl mode failed"),
};
// clang-format on

}  // namespace

// clang-format off
// Reads its keys by the bit in the mask, on purpose not by its own status: a bit that was set before counts
// too.
constexpr EboSection kEboWakeupSection = EBO_MODULE("wakeup", parseEboWakeupConfigs, kWakeupKeys, EboWakeupParam, EBO_BF_WAKEUP, wakeup, "wakeup != KA_NULL")
    .disabled(EboDisabled::GoesByMask).isOptional().with(reviewWakeup);
EBO_SOUND(kEboWakeupSection);
constexpr EboSection kEboDoaSection = EBO_MODULE("doa", parseEboDoaConfigs, kDoaKeys, EboDoaParam, EBO_BF_DOA, doa, "doa != KA_NULL");
EBO_SOUND(kEboDoaSection);
constexpr EboSection kEboHowlSection = EBO_MODULE("howl", parseEboHowlConfigs, kHowlKeys, EboHowlParam, EBO_BF_HOWL, howl, "howl != KA_NULL")
    .onPlayback(EBO_RX_HOWL, EBO_SLOT(EboHowlParam, EboRxParam, howl));
EBO_SOUND(kEboHowlSection);
// clang-format on

EboWakeupParam* parseEboWakeupConfigs(void* parser, const char* root, int* model_en) {
    return readSection<EboWakeupParam>(parser, root, model_en, kEboWakeupSection);
}

EboDoaParam* parseEboDoaConfigs(void* parser, const char* root, int* model_en) {
    return readSection<EboDoaParam>(parser, root, model_en, kEboDoaSection);
}

EboHowlParam* parseEboHowlConfigs(void* parser, const char* root, int* model_en) {
    return readSection<EboHowlParam>(parser, root, model_en, kEboHowlSection);
}
