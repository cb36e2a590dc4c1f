// The dumps of the model.
#include <cstdarg>
#include <cstdio>

#include "model/expectation.h"

namespace model {

namespace {

class Dump {
public:
    Dump(std::string function, Log& log) : function_(std::move(function)), log_(log) {}

    __attribute__((format(printf, 2, 3))) void operator()(const char* format, ...) {
        va_list arguments;
        va_start(arguments, format);
        char* text = nullptr;
        if (vasprintf(&text, format, arguments) >= 0) log_.push_back({false, 5, function_, text});
        std::free(text);
        va_end(arguments);
    }
    void enabled(const char* heading) {
        (*this)("%s", heading);
        (*this)("   enabled");
    }

private:
    const std::string function_;
    Log& log_;
};

const char* orNull(const char* text) {
    return text ? text : "(null)";
}

// The rows of a table are built in 128 characters, the last of which is the zero.
template <size_t N>
void row(Dump& say, const float (&values)[N]) {
    std::string text;
    for (const float value : values) {
        char number[64];
        std::snprintf(number, sizeof number, "%.4f  ", static_cast<double>(value));
        text += number;
    }
    say("      %s", text.substr(0, 127).c_str());
}

void row(Dump& say, const int16_t (&pair)[2]) {
    say("      %-8d%-8d", pair[0], pair[1]);
}

void anr(Dump& say, const EboAnrParam& r) {
    const auto d = [](float value) { return static_cast<double>(value); };
    say("anr:");
    say("   noiseFactor = %f, swU = %d", d(r.noiseFactor), r.swU);
    say("   psiMin = %f, psiMax = %f, fGmin = %f", d(r.psiMin), d(r.psiMax), d(r.fGmin));
    say("   Sup_Freq1 = %d, Sup_Freq2 = %d, Sup_Energy1 = %f Sup_Energy2 = %f", r.Sup_Freq1, r.Sup_Freq2,
        d(r.Sup_Energy1), d(r.Sup_Energy2));
    say("   InterV = %d, BiasMin = %f, UpdateFrm = %d", r.InterV, d(r.BiasMin), r.UpdateFrm);
    say("   NPreGammaThr = %f, NPreZetaThr = %f, SabsGammaThr0 = %f SabsGammaThr1 = %f", d(r.NPreGammaThr),
        d(r.NPreZetaThr), d(r.SabsGammaThr0), d(r.SabsGammaThr1));
    say("   InfSmooth = %f, ProbSmooth = %f, CompCoeff = %f", d(r.InfSmooth), d(r.ProbSmooth),
        d(r.CompCoeff));
    say("   PrioriMin = %f, PrioriMin = %f, PostMax = %f, PrioriRatio = %f, PrioriRatioLow = %f",
        d(r.PrioriMin), d(r.PrioriMin), d(r.PostMax), d(r.PrioriRatio), d(r.PrioriRatioLow));
    say("   SplitBand = %d, PrioriSmooth = %f, TranMode = %d", r.SplitBand, d(r.PrioriSmooth), r.TranMode);
}

void agc(Dump& say, const EboAgcParam& r) {
    const auto d = [](float value) { return static_cast<double>(value); };
    say("agc:");
    say("   attack_time = %f, release_time = %f, attenuate_time = %f", d(r.attack_time), d(r.release_time),
        d(r.attenuate_time));
    say("   max_gain = %f, max_peak = %f", d(r.max_gain), d(r.max_peak));
    say("   fLineGainDb = %f", d(r.fLineGainDb));
    say("   fRth0 = %f, fRth1 = %f, fRth2 = %f", d(r.fRth0), d(r.fRth1), d(r.fRth2));
    say("   fRk0 = %f, fRk1 = %f, fRk1 = %f", d(r.fRk0), d(r.fRk1), d(r.fRk2));
    say("   swSmL0 = %d, swSmL1 = %d, swSmL2 = %d", r.swSmL0, r.swSmL1, r.swSmL2);
}

void aes(Dump& say, const EboAesParam& r) {
    const auto d = [](float value) { return static_cast<double>(value); };
    say("aes:");
    say("   beta_up = %f, beta_down = %f", d(r.beta_up), d(r.beta_down));
    say("   beta_up_low = %f, beta_down = %f", d(r.beta_up_low), d(r.beta_down));
    say("   low_freq = %d, high_freq = %d", r.low_freq, r.high_freq);
    say("   thd_flag = %d, hard_flag = %d", r.thd_flag, r.hard_flag);
    say("   LimitRatio:");
    for (const auto& values : r.LimitRatio) row(say, values);
    say("   ThdSplitFreq:");
    for (const auto& pair : r.ThdSplitFreq) row(say, pair);
    say("   ThdSupDegree:");
    for (const auto& values : r.ThdSupDegree) row(say, values);
    say("   HardSplitFreq:");
    for (const auto& pair : r.HardSplitFreq) row(say, pair);
    say("   HardThreshold:");
    row(say, r.HardThreshold);
}

void wakeup(Dump& say, const EboWakeupParam& r) {
    say.enabled("wakeup:");
    say("   wakeup_frames: %d", r.wakeup_frames);
    say("   wakeup_words: %d", r.wakeup_words);
    say("   mode: %d", r.mode);
    say("   word1: %s", orNull(r.model_word1));
    say("   word2: %s", orNull(r.model_word2));
}

void howl(Dump& say, const EboHowlParam& r) {
    say("howl:");
    say("   mode = %d", r.mode);
}

constexpr char kEnd[] = "********************** End ***************************";

}  // namespace

void dumpAec(const EboAecParam& r, Log& log) {
    Dump say("dumpEboAecConfig", log);
    say("********************* AEC Configs dump ******************");
    say("pos = %d, drop_ref_channel = %d", r.pos, r.drop_ref_channel);
    say("model_aec_en = 0x%x, delay_len = %d, look_ahead = %d filter_len = %d",
        static_cast<unsigned>(r.model_aec_en), r.delay_len, r.look_ahead, r.filter_len);
    if ((r.model_aec_en & 0x1) != 0) {
        say.enabled("delay:");
        say("   MaxFrame = %d, LeastDelay = %d, JumpFrame = %d, DelayOffset = %d", r.delay->MaxFrame,
            r.delay->LeastDelay, r.delay->JumpFrame, r.delay->DelayOffset);
        say("   MicAmpThr = %d, RefAmpThr = %d, StartFreq = %d, EndFreq = %d", r.delay->MicAmpThr,
            r.delay->RefAmpThr, r.delay->StartFreq, r.delay->EndFreq);
        say("   SmoothFactor = %f", static_cast<double>(r.delay->SmoothFactor));
    }
    say("********************** End ******************************");
}

void dumpBeamForm(const EboBeamFormParam& r, Log& log) {
    const auto d = [](float value) { return static_cast<double>(value); };
    const auto on = [&r](int32_t bit) { return (r.model_en & bit) != 0; };
    Dump say("dumpEboBeamFormConfig", log);
    say("****************** BeamForm Configs dump ******************");
    say("model_en = 0x%x, ref_pos = %d", static_cast<unsigned>(r.model_en), r.ref_pos);
    say("targ = %d", r.targ);
    say("num_ref_channel = %d, drop_ref_channel = %d", r.num_ref_channel, r.drop_ref_channel);
    if (on(0x1)) say.enabled("fast_aec:");
    if (on(0x2)) wakeup(say, *r.wakeup);
    if (on(0x100)) say.enabled("gsc:");
    if (on(0x1000)) say.enabled("eq:");
    if (on(0x4) && r.dereverb) {
        say("dereverb:");
        say("   rlsLg = %d, curveLg = %d, delay = %d", r.dereverb->rlsLg, r.dereverb->curveLg,
            r.dereverb->delay);
        say("   forgetting = %f, t60 = %f, coCoeff = %f", d(r.dereverb->forgetting), d(r.dereverb->t60),
            d(r.dereverb->coCoeff));
    }
    if (on(0x8) && r.nlp) {
        say("nlp:");
        say("   BandPassThd   SuperEstFactor");
        for (const EboNlpBand& band : r.nlp->bands)
            say("        %2d             %2d", band.band_pass_thd, band.super_est_factor);
    }
    if (on(0x10) && r.aes) aes(say, *r.aes);
    if (on(0x40) && r.anr) anr(say, *r.anr);
    if (on(0x20) && r.agc) agc(say, *r.agc);
    if (on(0x800) && r.cng) {
        say("cng:");
        say("   fGain = %f, fMpy = %f", d(r.cng->fGain), d(r.cng->fMpy));
        say("   fSmoothAlpha = %f, fSpeechGain = %f", d(r.cng->fSmoothAlpha), d(r.cng->fSpeechGain));
    }
    if (on(0x400) && r.dtd) {
        say("stdt:");
        say("   ksiThd_high = %f, ksiThd_low = %f", d(r.dtd->ksiThd_high), d(r.dtd->ksiThd_low));
    }
    if (on(0x4000) && r.howl) howl(say, *r.howl);
    if (on(0x8000) && r.doa) {
        say("doa:");
        say("   rad = %f, start_freq = %d, end_freq = %d", d(r.doa->rad), r.doa->start_freq, r.doa->end_freq);
        say("   lg_num = %d, lg_pitch_num = %d", r.doa->lg_num, r.doa->lg_pitch_num);
    }
    if (on(0x10000)) say.enabled("wind:");
    if (on(0x20000) && r.ainr) {
        say("ainr:");
        say("   model_path: %s", orNull(r.ainr->model_path));
    }
    say("%s", kEnd);
}

void dumpAo(const EboRxParam& r, Log& log) {
    Dump say("dumpEboAoConfig", log);
    say("****************** AO Configs dump ******************");
    say("model_en = 0x%x", static_cast<unsigned>(r.model_en));
    if ((r.model_en & 0x1) != 0 && r.anr) anr(say, *r.anr);
    if ((r.model_en & 0x2) != 0 && r.howl) howl(say, *r.howl);
    say("%s", kEnd);
}

}  // namespace model
