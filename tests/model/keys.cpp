#include "model/keys.h"

#include <ebo_config.h>

#include <stdexcept>
#include <type_traits>

namespace model {

namespace {

template <class T, T* (*Read)(void*, const char*, int*), void (*Destroy)(T**)>
constexpr Reader record(const char* function, const char* destroyer, size_t slot) {
    const auto read = [](void* parser, const char* root, int* model_en) {
        T* const made = Read(parser, root, model_en);
        const auto destroy = [](void* last) {
            T* typed = static_cast<T*>(last);
            if (typed) Destroy(&typed);
        };
        return Outcome{made == nullptr, std::shared_ptr<void>(made, destroy)};
    };
    const auto destroy = [](void** pointer) {
        T* typed = static_cast<T*>(*pointer);
        Destroy(&typed);
        *pointer = typed;
    };
    return {function, destroyer, read, destroy, sizeof(T), slot};
}

template <int (*Read)(void*, const char*, int*)>
constexpr Reader toggle(const char* function) {
    const auto read = [](void* parser, const char* root, int* model_en) {
        const int result = Read(parser, root, model_en);
        if (result != 0 && result != -1) throw std::logic_error("neither 0 nor -1");
        return Outcome{result != 0, nullptr};
    };
    return {function, "", read, nullptr, 0, 0};
}

template <class T>
constexpr Kind kindOf() {
    using Number = std::remove_extent_t<T>;
    if (std::is_pointer_v<T>) return Kind::Word;
    if (std::is_same_v<Number, float>) return std::is_array_v<T> ? Kind::FloatRow : Kind::Float;
    if (std::is_same_v<Number, int16_t>) return std::is_array_v<T> ? Kind::IntRow : Kind::Int16;
    return Kind::Int32;
}

// clang-format off
#define FIELD(Record, place) kindOf<std::remove_reference_t<decltype(std::declval<Record>().place)>>(), Use::Required, offsetof(Record, place), std::extent_v<std::remove_reference_t<decltype(std::declval<Record>().place)>>
#define RECORD(Record, Read, Destroy, slot) record<Record, Read, Destroy>(#Read, #Destroy, slot)
#define TOGGLE(Read) toggle<Read>(#Read)
// clang-format on

Key key(const char* name, Kind kind, Use use, size_t offset, size_t count, json sample,
        json by_default = nullptr) {
    return {name, kind, use, offset, count, std::move(sample), std::move(by_default)};
}
Key as(Use use, Key key) {
    key.use = use;
    return key;
}
Key as(Kind kind, Key key) {
    key.kind = kind;
    return key;
}
Key status(Use use = Use::Required) {
    return key("status", Kind::Status, use, 0, 0, "enable");
}

// One key, one line: sample, and default where there is one.
// clang-format off
#define K(field, ...) key(#field, FIELD(R, field), __VA_ARGS__)
#define ROW(table, r, ...) key(#table "_" #r, FIELD(R, table[r]), __VA_ARGS__)

std::vector<Key> aecKeys() {
    using R = EboAecParam;
    return {as(Use::NoKey, K(pos, nullptr, 1)), as(Use::NoKey, K(model_aec_en, nullptr, 1)),
        status(),
        key("mic_chn_map", Kind::Map, Use::Optional, offsetof(R, Array_list), 16, "4 chn;map:3,1,2,-7"),
        as(Kind::Flag, K(drop_ref_channel, 5, 0)),
        K(delay_len, 48, 0), K(look_ahead, -3, 0), K(filter_len, 70000),
    };
}

std::vector<Key> delayKeys() {
    using R = EboDelayParam;
    return {as(Use::NoKey, K(LeastDelay, nullptr)),
        status(),
        K(MaxFrame, 60), K(JumpFrame, 8), K(DelayOffset, -1), K(MicAmpThr, 40000),
        K(RefAmpThr, 80), K(StartFreq, 400), K(EndFreq, 3600), K(SmoothFactor, 0.9725),
    };
}

std::vector<Key> bfKeys() {
    using R = EboBeamFormParam;
    return {as(Use::NoKey, K(model_en, nullptr, 1145)), as(Use::NoKey, K(ref_pos, nullptr, 1)), as(Use::NoKey, K(num_ref_channel, nullptr, 1)),
        status(),
        as(Kind::Flag, K(drop_ref_channel, -1, 0)),
        K(targ, 3, 4),
    };
}

std::vector<Key> agcKeys() {
    using R = EboAgcParam;
    return {as(Use::NoKey, K(sample_rate, 16000, 16000)), as(Use::NoKey, K(frame_len, 256, 256)),
        status(),
        K(attack_time, 160.5, 200), K(release_time, 1800.0, 2000), K(attenuate_time, 900, 1000),
        K(max_gain, 24.0, 20), K(max_peak, -1.5, -1),
        K(fRth0, -48.0, -45), K(fRth1, -36.5, -35), K(fRth2, -18.0, -35),
        K(fRk0, 1.25, -40), K(fRk1, 0.83, 0.8), K(fRk2, 0.375, 0.4),
        K(fLineGainDb, -6.0, -25),
        K(swSmL0, 41, 40), K(swSmL1, 82, 80), K(swSmL2, 96, 80),
    };
}

std::vector<Key> anrKeys() {
    using R = EboAnrParam;
    return {status(),
        K(noiseFactor, 0.89, 0.88), K(psiMin, 0.0125, 0.01), K(psiMax, 0.526, 0.516), K(fGmin, 0.0562, 0.05), K(swU, 100000, 10),
        K(Sup_Freq1, 3600), K(Sup_Freq2, -5200), K(Sup_Energy1, 100000.5), K(Sup_Energy2, 250000.25),
        K(InterV, 9), K(BiasMin, 1.67), K(UpdateFrm, 15),
        K(NPreGammaThr, 4.6), K(NPreZetaThr, 1.6703), K(SabsGammaThr0, 1.125), K(SabsGammaThr1, 3.25),
        K(InfSmooth, 0.925), K(ProbSmooth, 0.81), K(CompCoeff, 1.475),
        K(PrioriMin, 0.003162), K(PostMax, 40.5), K(PrioriRatio, 0.95), K(PrioriRatioLow, 0.85),
        K(SplitBand, 65537), K(PrioriSmooth, 0.7), K(TranMode, 2),
    };
}

std::vector<Key> nlpKeys() {
    using R = EboNlpParam;
    return {status(),
        key("band_pass_thd", Kind::Bands, Use::Required, offsetof(R, bands[0].band_pass_thd), 8, "11,12,13,14,15,16,17,-18", "10,10,10,5,5,5,0,0"),
        key("super_est_factor", Kind::Bands, Use::Required, offsetof(R, bands[0].super_est_factor), 8, "21,22,23,24,25,26,27,280", "6,10,10,10,10,10,6,6"),
    };
}

std::vector<Key> dereverbKeys() {
    using R = EboDereverbParam;
    return {status(),
        K(rlsLg, 70000, 4), K(curveLg, 12, 10), K(delay, -3, 2), K(forgetting, 0.985, 0.98), K(t60, 0.45, 0.5), K(coCoeff, 1.25, 1.0),
    };
}

std::vector<Key> cngKeys() {
    using R = EboCngParam;
    return {status(), K(fGain, 12.5, 20), K(fMpy, 18.0, 20), K(fSmoothAlpha, 0.985, 0.99), K(fSpeechGain, 0.3, 0)};
}

std::vector<Key> dtdKeys() {
    using R = EboDtdParam;
    return {status(), K(ksiThd_high, 0.62, 0.6), K(ksiThd_low, 0.285, 0.3)};
}

std::vector<Key> aesKeys() {
    using R = EboAesParam;
    return {status(),
        K(beta_up, 0.006, 0.005), K(beta_down, 0.00125, 0.001), K(beta_up_low, 0.004), K(beta_down_low, 0.0008),
        K(low_freq, 300), K(high_freq, -3800), K(thd_flag, 1), K(hard_flag, 2),
        ROW(LimitRatio, 0, "1.5  0.85  0.7"), ROW(LimitRatio, 1, "0.9 0.625\t-0.5"),
        ROW(ThdSplitFreq, 0, "5  500"), ROW(ThdSplitFreq, 1, "501  1500"), ROW(ThdSplitFreq, 2, "1501  4000"), ROW(ThdSplitFreq, 3, "-32768  32767"),
        ROW(ThdSupDegree, 0, "0.96  0.89  0.82  0.75  0.68  0.61  0.54  0.47  0.40  0.33"),
        ROW(ThdSupDegree, 1, "1.95  1.9  1.82  1.7  1.58  1.45  1.33  1.22  1.12  1.05"),
        ROW(ThdSupDegree, 2, "2.95  2.9  2.82  2.7  2.58  2.45  2.33  2.22  2.12  2.05"),
        ROW(ThdSupDegree, 3, "3.95  3.9  3.82  3.7  3.58  3.45  3.33  3.22  3.12  3.05"),
        ROW(HardSplitFreq, 0, "1  400"), ROW(HardSplitFreq, 1, "402  1200"), ROW(HardSplitFreq, 2, "1202  2800"), ROW(HardSplitFreq, 3, "2802  5200"), ROW(HardSplitFreq, 4, "70000  -1"),
        K(HardThreshold, "0.45  0.38  0.3  0.225"),
    };
}

std::vector<Key> howlKeys() {
    using R = EboHowlParam;
    return {status(), K(mode, 65538)};
}

std::vector<Key> doaKeys() {
    using R = EboDoaParam;
    return {status(), K(rad, 0.0325), K(start_freq, 600), K(end_freq, -3400), K(lg_num, 36), K(lg_pitch_num, 7)};
}

std::vector<Key> wakeupKeys() {
    using R = EboWakeupParam;
    std::vector<Key> keys = {status(), K(wakeup_frames, 150), K(wakeup_words, 4), K(mode, 2), K(model_word1, "hello-lamp"), K(model_word2, "good-night")};
    for (Key& key : keys) key.use = Use::Optional;
    return keys;
}

std::vector<Key> ainrKeys() {
    using R = EboAiNRParam;
    return {status(), as(Use::Optional, K(model_path, "/models/noise.bin"))};
}

// The lines of the dumps.
const std::vector<const char*> kAnr = {"anr:",
    "   noiseFactor = %f, swU = %d",
    "   psiMin = %f, psiMax = %f, fGmin = %f",
    "   Sup_Freq1 = %d, Sup_Freq2 = %d, Sup_Energy1 = %f Sup_Energy2 = %f",
    "   InterV = %d, BiasMin = %f, UpdateFrm = %d",
    "   NPreGammaThr = %f, NPreZetaThr = %f, SabsGammaThr0 = %f SabsGammaThr1 = %f",
    "   InfSmooth = %f, ProbSmooth = %f, CompCoeff = %f",
    "   PrioriMin = %f, PrioriMin = %f, PostMax = %f, PrioriRatio = %f, PrioriRatioLow = %f",
    "   SplitBand = %d, PrioriSmooth = %f, TranMode = %d"};
const std::vector<const char*> kHowl = {"howl:", "   mode = %d"};

#define SLOT(module) offsetof(EboBeamFormParam, module)

}  // namespace

const std::vector<Section>& allSections() {
    static const std::vector<Section> sections = {
        {"aec", RECORD(EboAecParam, parseEboAecConfigs, destroyEboAecConfig, 0), 0x1, 0, "aec != KA_NULL", aecKeys()},
        {"delay", RECORD(EboDelayParam, parseEboDelayConfigs, destroyEboDelayConfig, 0), 0, 0, "delay != KA_NULL", delayKeys()},
        {"bf", RECORD(EboBeamFormParam, parseEboBfConfigs, destroyEboBeamFormConfig, 0), 0x2, 0, "bf != KA_NULL", bfKeys()},
        {"fast_aec", TOGGLE(parseEboFastAecConfigs), 0x1, 0, "", {status()}},
        {"gsc", TOGGLE(parseEboGscConfigs), 0x80, 0, "", {status(), key("method", Kind::Int32, Use::Required, 0, 0, 2)}},
        {"wind", TOGGLE(parseEboWindConfigs), 0x10000, 0, "", {status()}},
        {"agc", RECORD(EboAgcParam, parseEboAgcConfigs, destroyEboAgcConfig, SLOT(agc)), 0x20, 0, "agc != KA_NULL", agcKeys()},
        {"anr", RECORD(EboAnrParam, parseEboAnrConfigs, destroyEboAnrConfig, SLOT(anr)), 0x40, 0x1, "anr != KA_NULL", anrKeys()},
        {"nlp", RECORD(EboNlpParam, parseEboNlpConfigs, destroyEboNlpConfig, SLOT(nlp)), 0x8, 0, "nlp != KA_NULL", nlpKeys()},
        {"dereverb", RECORD(EboDereverbParam, parseEboDereverbConfigs, destroyEboDereverbConfig, SLOT(dereverb)), 0x4, 0, "dereverb != KA_NULL", dereverbKeys()},
        {"cng", RECORD(EboCngParam, parseEboCngConfigs, destroyEboCngConfig, SLOT(cng)), 0x800, 0, "cng != KA_NULL", cngKeys()},
        {"dtd", RECORD(EboDtdParam, parseEboDtdConfigs, destroyEboDtdConfig, SLOT(dtd)), 0x400, 0, "sdtd != KA_NULL", dtdKeys()},
        {"aes", RECORD(EboAesParam, parseEboAesConfigs, destroyEboAesConfig, SLOT(aes)), 0x10, 0, "aes != KA_NULL", aesKeys()},
        {"howl", RECORD(EboHowlParam, parseEboHowlConfigs, destroyEboHowlConfig, SLOT(howl)), 0x4000, 0x2, "howl != KA_NULL", howlKeys()},
        {"doa", RECORD(EboDoaParam, parseEboDoaConfigs, destroyEboDoaConfig, SLOT(doa)), 0x8000, 0, "doa != KA_NULL", doaKeys()},
        {"wakeup", RECORD(EboWakeupParam, parseEboWakeupConfigs, destroyEboWakeupConfig, SLOT(wakeup)), 0x2, 0, "wakeup != KA_NULL", wakeupKeys()},
        {"ainr", RECORD(EboAiNRParam, parseEboAINRConfigs, destroyEboAiNRConfig, SLOT(ainr)), 0x20000, 0, "ainr != KA_NULL", ainrKeys()},
    };
    return sections;
}

// In the order of the dumps, which is not that of the bits.
const std::vector<Block>& beamFormBlocks() {
    static const std::vector<Block> blocks = {
        {0, "bf", {"****************** BeamForm Configs dump ******************", "model_en = 0x%x, ref_pos = %d", "targ = %d", "num_ref_channel = %d, drop_ref_channel = %d"}},
        {0x1, "", {"fast_aec:", "   enabled"}},
        {0x2, "wakeup", {"wakeup:", "   enabled", "   wakeup_frames: %d", "   wakeup_words: %d", "   mode: %d", "   word1: %s|model_word1", "   word2: %s|model_word2"}},
        {0x100, "", {"gsc:", "   enabled"}},
        {0x1000, "", {"eq:", "   enabled"}},
        {0x4, "dereverb", {"dereverb:", "   rlsLg = %d, curveLg = %d, delay = %d", "   forgetting = %f, t60 = %f, coCoeff = %f"}},
        {0x8, "nlp", {"nlp:", "   BandPassThd   SuperEstFactor"}},
        {0x10, "aes", {"aes:", "   beta_up = %f, beta_down = %f", "   beta_up_low = %f, beta_down = %f", "   low_freq = %d, high_freq = %d",
            "   thd_flag = %d, hard_flag = %d", "   LimitRatio:", "   ThdSplitFreq:", "   ThdSupDegree:", "   HardSplitFreq:", "   HardThreshold:"}},
        {0x40, "anr", kAnr},
        {0x20, "agc", {"agc:", "   attack_time = %f, release_time = %f, attenuate_time = %f", "   max_gain = %f, max_peak = %f", "   fLineGainDb = %f",
            "   fRth0 = %f, fRth1 = %f, fRth2 = %f", "   fRk0 = %f, fRk1 = %f, fRk1 = %f|fRk0 fRk1 fRk2", "   swSmL0 = %d, swSmL1 = %d, swSmL2 = %d"}},
        {0x800, "cng", {"cng:", "   fGain = %f, fMpy = %f", "   fSmoothAlpha = %f, fSpeechGain = %f"}},
        {0x400, "dtd", {"stdt:", "   ksiThd_high = %f, ksiThd_low = %f"}},
        {0x4000, "howl", kHowl},
        {0x8000, "doa", {"doa:", "   rad = %f, start_freq = %d, end_freq = %d", "   lg_num = %d, lg_pitch_num = %d"}},
        {0x10000, "", {"wind:", "   enabled"}},
        {0x20000, "ainr", {"ainr:", "   model_path: %s"}},
    };
    return blocks;
}

const std::vector<Block>& aecBlocks() {
    static const std::vector<Block> blocks = {
        {0, "aec", {"********************* AEC Configs dump ******************", "pos = %d, drop_ref_channel = %d",
            "model_aec_en = 0x%x, delay_len = %d, look_ahead = %d filter_len = %d"}},
        {0x1, "delay", {"delay:", "   enabled", "   MaxFrame = %d, LeastDelay = %d, JumpFrame = %d, DelayOffset = %d",
            "   MicAmpThr = %d, RefAmpThr = %d, StartFreq = %d, EndFreq = %d", "   SmoothFactor = %f"}},
    };
    return blocks;
}

const std::vector<Block>& aoBlocks() {
    static const std::vector<Block> blocks = {
        {0, "", {"****************** AO Configs dump ******************"}},
        {0x1, "anr", kAnr},
        {0x2, "howl", kHowl},
    };
    return blocks;
}
// clang-format on

const std::vector<std::string>& cleanUpOrder() {
    static const std::vector<std::string> names = {"delay",    "aec",    "anr",  "agc", "nlp",
                                                   "dereverb", "cng",    "dtd",  "aes", "howl",
                                                   "doa",      "wakeup", "ainr", "bf",  "root"};
    return names;
}

const std::vector<std::string>& destroyOrder() {
    static const std::vector<std::string> names = {"dereverb", "nlp",  "anr", "agc",    "cng", "dtd",
                                                   "aes",      "howl", "doa", "wakeup", "ainr"};
    return names;
}

const Section& sectionOf(const std::string& name) {
    for (const Section& section : allSections())
        if (section.name == name) return section;
    throw std::out_of_range(name);
}

const Key& Section::key(const std::string& key_name) const {
    for (const Key& key : keys)
        if (key.name == key_name) return key;
    throw std::out_of_range(name + "." + key_name);
}

json sampleOf(const Section& section, int file) {
    json keys = json::object();
    for (const Key& key : section.keys) {
        if (key.use == Use::NoKey) continue;
        keys[key.name] = key.sample;
        if (key.isInteger()) keys[key.name] = key.sample.get<int>() + file;
        if (key.kind == Kind::Float) keys[key.name] = key.sample.get<double>() + file;
    }
    return keys;
}

json sampleDocument() {
    json document;
    for (const Section& section : allSections()) document["ebo_configs"][section.name] = sampleOf(section);
    document["ebo_ao_configs"] = {{"anr", sampleOf(sectionOf("anr"), 1)},
                                  {"howl", sampleOf(sectionOf("howl"), 1)}};
    document["ebo_agc_configs"]["agc"] = sampleOf(sectionOf("agc"), 2);
    return document;
}

}  // namespace model
