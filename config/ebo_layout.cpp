// Pins the layout of every record for 32-bit and 64-bit pointers: the engine is compiled against it.
#include <cstddef>

#include "ebo_params.h"

namespace {

constexpr size_t forPointers(size_t bits32, size_t bits64) {
    return sizeof(void*) == 4 ? bits32 : bits64;
}

#define SIZE(Record, bits32, bits64) \
    static_assert(sizeof(Record) == forPointers(bits32, bits64), "size of " #Record)
#define OFFSET(Record, field, bits32, bits64) \
    static_assert(offsetof(Record, field) == forPointers(bits32, bits64), "offset of " #Record "::" #field)

// One field, one line.
// clang-format off
SIZE(EboDelayParam, 20, 20);
OFFSET(EboDelayParam, MaxFrame, 0, 0);
OFFSET(EboDelayParam, LeastDelay, 2, 2);
OFFSET(EboDelayParam, JumpFrame, 4, 4);
OFFSET(EboDelayParam, DelayOffset, 6, 6);
OFFSET(EboDelayParam, MicAmpThr, 8, 8);
OFFSET(EboDelayParam, RefAmpThr, 10, 10);
OFFSET(EboDelayParam, StartFreq, 12, 12);
OFFSET(EboDelayParam, EndFreq, 14, 14);
OFFSET(EboDelayParam, SmoothFactor, 16, 16);

SIZE(EboWakeupParam, 20, 32);
OFFSET(EboWakeupParam, mode, 0, 0);
OFFSET(EboWakeupParam, wakeup_frames, 4, 4);
OFFSET(EboWakeupParam, wakeup_words, 8, 8);
OFFSET(EboWakeupParam, model_word1, 12, 16);
OFFSET(EboWakeupParam, model_word2, 16, 24);

SIZE(EboDoaParam, 12, 12);
OFFSET(EboDoaParam, rad, 0, 0);
OFFSET(EboDoaParam, start_freq, 4, 4);
OFFSET(EboDoaParam, end_freq, 6, 6);
OFFSET(EboDoaParam, lg_num, 8, 8);
OFFSET(EboDoaParam, lg_pitch_num, 10, 10);

SIZE(EboHowlParam, 2, 2);
OFFSET(EboHowlParam, mode, 0, 0);

SIZE(EboAnrParam, 100, 100);
OFFSET(EboAnrParam, noiseFactor, 0, 0);
OFFSET(EboAnrParam, swU, 4, 4);
OFFSET(EboAnrParam, psiMin, 8, 8);
OFFSET(EboAnrParam, psiMax, 12, 12);
OFFSET(EboAnrParam, fGmin, 16, 16);
OFFSET(EboAnrParam, Sup_Freq1, 20, 20);
OFFSET(EboAnrParam, Sup_Freq2, 22, 22);
OFFSET(EboAnrParam, Sup_Energy1, 24, 24);
OFFSET(EboAnrParam, Sup_Energy2, 28, 28);
OFFSET(EboAnrParam, InterV, 32, 32);
OFFSET(EboAnrParam, BiasMin, 36, 36);
OFFSET(EboAnrParam, UpdateFrm, 40, 40);
OFFSET(EboAnrParam, NPreGammaThr, 44, 44);
OFFSET(EboAnrParam, NPreZetaThr, 48, 48);
OFFSET(EboAnrParam, SabsGammaThr0, 52, 52);
OFFSET(EboAnrParam, SabsGammaThr1, 56, 56);
OFFSET(EboAnrParam, InfSmooth, 60, 60);
OFFSET(EboAnrParam, ProbSmooth, 64, 64);
OFFSET(EboAnrParam, CompCoeff, 68, 68);
OFFSET(EboAnrParam, PrioriMin, 72, 72);
OFFSET(EboAnrParam, PostMax, 76, 76);
OFFSET(EboAnrParam, PrioriRatio, 80, 80);
OFFSET(EboAnrParam, PrioriRatioLow, 84, 84);
OFFSET(EboAnrParam, SplitBand, 88, 88);
OFFSET(EboAnrParam, PrioriSmooth, 92, 92);
OFFSET(EboAnrParam, TranMode, 96, 96);

SIZE(EboAesParam, 260, 260);
OFFSET(EboAesParam, beta_up, 0, 0);
OFFSET(EboAesParam, beta_down, 4, 4);
OFFSET(EboAesParam, beta_up_low, 8, 8);
OFFSET(EboAesParam, beta_down_low, 12, 12);
OFFSET(EboAesParam, low_freq, 16, 16);
OFFSET(EboAesParam, high_freq, 18, 18);
OFFSET(EboAesParam, thd_flag, 20, 20);
OFFSET(EboAesParam, hard_flag, 22, 22);
OFFSET(EboAesParam, LimitRatio, 24, 24);
OFFSET(EboAesParam, ThdSplitFreq, 48, 48);
OFFSET(EboAesParam, ThdSupDegree, 64, 64);
OFFSET(EboAesParam, HardSplitFreq, 224, 224);
OFFSET(EboAesParam, HardThreshold, 244, 244);

SIZE(EboNlpBand, 4, 4);
OFFSET(EboNlpBand, band_pass_thd, 0, 0);
OFFSET(EboNlpBand, super_est_factor, 2, 2);

SIZE(EboNlpParam, 32, 32);
OFFSET(EboNlpParam, bands, 0, 0);

SIZE(EboAiNRParam, 4, 8);
OFFSET(EboAiNRParam, model_path, 0, 0);

SIZE(EboDereverbParam, 24, 24);
OFFSET(EboDereverbParam, rlsLg, 0, 0);
OFFSET(EboDereverbParam, curveLg, 4, 4);
OFFSET(EboDereverbParam, delay, 8, 8);
OFFSET(EboDereverbParam, forgetting, 12, 12);
OFFSET(EboDereverbParam, t60, 16, 16);
OFFSET(EboDereverbParam, coCoeff, 20, 20);

SIZE(EboCngParam, 16, 16);
OFFSET(EboCngParam, fGain, 0, 0);
OFFSET(EboCngParam, fMpy, 4, 4);
OFFSET(EboCngParam, fSmoothAlpha, 8, 8);
OFFSET(EboCngParam, fSpeechGain, 12, 12);

SIZE(EboDtdParam, 8, 8);
OFFSET(EboDtdParam, ksiThd_high, 0, 0);
OFFSET(EboDtdParam, ksiThd_low, 4, 4);

SIZE(EboAgcParam, 68, 68);
OFFSET(EboAgcParam, attack_time, 0, 0);
OFFSET(EboAgcParam, release_time, 4, 4);
OFFSET(EboAgcParam, max_gain, 8, 8);
OFFSET(EboAgcParam, max_peak, 12, 12);
OFFSET(EboAgcParam, fRth0, 16, 16);
OFFSET(EboAgcParam, fRk0, 20, 20);
OFFSET(EboAgcParam, fRth1, 24, 24);
OFFSET(EboAgcParam, sample_rate, 28, 28);
OFFSET(EboAgcParam, frame_len, 32, 32);
OFFSET(EboAgcParam, attenuate_time, 36, 36);
OFFSET(EboAgcParam, fRth2, 40, 40);
OFFSET(EboAgcParam, fRk1, 44, 44);
OFFSET(EboAgcParam, fRk2, 48, 48);
OFFSET(EboAgcParam, fLineGainDb, 52, 52);
OFFSET(EboAgcParam, swSmL0, 56, 56);
OFFSET(EboAgcParam, swSmL1, 60, 60);
OFFSET(EboAgcParam, swSmL2, 64, 64);

SIZE(EboAecParam, 32, 48);
OFFSET(EboAecParam, pos, 0, 0);
OFFSET(EboAecParam, drop_ref_channel, 4, 4);
OFFSET(EboAecParam, model_aec_en, 8, 8);
OFFSET(EboAecParam, delay_len, 12, 12);
OFFSET(EboAecParam, look_ahead, 16, 16);
OFFSET(EboAecParam, Array_list, 20, 24);
OFFSET(EboAecParam, filter_len, 24, 32);
OFFSET(EboAecParam, delay, 28, 40);

SIZE(EboBeamFormParam, 68, 120);
OFFSET(EboBeamFormParam, model_en, 0, 0);
OFFSET(EboBeamFormParam, ref_pos, 4, 4);
OFFSET(EboBeamFormParam, targ, 8, 8);
OFFSET(EboBeamFormParam, num_ref_channel, 12, 12);
OFFSET(EboBeamFormParam, drop_ref_channel, 16, 16);
OFFSET(EboBeamFormParam, dereverb, 20, 24);
OFFSET(EboBeamFormParam, aes, 24, 32);
OFFSET(EboBeamFormParam, nlp, 28, 40);
OFFSET(EboBeamFormParam, anr, 32, 48);
OFFSET(EboBeamFormParam, agc, 36, 56);
OFFSET(EboBeamFormParam, cng, 40, 64);
OFFSET(EboBeamFormParam, dtd, 44, 72);
OFFSET(EboBeamFormParam, reserved, 48, 80);
OFFSET(EboBeamFormParam, howl, 52, 88);
OFFSET(EboBeamFormParam, doa, 56, 96);
OFFSET(EboBeamFormParam, wakeup, 60, 104);
OFFSET(EboBeamFormParam, ainr, 64, 112);

SIZE(EboRxParam, 12, 24);
OFFSET(EboRxParam, model_en, 0, 0);
OFFSET(EboRxParam, anr, 4, 8);
OFFSET(EboRxParam, howl, 8, 16);

SIZE(KAEboParam, 16, 32);
OFFSET(KAEboParam, model_en, 0, 0);
OFFSET(KAEboParam, aec, 4, 8);
OFFSET(KAEboParam, bf, 8, 16);
OFFSET(KAEboParam, rx, 12, 24);

// clang-format on

}  // namespace
