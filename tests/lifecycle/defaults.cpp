#include "defaults.h"

#include <cstddef>

void setDefaults(EboAnrParam& anr) {
    anr.noiseFactor = 0.88F;
    anr.swU = 10;
    anr.psiMin = 0.01F;
    anr.psiMax = 0.516F;
    anr.fGmin = 0.05F;
}

void setDefaults(EboAgcParam& agc) {
    agc.attack_time = 200.0F;
    agc.release_time = 2000.0F;
    agc.max_gain = 20.0F;
    agc.max_peak = -1.0F;
    agc.fRth0 = -45.0F;
    agc.fRk0 = -40.0F;
    agc.fRth1 = -35.0F;
    agc.sample_rate = 16000;
    agc.frame_len = 256;
    agc.attenuate_time = 1000.0F;
    agc.fRth2 = -35.0F;
    agc.fRk1 = 0.8F;
    agc.fRk2 = 0.4F;
    agc.fLineGainDb = -25.0F;
    agc.swSmL0 = 40;
    agc.swSmL1 = 80;
    agc.swSmL2 = 80;
}

void setDefaults(EboCngParam& cng) {
    cng.fGain = 20.0F;
    cng.fMpy = 20.0F;
    cng.fSmoothAlpha = 0.99F;
    cng.fSpeechGain = 0.0F;
}

void setDefaults(EboDtdParam& dtd) {
    dtd.ksiThd_high = 0.6F;
    dtd.ksiThd_low = 0.3F;
}

void setDefaults(EboDereverbParam& dereverb) {
    dereverb.rlsLg = 4;
    dereverb.curveLg = 10;
    dereverb.delay = 2;
    dereverb.forgetting = 0.98F;
    dereverb.t60 = 0.5F;
    dereverb.coCoeff = 1.0F;
}

void setDefaults(EboNlpParam& nlp) {
    const EboNlpBand bands[8] = {{10, 6}, {10, 10}, {10, 10}, {5, 10}, {5, 10}, {5, 10}, {0, 6}, {0, 6}};
    for (size_t i = 0; i < 8; ++i) nlp.bands[i] = bands[i];
}

void setDefaults(EboAesParam& aes) {
    aes.beta_up = 0.005F;
    aes.beta_down = 0.001F;
}

void setDefaults(EboAecParam& aec) {
    aec.pos = 1;
    aec.drop_ref_channel = 0;
    aec.model_aec_en = 1;
    aec.delay_len = 0;
    aec.look_ahead = 0;
}

void setDefaults(EboBeamFormParam& bf) {
    bf.model_en = 1145;
    bf.ref_pos = 1;
    bf.targ = 4;
    bf.num_ref_channel = 1;
    bf.drop_ref_channel = 0;
}

void setDefaults(EboRxParam& rx) {
    rx.model_en = 1;
}

void setDefaults(KAEboParam& ebo) {
    ebo.model_en = 3;
}
