// Sections "anr", "ainr", "dereverb", "cng" and "agc": noise, reverberation and level.
#include "ebo_parse.h"
#include "section_reader.h"
#include "section_table.h"

namespace {

// clang-format off
// On purpose not the order of the fields: swU, the record's second, is read fifth.
#define ANR(field, text) EBO_NUMBER(EboAnrParam, field, text)
constexpr EboKeyRow kAnrKeys[] = {
    EBO_STATUS("find anr status failed"),
    ANR(noiseFactor, "find anr noiseFactor failed"),
    ANR(psiMin, "find anr psiMin failed"),
    ANR(psiMax, "find anr psiMax failed"),
    ANR(fGmin, "find anr fGmin failed"),
    ANR(swU, "find anr swU failed"),
    ANR(Sup_Freq1, "find anr Sup_Freq1 failed"),
    ANR(Sup_Freq2, "find anr Sup_Freq2 failed"),
    ANR(Sup_Energy1, "find anr Sup_Energy1 failed"),
    ANR(Sup_Energy2, "find anr Sup_Energy2 failed"),
    ANR(InterV, "find anr InterV failed"),
    ANR(BiasMin, "find anr BiasMin failed"),
    ANR(UpdateFrm, "find anr UpdateFrm failed"),
    ANR(NPreGammaThr, "find anr NPreGammaThr failed"),
    ANR(NPreZetaThr, "find anr NPreZetaThr failed"),
    ANR(SabsGammaThr0, "find anr SabsGammaThr0 failed"),
    ANR(SabsGammaThr1, "find anr SabsGammaThr1 failed"),
    ANR(InfSmooth, "find anr InfSmooth failed"),
    ANR(ProbSmooth, "find anr ProbSmooth failed"),
    ANR(CompCoeff, "find anr CompCoeff failed"),
    ANR(PrioriMin, "find anr PrioriMin failed"),
    ANR(PostMax, "find anr PostMax failed"),
    ANR(PrioriRatio, "find anr PrioriRatio failed"),
    ANR(PrioriRatioLow, "find anr PrioriRatioLow failed"),
    ANR(SplitBand, "find anr SplitBand failed"),
    ANR(PrioriSmooth, "find anr PrioriSmooth failed"),
    ANR(TranMode, "find anr TranMode failed"),
};

constexpr EboKeyRow kAinrKeys[] = {
    EBO_STATUS("find ainr status failed"),
    EBO_WORD_OPTIONAL(EboAiNRParam, model_path),
};

#define DEREVERB(field, text) EBO_NUMBER(EboDereverbParam, field, text)
constexpr EboKeyRow kDereverbKeys[] = {
    EBO_STATUS("find dereverb status failed"),
    DEREVERB(rlsLg, "find dereverb rlsLg failed"),
    DEREVERB(curveLg, "find dereverb curveLg failed"),
    DEREVERB(delay, "find dereverb delay failed"),
    DEREVERB(forgetting, "find dereverb forgetting failed"),
    DEREVERB(t60, "find dereverb t60 failed"),
    DEREVERB(coCoeff, "find dereverb coCoeff failed"),
};

#define CNG(field, text) EBO_NUMBER(EboCngParam, field, text)
constexpr EboKeyRow kCngKeys[] = {
    EBO_STATUS("find cng status failed"),
    CNG(fGain, "find cng fGain failed"),
    CNG(fMpy, "find cng fMpy failed"),
    CNG(fSmoothAlpha, "find cng fSmoothAlpha failed"),
    CNG(fSpeechGain, "find cng fSpeechGain failed"),
};

// On purpose not the order of the fields.
#define AGC(field, text) EBO_NUMBER(EboAgcParam, field, text)
constexpr EboKeyRow kAgcKeys[] = {
    EBO_STATUS("find agc status failed"),
    AGC(attack_time, "find agc attack_time failed"),
    AGC(release_time, "find agc release_time failed"),
    AGC(attenuate_time, "find agc attenuate_time failed"),
    AGC(max_gain, "find agc max_gain failed"),
    AGC(max_peak, "find agc max_peak failed"),
    AGC(fRth0, "find agc fRth0 failed"),
    AGC(fRth1, "find agc fRth1 failed"),
    AGC(fRth2, "find agc fRth2 failed"),
    AGC(fRk0, "find agc fRk0 failed"),
    AGC(fRk1, "find agc fRk1 failed"),
    AGC(fRk2, "find agc fRk2 failed"),
    AGC(fLineGainDb, "find agc fLineGainDb failed"),
    AGC(swSmL0, "find agc swSmL0 failed"),
    AGC(swSmL1, "find agc swSmL1 failed"),
    AGC(swSmL2, "find agc swSmL2 failed"),
    EBO_NO_KEY_BUT(EboAgcParam, sample_rate, 16000),
    EBO_NO_KEY_BUT(EboAgcParam, frame_len, 256),
};
// clang-format on

}  // namespace

// clang-format off
constexpr EboSection kEboAnrSection = EBO_MODULE("anr", parseEboAnrConfigs, kAnrKeys, EboAnrParam, EBO_BF_ANR, anr, "anr != KA_NULL")
    .onPlayback(EBO_RX_ANR, EBO_SLOT(EboAnrParam, EboRxParam, anr));
EBO_SOUND(kEboAnrSection);
// On purpose only the status is required; the model path of a section that is not enabled is not looked at.
constexpr EboSection kEboAinrSection = EBO_MODULE("ainr", parseEboAINRConfigs, kAinrKeys, EboAiNRParam, EBO_BF_AINR, ainr, "ainr != KA_NULL")
    .disabled(EboDisabled::LeavesZeros).isReleasedByHost();
EBO_SOUND(kEboAinrSection);
constexpr EboSection kEboDereverbSection = EBO_MODULE("dereverb", parseEboDereverbConfigs, kDereverbKeys, EboDereverbParam, EBO_BF_DEREVERB, dereverb, "dereverb != KA_NULL");
EBO_SOUND(kEboDereverbSection);
constexpr EboSection kEboCngSection = EBO_MODULE("cng", parseEboCngConfigs, kCngKeys, EboCngParam, EBO_BF_CNG, cng, "cng != KA_NULL");
EBO_SOUND(kEboCngSection);
constexpr EboSection kEboAgcSection = EBO_MODULE("agc", parseEboAgcConfigs, kAgcKeys, EboAgcParam, EBO_BF_AGC, agc, "agc != KA_NULL");
EBO_SOUND(kEboAgcSection);
// clang-format on

EboAnrParam* parseEboAnrConfigs(void* parser, const char* root, int* model_en) {
    return readSection<EboAnrParam>(parser, root, model_en, kEboAnrSection);
}

EboAiNRParam* parseEboAINRConfigs(void* parser, const char* root, int* model_en) {
    return readSection<EboAiNRParam>(parser, root, model_en, kEboAinrSection);
}

EboDereverbParam* parseEboDereverbConfigs(void* parser, const char* root, int* model_en) {
    return readSection<EboDereverbParam>(parser, root, model_en, kEboDereverbSection);
}

EboCngParam* parseEboCngConfigs(void* parser, const char* root, int* model_en) {
    return readSection<EboCngParam>(parser, root, model_en, kEboCngSection);
}

// On purpose, unlike other sections, read without a mask too: its bit is lost then.
EboAgcParam* parseEboAgcConfigs(void* parser, const char* root, int* model_en) {
    int lost = 0;
    int* mask = model_en != KA_NULL ? model_en : &lost;
    return readSection<EboAgcParam>(parser, root, mask, kEboAgcSection);
}
