#include <cstdio>
#include <cstring>

#include "ebo_dump.h"
#include "ebo_log.h"
#include "row_print.h"
#include "shared_blocks.h"

namespace {

// One row of a table, built and then logged. A row that does not fit is cut off.
struct Row {
    char text[128];
};

// Appends "%.4f  " at `at` and returns the new end.
size_t appendFloat(Row& row, size_t at, float value) {
    char number[kEboLongestFixed + 2];
    char* const end = number + kEboLongestFixed;
    std::memset(end, ' ', 2);
    const char* const begin = eboPrintFixed(end, value);
    size_t length = static_cast<size_t>(end - begin) + 2;
    const size_t room = sizeof(row.text) - 1 - at;
    if (length > room) length = room;
    std::memcpy(row.text + at, begin, length);
    row.text[at + length] = '\0';
    return at + length;
}

void clear(Row& row) {
    ka_memset(row.text, 0, std::strlen(row.text));
}

// `table` holds `rows` rows of `columns` floats each.
void dumpFloats(Row& row, const void* table, size_t rows, size_t columns, const char* function) {
    const auto* next = static_cast<const char*>(table);
    for (; rows > 0; --rows) {
        size_t at = 0;
        for (size_t i = 0; i < columns; ++i, next += sizeof(float)) {
            float value = 0.0F;
            std::memcpy(&value, next, sizeof(value));
            at = appendFloat(row, at, value);
        }
        ka_log(EBO_INFO, "      %s", function, __LINE__, row.text);
    }
    clear(row);
}

// Each value stands in a column of eight; no int16 is wider than six.
void dumpPairs(Row& row, const int16_t (*pairs)[2], size_t rows, const char* function) {
    for (; rows > 0; --rows, ++pairs) {
        std::snprintf(row.text, sizeof(row.text), "%-8d%-8d", (*pairs)[0], (*pairs)[1]);
        ka_log(EBO_INFO, "      %s", function, __LINE__, row.text);
    }
    clear(row);
}

void dumpAes(const EboAesParam& aes, const char* function) {
    Row row = {};
    eboLogLine("aes:", function, __LINE__);
    ka_log(EBO_INFO, "   beta_up = %f, beta_down = %f", function, __LINE__, aes.beta_up, aes.beta_down);
    // beta_down again, and beta_down_low never, on purpose.
    ka_log(EBO_INFO, "   beta_up_low = %f, beta_down = %f", function, __LINE__, aes.beta_up_low,
           aes.beta_down);
    ka_log(EBO_INFO, "   low_freq = %d, high_freq = %d", function, __LINE__, aes.low_freq, aes.high_freq);
    ka_log(EBO_INFO, "   thd_flag = %d, hard_flag = %d", function, __LINE__, aes.thd_flag, aes.hard_flag);
    eboLogLine("   LimitRatio:", function, __LINE__);
    dumpFloats(row, aes.LimitRatio, 2, 3, function);
    eboLogLine("   ThdSplitFreq:", function, __LINE__);
    dumpPairs(row, aes.ThdSplitFreq, 4, function);
    eboLogLine("   ThdSupDegree:", function, __LINE__);
    dumpFloats(row, aes.ThdSupDegree, 4, 10, function);
    eboLogLine("   HardSplitFreq:", function, __LINE__);
    dumpPairs(row, aes.HardSplitFreq, 5, function);
    eboLogLine("   HardThreshold:", function, __LINE__);
    dumpFloats(row, aes.HardThreshold, 1, 4, function);
}

// All that there is to say of a module without a record, and the head of the wake-up.
void dumpSwitch(const char* heading, const char* function) {
    eboLogLine(heading, function, __LINE__);
    eboLogLine("   enabled", function, __LINE__);
}

// Colons here and in dumpAinr(), on purpose.
void dumpWakeup(const EboWakeupParam& wakeup, const char* function) {
    dumpSwitch("wakeup:", function);
    ka_log(EBO_INFO, "   wakeup_frames: %d", function, __LINE__, eboAsInt(wakeup.wakeup_frames));
    ka_log(EBO_INFO, "   wakeup_words: %d", function, __LINE__, eboAsInt(wakeup.wakeup_words));
    ka_log(EBO_INFO, "   mode: %d", function, __LINE__, eboAsInt(wakeup.mode));
    ka_log(EBO_INFO, "   word1: %s", function, __LINE__, wakeup.model_word1);
    ka_log(EBO_INFO, "   word2: %s", function, __LINE__, wakeup.model_word2);
}

void dumpDereverb(const EboDereverbParam& dereverb, const char* function) {
    eboLogLine("dereverb:", function, __LINE__);
    ka_log(EBO_INFO, "   rlsLg = %d, curveLg = %d, delay = %d", function, __LINE__, eboAsInt(dereverb.rlsLg),
           eboAsInt(dereverb.curveLg), eboAsInt(dereverb.delay));
    ka_log(EBO_INFO, "   forgetting = %f, t60 = %f, coCoeff = %f", function, __LINE__, dereverb.forgetting,
           dereverb.t60, dereverb.coCoeff);
}

void dumpNlp(const EboNlpParam& nlp, const char* function) {
    eboLogLine("nlp:", function, __LINE__);
    eboLogLine("   BandPassThd   SuperEstFactor", function, __LINE__);
    for (const EboNlpBand& band : nlp.bands) {
        ka_log(EBO_INFO, "        %2d             %2d", function, __LINE__, band.band_pass_thd,
               band.super_est_factor);
    }
}

void dumpAgc(const EboAgcParam& agc, const char* function) {
    eboLogLine("agc:", function, __LINE__);
    ka_log(EBO_INFO, "   attack_time = %f, release_time = %f, attenuate_time = %f", function, __LINE__,
           agc.attack_time, agc.release_time, agc.attenuate_time);
    ka_log(EBO_INFO, "   max_gain = %f, max_peak = %f", function, __LINE__, agc.max_gain, agc.max_peak);
    ka_log(EBO_INFO, "   fLineGainDb = %f", function, __LINE__, agc.fLineGainDb);
    ka_log(EBO_INFO, "   fRth0 = %f, fRth1 = %f, fRth2 = %f", function, __LINE__, agc.fRth0, agc.fRth1,
           agc.fRth2);
    // The third label is the second's, on purpose.
    ka_log(EBO_INFO, "   fRk0 = %f, fRk1 = %f, fRk1 = %f", function, __LINE__, agc.fRk0, agc.fRk1, agc.fRk2);
    ka_log(EBO_INFO, "   swSmL0 = %d, swSmL1 = %d, swSmL2 = %d", function, __LINE__, eboAsInt(agc.swSmL0),
           eboAsInt(agc.swSmL1), eboAsInt(agc.swSmL2));
}

void dumpCng(const EboCngParam& cng, const char* function) {
    eboLogLine("cng:", function, __LINE__);
    ka_log(EBO_INFO, "   fGain = %f, fMpy = %f", function, __LINE__, cng.fGain, cng.fMpy);
    ka_log(EBO_INFO, "   fSmoothAlpha = %f, fSpeechGain = %f", function, __LINE__, cng.fSmoothAlpha,
           cng.fSpeechGain);
}

// The heading is not the section's name, on purpose.
void dumpDtd(const EboDtdParam& dtd, const char* function) {
    eboLogLine("stdt:", function, __LINE__);
    ka_log(EBO_INFO, "   ksiThd_high = %f, ksiThd_low = %f", function, __LINE__, dtd.ksiThd_high,
           dtd.ksiThd_low);
}

void dumpDoa(const EboDoaParam& doa, const char* function) {
    eboLogLine("doa:", function, __LINE__);
    ka_log(EBO_INFO, "   rad = %f, start_freq = %d, end_freq = %d", function, __LINE__, doa.rad,
           doa.start_freq, doa.end_freq);
    ka_log(EBO_INFO, "   lg_num = %d, lg_pitch_num = %d", function, __LINE__, doa.lg_num, doa.lg_pitch_num);
}

void dumpAinr(const EboAiNRParam& ainr, const char* function) {
    eboLogLine("ainr:", function, __LINE__);
    ka_log(EBO_INFO, "   model_path: %s", function, __LINE__, ainr.model_path);
}

}  // namespace

void dumpEboBeamFormConfig(EboBeamFormParam* bf) {
    if (bf == KA_NULL) return;
    eboLogLine("****************** BeamForm Configs dump ******************", EBO_HERE);
    ka_log(EBO_INFO, "model_en = 0x%x, ref_pos = %d", EBO_HERE, static_cast<unsigned int>(bf->model_en),
           eboAsInt(bf->ref_pos));
    ka_log(EBO_INFO, "targ = %d", EBO_HERE, eboAsInt(bf->targ));
    ka_log(EBO_INFO, "num_ref_channel = %d, drop_ref_channel = %d", EBO_HERE, eboAsInt(bf->num_ref_channel),
           eboAsInt(bf->drop_ref_channel));

    const auto on = [mask = bf->model_en](int32_t bit) { return (mask & bit) != 0; };
    const char* const function = __func__;
    if (on(EBO_BF_FAST_AEC)) dumpSwitch("fast_aec:", function);
    // On purpose without a null test, unlike the others.
    if (on(EBO_BF_WAKEUP)) dumpWakeup(*bf->wakeup, function);
    // On purpose by the method, not by the status.
    if (on(EBO_BF_GSC_METHOD)) dumpSwitch("gsc:", function);
    if (on(EBO_BF_EQ)) dumpSwitch("eq:", function);
    if (on(EBO_BF_DEREVERB) && bf->dereverb != KA_NULL) dumpDereverb(*bf->dereverb, function);
    if (on(EBO_BF_NLP) && bf->nlp != KA_NULL) dumpNlp(*bf->nlp, function);
    if (on(EBO_BF_AES) && bf->aes != KA_NULL) dumpAes(*bf->aes, function);
    if (on(EBO_BF_ANR) && bf->anr != KA_NULL) eboDumpAnr(*bf->anr, function);
    if (on(EBO_BF_AGC) && bf->agc != KA_NULL) dumpAgc(*bf->agc, function);
    if (on(EBO_BF_CNG) && bf->cng != KA_NULL) dumpCng(*bf->cng, function);
    if (on(EBO_BF_DTD) && bf->dtd != KA_NULL) dumpDtd(*bf->dtd, function);
    if (on(EBO_BF_HOWL) && bf->howl != KA_NULL) eboDumpHowl(*bf->howl, function);
    if (on(EBO_BF_DOA) && bf->doa != KA_NULL) dumpDoa(*bf->doa, function);
    if (on(EBO_BF_WIND)) dumpSwitch("wind:", function);
    if (on(EBO_BF_AINR) && bf->ainr != KA_NULL) dumpAinr(*bf->ainr, function);
    eboDumpEnd(function);
}
