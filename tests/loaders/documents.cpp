#include "documents.h"

#include <nlohmann/json.hpp>
#include <stdexcept>

using nlohmann::json;

const std::string& completeDocument() {
    static const std::string text = R"({
        "ebo_configs": {
            "aec": {"status": "enable", "mic_chn_map": "3 chn;map:2,0,-1", "drop_ref_channel": 5, "delay_len": 48,
                    "look_ahead": -2, "filter_len": 70000},
            "delay": {"status": "enable", "MaxFrame": 60, "JumpFrame": 8, "DelayOffset": 1, "MicAmpThr": 40000,
                      "RefAmpThr": 80, "StartFreq": 400, "EndFreq": 3600, "SmoothFactor": 0.9725},
            "bf": {"status": "enable", "drop_ref_channel": -1, "targ": 3},
            "fast_aec": {"status": "enable"},
            "gsc": {"status": "enable", "method": 1},
            "wind": {"status": "enable"},
            "agc": {"status": "enable", "attack_time": 160.5, "release_time": 1800.0, "attenuate_time": 900.0,
                    "max_gain": 24.0, "max_peak": -1.5, "fRth0": -48.0, "fRth1": -36.5, "fRth2": -18.0,
                    "fRk0": 1.25, "fRk1": 0.8, "fRk2": 0.375, "fLineGainDb": -6.0, "swSmL0": 41, "swSmL1": 82,
                    "swSmL2": 96},
            "anr": {"status": "enable", "noiseFactor": 0.88, "psiMin": 0.0125, "psiMax": 0.516, "fGmin": 0.0562,
                    "swU": 100000, "Sup_Freq1": 3600, "Sup_Freq2": -5200, "Sup_Energy1": 100000.0,
                    "Sup_Energy2": 250000.0, "InterV": 9, "BiasMin": 1.67, "UpdateFrm": 15, "NPreGammaThr": 4.6,
                    "NPreZetaThr": 1.6703, "SabsGammaThr0": 1.0, "SabsGammaThr1": 3.0, "InfSmooth": 0.925,
                    "ProbSmooth": 0.81, "CompCoeff": 1.475, "PrioriMin": 0.003162, "PostMax": 40.0,
                    "PrioriRatio": 0.95, "PrioriRatioLow": 0.85, "SplitBand": 65536, "PrioriSmooth": 0.7,
                    "TranMode": 2},
            "nlp": {"status": "enable", "band_pass_thd": "11,12,13,14,15,16,17,-18",
                    "super_est_factor": "21,22,23,24,25,26,27,28"},
            "dereverb": {"status": "enable", "rlsLg": 70000, "curveLg": 12, "delay": 3, "forgetting": 0.98,
                         "t60": 0.45, "coCoeff": 1.0},
            "cng": {"status": "enable", "fGain": 12.5, "fMpy": 18.0, "fSmoothAlpha": 0.985, "fSpeechGain": 0.3},
            "dtd": {"status": "enable", "ksiThd_high": 0.2, "ksiThd_low": 0.5},
            "aes": {"status": "enable", "beta_up": 0.005, "beta_down": 0.00125, "beta_up_low": 0.004,
                    "beta_down_low": 0.0008, "low_freq": 300, "high_freq": 3800, "thd_flag": 1, "hard_flag": 2,
                    "LimitRatio_0": "1.0  0.85  0.7", "LimitRatio_1": "0.9 0.625\t0.5",
                    "ThdSplitFreq_0": "0  500", "ThdSplitFreq_1": "501  1500", "ThdSplitFreq_2": "1501  4000",
                    "ThdSplitFreq_3": "4001  8000",
                    "ThdSupDegree_0": "0.95  0.9  0.82  0.7  0.58  0.45  0.33  0.22  0.12  0.05",
                    "ThdSupDegree_1": "1.95  1.9  1.82  1.7  1.58  1.45  1.33  1.22  1.12  1.05",
                    "ThdSupDegree_2": "2.95  2.9  2.82  2.7  2.58  2.45  2.33  2.22  2.12  2.05",
                    "ThdSupDegree_3": "3.95  3.9  3.82  3.7  3.58  3.45  3.33  3.22  3.12  3.05",
                    "HardSplitFreq_0": "1  400", "HardSplitFreq_1": "402  1200", "HardSplitFreq_2": "1202  2800",
                    "HardSplitFreq_3": "2802  5200", "HardSplitFreq_4": "70000  -1",
                    "HardThreshold": "0.45  0.38  0.3  0.225"},
            "howl": {"status": "enable", "mode": 65538},
            "doa": {"status": "enable", "rad": 0.0325, "start_freq": 600, "end_freq": 3400, "lg_num": 36,
                    "lg_pitch_num": 7},
            "wakeup": {"status": "enable", "wakeup_frames": 150, "wakeup_words": 4, "mode": 2,
                       "model_word1": "hello-lamp", "model_word2": "good-night"},
            "ainr": {"status": "enable", "model_path": "/models/noise.bin"}
        },
        "ebo_ao_configs": {
            "anr": {"status": "enable", "noiseFactor": 1.5, "psiMin": 2.5, "psiMax": 3.5, "fGmin": 4.5, "swU": 5,
                    "Sup_Freq1": 6, "Sup_Freq2": 7, "Sup_Energy1": 8.5, "Sup_Energy2": 9.5, "InterV": 10,
                    "BiasMin": 11.5, "UpdateFrm": 12, "NPreGammaThr": 13.5, "NPreZetaThr": 14.5,
                    "SabsGammaThr0": 15.5, "SabsGammaThr1": 16.5, "InfSmooth": 17.5, "ProbSmooth": 18.5,
                    "CompCoeff": 19.5, "PrioriMin": 20.5, "PostMax": 21.5, "PrioriRatio": 22.5,
                    "PrioriRatioLow": 23.5, "SplitBand": 24, "PrioriSmooth": 25.5, "TranMode": 26},
            "howl": {"status": "enable", "mode": 3}
        },
        "ebo_agc_configs": {
            "agc": {"status": "enable", "attack_time": 1.5, "release_time": 2.5, "attenuate_time": 3.5,
                    "max_gain": 4.5, "max_peak": 5.5, "fRth0": 6.5, "fRth1": 7.5, "fRth2": 8.5, "fRk0": 9.5,
                    "fRk1": 10.5, "fRk2": 11.5, "fLineGainDb": 12.5, "swSmL0": 13, "swSmL1": 14, "swSmL2": 15}
        }
    })";
    return text;
}

std::string with(const std::string& document, const std::string& place, const std::string& value) {
    json root = json::parse(document);
    root[json::json_pointer(place)] = json::parse(value);
    return root.dump();
}

std::string without(const std::string& document, const std::string& place) {
    json root = json::parse(document);
    const json::json_pointer pointer(place);
    if (root.at(pointer.parent_pointer()).erase(pointer.back()) != 1) throw std::logic_error(place);
    return root.dump();
}

std::string allDisabled(const std::string& document) {
    json root = json::parse(document);
    for (json& section : root.at("ebo_configs")) section.at("status") = "disable";
    return root.dump();
}
