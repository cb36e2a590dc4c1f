// The sections under "ebo_configs", in the order in which a load reads them.
#pragma once

#include <string>
#include <vector>

struct Section {
    std::string name;
    std::string reader;             // its function
    std::vector<std::string> keys;  // the required ones, in the order in which they are read
};

inline const std::vector<Section>& requiredSections() {
    static const std::vector<Section> sections = {
        {"aec",
         "parseEboAecConfigs",
         {"status", "drop_ref_channel", "delay_len", "look_ahead", "filter_len"}},
        {"bf", "parseEboBfConfigs", {"status", "drop_ref_channel", "targ"}},
        {"fast_aec", "parseEboFastAecConfigs", {"status"}},
        {"gsc", "parseEboGscConfigs", {"status", "method"}},
        {"wind", "parseEboWindConfigs", {"status"}},
        {"agc",
         "parseEboAgcConfigs",
         {"status", "attack_time", "release_time", "attenuate_time", "max_gain", "max_peak", "fRth0", "fRth1",
          "fRth2", "fRk0", "fRk1", "fRk2", "fLineGainDb", "swSmL0", "swSmL1", "swSmL2"}},
        {"anr",
         "parseEboAnrConfigs",
         {"status",     "noiseFactor",  "psiMin",      "psiMax",        "fGmin",         "swU",
          "Sup_Freq1",  "Sup_Freq2",    "Sup_Energy1", "Sup_Energy2",   "InterV",        "BiasMin",
          "UpdateFrm",  "NPreGammaThr", "NPreZetaThr", "SabsGammaThr0", "SabsGammaThr1", "InfSmooth",
          "ProbSmooth", "CompCoeff",    "PrioriMin",   "PostMax",       "PrioriRatio",   "PrioriRatioLow",
          "SplitBand",  "PrioriSmooth", "TranMode"}},
        {"nlp", "parseEboNlpConfigs", {"status", "band_pass_thd", "super_est_factor"}},
        {"dereverb",
         "parseEboDereverbConfigs",
         {"status", "rlsLg", "curveLg", "delay", "forgetting", "t60", "coCoeff"}},
        {"cng", "parseEboCngConfigs", {"status", "fGain", "fMpy", "fSmoothAlpha", "fSpeechGain"}},
        {"dtd", "parseEboDtdConfigs", {"status", "ksiThd_high", "ksiThd_low"}},
        {"aes",
         "parseEboAesConfigs",
         {"status",          "beta_up",         "beta_down",       "beta_up_low",     "beta_down_low",
          "low_freq",        "high_freq",       "thd_flag",        "hard_flag",       "LimitRatio_0",
          "LimitRatio_1",    "ThdSplitFreq_0",  "ThdSplitFreq_1",  "ThdSplitFreq_2",  "ThdSplitFreq_3",
          "ThdSupDegree_0",  "ThdSupDegree_1",  "ThdSupDegree_2",  "ThdSupDegree_3",  "HardSplitFreq_0",
          "HardSplitFreq_1", "HardSplitFreq_2", "HardSplitFreq_3", "HardSplitFreq_4", "HardThreshold"}},
        {"howl", "parseEboHowlConfigs", {"status", "mode"}},
        {"doa", "parseEboDoaConfigs", {"status", "rad", "start_freq", "end_freq", "lg_num", "lg_pitch_num"}},
        {"ainr", "parseEboAINRConfigs", {"status"}},
    };
    return sections;
}

// What a reader says about a missing key; "fast_aec" and "wind" speak of the beamformer on purpose.
inline std::string missingText(const std::string& section, const std::string& key) {
    const bool is_switch = section == "fast_aec" || section == "wind";
    return "find " + (is_switch ? "bf" : section) + " " + key + " failed";
}
