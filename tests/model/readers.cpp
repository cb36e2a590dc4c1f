#include "model/readers.h"

#include "model/rows.h"

namespace model {

namespace {

// A text of a record: null when it is empty.
char* pointerTo(std::string& text) {
    return text.empty() ? nullptr : text.data();
}

}  // namespace

Section Readers::open(const std::string& name, const std::string& function) {
    return Section(document_, root_, name, function, expectation_.log);
}

void Readers::channelMap(Section& in, EboAecParam& r) {
    std::string text;
    if (!in.findText("mic_chn_map", text)) return;
    const ChannelMap map = scanChannelMap(text);
    if (map.count <= 0) return;
    if (map.count > 16) {
        expectation_.aborts = true;
        return;
    }
    r.model_aec_en |= 0x2;
    r.Array_list = expectation_.records.map;
    expectation_.channels = map.count;
    for (int i = 0; i < map.count; ++i) {
        const auto channel = static_cast<uint32_t>(map.channels[static_cast<size_t>(i)]);
        r.Array_list[i] = static_cast<int16_t>(channel & 0xFFFFU);
    }
    in.say(5, "mic_chn_map:" + text);
}

bool Readers::aec(EboAecParam& r, int32_t& mask) {
    Section in = open("aec", "parseEboAecConfigs");
    if (!in.status(mask, 0x1)) return false;
    if (!in.enabled) in.say(5, "aec: not enable");
    channelMap(in, r);
    return in.flag("drop_ref_channel", r.drop_ref_channel) && in.integer("delay_len", r.delay_len) &&
           in.integer("look_ahead", r.look_ahead) && in.integer("filter_len", r.filter_len);
}

bool Readers::delay(EboDelayParam& r) {
    Section in = open("delay", "parseEboDelayConfigs");
    int32_t none = 0;
    if (!in.status(none, 0)) return false;
    if (!in.enabled) {
        in.say(5, "delay: not enable");
        return false;
    }
    return in.integer("MaxFrame", r.MaxFrame) && in.integer("JumpFrame", r.JumpFrame) &&
           in.integer("DelayOffset", r.DelayOffset) && in.integer("MicAmpThr", r.MicAmpThr) &&
           in.integer("RefAmpThr", r.RefAmpThr) && in.integer("StartFreq", r.StartFreq) &&
           in.integer("EndFreq", r.EndFreq) && in.real("SmoothFactor", r.SmoothFactor);
}

bool Readers::bf(EboBeamFormParam& r, int32_t& mask) {
    Section in = open("bf", "parseEboBfConfigs");
    if (!in.status(mask, 0x2)) return false;
    if (!in.enabled) in.say(5, "bf: not enable");
    return in.flag("drop_ref_channel", r.drop_ref_channel) && in.integer("targ", r.targ);
}

bool Readers::fastAec(int32_t& mask) {
    Section in = open("fast_aec", "parseEboFastAecConfigs");
    in.reported_as = "bf";
    return in.status(mask, 0x1);
}

bool Readers::gsc(int32_t& mask) {
    Section in = open("gsc", "parseEboGscConfigs");
    int32_t method = 0;
    if (!in.status(mask, 0x80) || !in.integer("method", method)) return false;
    if (method == 1) mask |= 0x100;
    return true;
}

bool Readers::wind(int32_t& mask) {
    Section in = open("wind", "parseEboWindConfigs");
    in.reported_as = "bf";
    return in.status(mask, 0x10000);
}

bool Readers::agc(EboAgcParam& r, int32_t& mask) {
    Section in = open("agc", "parseEboAgcConfigs");
    if (!in.status(mask, 0x20)) return false;
    r.sample_rate = 16000;
    r.frame_len = 256;
    return in.real("attack_time", r.attack_time) && in.real("release_time", r.release_time) &&
           in.real("attenuate_time", r.attenuate_time) && in.real("max_gain", r.max_gain) &&
           in.real("max_peak", r.max_peak) && in.real("fRth0", r.fRth0) && in.real("fRth1", r.fRth1) &&
           in.real("fRth2", r.fRth2) && in.real("fRk0", r.fRk0) && in.real("fRk1", r.fRk1) &&
           in.real("fRk2", r.fRk2) && in.real("fLineGainDb", r.fLineGainDb) &&
           in.integer("swSmL0", r.swSmL0) && in.integer("swSmL1", r.swSmL1) && in.integer("swSmL2", r.swSmL2);
}

bool Readers::anr(EboAnrParam& r, int32_t& mask) {
    Section in = open("anr", "parseEboAnrConfigs");
    if (!in.status(mask, playback() ? 0x1 : 0x40)) return false;
    return in.real("noiseFactor", r.noiseFactor) && in.real("psiMin", r.psiMin) &&
           in.real("psiMax", r.psiMax) && in.real("fGmin", r.fGmin) && in.integer("swU", r.swU) &&
           in.integer("Sup_Freq1", r.Sup_Freq1) && in.integer("Sup_Freq2", r.Sup_Freq2) &&
           in.real("Sup_Energy1", r.Sup_Energy1) && in.real("Sup_Energy2", r.Sup_Energy2) &&
           in.integer("InterV", r.InterV) && in.real("BiasMin", r.BiasMin) &&
           in.integer("UpdateFrm", r.UpdateFrm) && in.real("NPreGammaThr", r.NPreGammaThr) &&
           in.real("NPreZetaThr", r.NPreZetaThr) && in.real("SabsGammaThr0", r.SabsGammaThr0) &&
           in.real("SabsGammaThr1", r.SabsGammaThr1) && in.real("InfSmooth", r.InfSmooth) &&
           in.real("ProbSmooth", r.ProbSmooth) && in.real("CompCoeff", r.CompCoeff) &&
           in.real("PrioriMin", r.PrioriMin) && in.real("PostMax", r.PostMax) &&
           in.real("PrioriRatio", r.PrioriRatio) && in.real("PrioriRatioLow", r.PrioriRatioLow) &&
           in.integer("SplitBand", r.SplitBand) && in.real("PrioriSmooth", r.PrioriSmooth) &&
           in.integer("TranMode", r.TranMode);
}

bool Readers::nlp(EboNlpParam& r, int32_t& mask) {
    Section in = open("nlp", "parseEboNlpConfigs");
    if (!in.status(mask, 0x8)) return false;
    // Both texts are split into the same eight places.
    std::array<int32_t, 8> places = {};
    const auto low = [&places](size_t i) {
        return static_cast<int16_t>(static_cast<uint32_t>(places[i]) & 0xFFFFU);
    };
    std::string text;
    if (!in.text("band_pass_thd", text)) return false;
    scanBands(text, places);
    for (size_t i = 0; i < 8; ++i) r.bands[i].band_pass_thd = low(i);
    if (!in.text("super_est_factor", text)) return false;
    scanBands(text, places);
    for (size_t i = 0; i < 8; ++i) r.bands[i].super_est_factor = low(i);
    return true;
}

bool Readers::dereverb(EboDereverbParam& r, int32_t& mask) {
    Section in = open("dereverb", "parseEboDereverbConfigs");
    if (!in.status(mask, 0x4)) return false;
    return in.integer("rlsLg", r.rlsLg) && in.integer("curveLg", r.curveLg) && in.integer("delay", r.delay) &&
           in.real("forgetting", r.forgetting) && in.real("t60", r.t60) && in.real("coCoeff", r.coCoeff);
}

bool Readers::cng(EboCngParam& r, int32_t& mask) {
    Section in = open("cng", "parseEboCngConfigs");
    if (!in.status(mask, 0x800)) return false;
    return in.real("fGain", r.fGain) && in.real("fMpy", r.fMpy) && in.real("fSmoothAlpha", r.fSmoothAlpha) &&
           in.real("fSpeechGain", r.fSpeechGain);
}

bool Readers::dtd(EboDtdParam& r, int32_t& mask) {
    Section in = open("dtd", "parseEboDtdConfigs");
    if (!in.status(mask, 0x400)) return false;
    return in.real("ksiThd_high", r.ksiThd_high) && in.real("ksiThd_low", r.ksiThd_low);
}

bool Readers::aes(EboAesParam& r, int32_t& mask) {
    Section in = open("aes", "parseEboAesConfigs");
    if (!in.status(mask, 0x10)) return false;
    std::string text;
    const auto floats = [&](const std::string& key, auto& row) {
        if (!in.text(key, text)) return false;
        scanFloats(text, row);
        return true;
    };
    const auto pair = [&](const std::string& key, int16_t(&row)[2]) {
        if (!in.text(key, text)) return false;
        scanPair(text, row);
        return true;
    };
    return in.real("beta_up", r.beta_up) && in.real("beta_down", r.beta_down) &&
           in.real("beta_up_low", r.beta_up_low) && in.real("beta_down_low", r.beta_down_low) &&
           in.integer("low_freq", r.low_freq) && in.integer("high_freq", r.high_freq) &&
           in.integer("thd_flag", r.thd_flag) && in.integer("hard_flag", r.hard_flag) &&
           floats("LimitRatio_0", r.LimitRatio[0]) && floats("LimitRatio_1", r.LimitRatio[1]) &&
           pair("ThdSplitFreq_0", r.ThdSplitFreq[0]) && pair("ThdSplitFreq_1", r.ThdSplitFreq[1]) &&
           pair("ThdSplitFreq_2", r.ThdSplitFreq[2]) && pair("ThdSplitFreq_3", r.ThdSplitFreq[3]) &&
           floats("ThdSupDegree_0", r.ThdSupDegree[0]) && floats("ThdSupDegree_1", r.ThdSupDegree[1]) &&
           floats("ThdSupDegree_2", r.ThdSupDegree[2]) && floats("ThdSupDegree_3", r.ThdSupDegree[3]) &&
           pair("HardSplitFreq_0", r.HardSplitFreq[0]) && pair("HardSplitFreq_1", r.HardSplitFreq[1]) &&
           pair("HardSplitFreq_2", r.HardSplitFreq[2]) && pair("HardSplitFreq_3", r.HardSplitFreq[3]) &&
           pair("HardSplitFreq_4", r.HardSplitFreq[4]) && floats("HardThreshold", r.HardThreshold);
}

bool Readers::howl(EboHowlParam& r, int32_t& mask) {
    Section in = open("howl", "parseEboHowlConfigs");
    return in.status(mask, playback() ? 0x2 : 0x4000) && in.integer("mode", r.mode);
}

bool Readers::doa(EboDoaParam& r, int32_t& mask) {
    Section in = open("doa", "parseEboDoaConfigs");
    if (!in.status(mask, 0x8000)) return false;
    return in.real("rad", r.rad) && in.integer("start_freq", r.start_freq) &&
           in.integer("end_freq", r.end_freq) && in.integer("lg_num", r.lg_num) &&
           in.integer("lg_pitch_num", r.lg_pitch_num);
}

// Never fails. Every key is optional, the status too.
bool Readers::wakeup(EboWakeupParam& r, int32_t& mask) {
    Section in = open("wakeup", "parseEboWakeupConfigs");
    std::string word;
    if (in.findText("status", word)) in.status(mask, 0x2);
    if ((mask & 0x2) == 0) return true;
    r.wakeup_frames = 180;
    in.findInteger("wakeup_frames", r.wakeup_frames);
    in.findInteger("wakeup_words", r.wakeup_words);
    if (r.wakeup_words == 0) in.report("the wakeup word is 0, please configure it which you need\n");
    in.findInteger("mode", r.mode);
    const std::string mode = std::to_string(r.mode);
    if (r.mode < 1 || r.mode > 3) {
        in.report("Invalid mode: " + mode + ", please check mode follow these:");
        in.report("    mode0 - none");
        in.report("    mode1 - oneshot only");
        in.report("    mode2 - wakeup + command");
        in.report("    mode3 - (oneshot) and (wakeup + command)");
    }
    in.say(4, "\x1b[32m\x1b[1mCurrent wakeup mode is: " + mode + "\n\x1b[0m");
    in.findText("model_word1", expectation_.word1);
    in.findText("model_word2", expectation_.word2);
    r.model_word1 = pointerTo(expectation_.word1);
    r.model_word2 = pointerTo(expectation_.word2);
    return true;
}

bool Readers::ainr(EboAiNRParam& r, int32_t& mask) {
    Section in = open("ainr", "parseEboAINRConfigs");
    if (!in.status(mask, 0x20000)) return false;
    if (in.enabled) in.findText("model_path", expectation_.model_path);
    r.model_path = pointerTo(expectation_.model_path);
    return true;
}

}  // namespace model
