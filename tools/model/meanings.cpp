#include "model/meanings.h"

#include <cstring>
#include <iterator>

// All values go to the engine unchanged. Units stand where they are known; where the engine alone knows what
// a value does, the text reads the name and claims no more.
// One key, one line.
// clang-format off
const Meaning kMeanings[] = {
    {"aec", nullptr, "Echo canceller: reference, lengths and the map of the microphone channels"},
    {"aec", "mic_chn_map",
     "Which microphone channel feeds which input of the canceller, input 0 first; without it the record has "
     "no map. More than 16 channels abort the process"},
    {"aec", "drop_ref_channel", "Whether the reference channel is dropped: 0 no, any other number yes"},
    {"aec", "delay_len", "Length of the delay"},
    {"aec", "look_ahead", "Look-ahead of the canceller"},
    {"aec", "filter_len", "Length of the filter"},
    {"aec", "pos", "Position value for the engine: 1 by default, 0 in a loaded record"},

    {"delay", nullptr,
     "Estimator of the delay between the loudspeaker's reference and the microphones; read only when it is "
     "enabled"},
    {"delay", "MaxFrame", "Highest number of frames"},
    {"delay", "JumpFrame", "Frames of a jump"},
    {"delay", "DelayOffset", "Offset of the delay"},
    {"delay", "MicAmpThr", "Microphone amplitude threshold"},
    {"delay", "RefAmpThr", "Reference amplitude threshold"},
    {"delay", "StartFreq", "Lower end of the band that is looked at"},
    {"delay", "EndFreq", "Upper end of that band"},
    {"delay", "SmoothFactor", "Smoothing factor"},
    {"delay", "LeastDelay", "Least delay; 0 in every loaded record"},

    {"bf", nullptr, "Beamformer: head of the chain of modules that the sections below configure"},
    {"bf", "drop_ref_channel", "Whether the reference channel is dropped: 0 no, any other number yes"},
    {"bf", "targ", "Target"},
    {"bf", "ref_pos", "Position of the reference for the engine: 1 by default, 0 in a loaded record"},
    {"bf", "num_ref_channel", "Number of reference channels: 1 by default, 0 in a loaded record"},

    {"fast_aec", nullptr, "Fast echo cancellation: a switch only"},

    {"gsc", nullptr, "The gsc stage of the beamformer: a switch and its method"},
    {"gsc", "method",
     "1 chooses method 1, whatever the status; any other number chooses nothing. The dump heads its gsc "
     "block by this and not by the status"},

    {"wind", nullptr, "Handling of wind noise: a switch only"},

    {"agc", nullptr, "Automatic gain control"},
    {"agc", "attack_time", "Attack time"},
    {"agc", "release_time", "Release time"},
    {"agc", "attenuate_time", "Attenuation time"},
    {"agc", "max_gain", "Highest gain"},
    {"agc", "max_peak", "Highest output peak"},
    {"agc", "fRth0", "Level threshold 0"},
    {"agc", "fRth1", "Level threshold 1"},
    {"agc", "fRth2", "Level threshold 2"},
    {"agc", "fRk0", "Coefficient 0"},
    {"agc", "fRk1", "Coefficient 1"},
    {"agc", "fRk2", "Coefficient 2"},
    {"agc", "fLineGainDb", "Line gain in dB"},
    {"agc", "swSmL0", "First smoothing length"},
    {"agc", "swSmL1", "Second smoothing length"},
    {"agc", "swSmL2", "Third smoothing length"},
    {"agc", "sample_rate", "Sample rate in Hz; 16000 in every record"},
    {"agc", "frame_len", "Frame length in samples; 256 in every record"},

    {"anr", nullptr,
     "Noise reduction, of the capture path or of the playback path. The names are those of its engine, which "
     "alone gives them their exact meaning"},
    {"anr", "noiseFactor", "Noise factor"},
    {"anr", "psiMin", "Lower bound of psi"},
    {"anr", "psiMax", "Upper bound of psi"},
    {"anr", "fGmin", "Lowest gain"},
    {"anr", "swU", "Count U"},
    {"anr", "Sup_Freq1", "First suppression frequency"},
    {"anr", "Sup_Freq2", "Second suppression frequency"},
    {"anr", "Sup_Energy1", "First suppression energy"},
    {"anr", "Sup_Energy2", "Second suppression energy"},
    {"anr", "InterV", "Interval V"},
    {"anr", "BiasMin", "Lowest bias"},
    {"anr", "UpdateFrm", "Frames of an update"},
    {"anr", "NPreGammaThr", "Gamma threshold of the noise pre-estimate"},
    {"anr", "NPreZetaThr", "Zeta threshold of the noise pre-estimate"},
    {"anr", "SabsGammaThr0", "Gamma threshold 0 of speech absence"},
    {"anr", "SabsGammaThr1", "Gamma threshold 1 of speech absence"},
    {"anr", "InfSmooth", "Inf smoothing"},
    {"anr", "ProbSmooth", "Smoothing of the probability"},
    {"anr", "CompCoeff", "Compensation coefficient"},
    {"anr", "PrioriMin", "Lower bound of the a-priori value"},
    {"anr", "PostMax", "Upper bound of the a-posteriori value"},
    {"anr", "PrioriRatio", "A-priori ratio"},
    {"anr", "PrioriRatioLow", "A-priori ratio, low"},
    {"anr", "SplitBand", "Band of the split"},
    {"anr", "PrioriSmooth", "Smoothing of the a-priori value"},
    {"anr", "TranMode", "Tran mode"},

    {"nlp", nullptr, "Non-linear processing in eight bands"},
    {"nlp", "band_pass_thd", "Band-pass threshold of each band, band 0 first; missing ones are 0"},
    {"nlp", "super_est_factor",
     "Super-estimation factor of each band, band 0 first; missing ones take the band's band_pass_thd"},

    {"dereverb", nullptr, "Dereverberation"},
    {"dereverb", "rlsLg", "RLS length"},
    {"dereverb", "curveLg", "Curve length"},
    {"dereverb", "delay", "Delay"},
    {"dereverb", "forgetting", "Forgetting factor"},
    {"dereverb", "t60", "Reverberation time T60"},
    {"dereverb", "coCoeff", "Co coefficient"},

    {"cng", nullptr, "Comfort noise"},
    {"cng", "fGain", "Gain"},
    {"cng", "fMpy", "Multiplier"},
    {"cng", "fSmoothAlpha", "Smoothing constant"},
    {"cng", "fSpeechGain", "Gain during speech"},

    {"dtd", nullptr, "Double-talk detection; the dump heads its block \"stdt:\""},
    {"dtd", "ksiThd_high", "Upper threshold"},
    {"dtd", "ksiThd_low", "Lower threshold; nothing checks that it lies below the upper one"},

    {"aes", nullptr,
     "Echo suppression. A row of a table is a text of numbers with blanks between them, not commas; missing "
     "numbers are 0, but the second of a pair is the upper 16 bits of the first"},
    {"aes", "beta_up", "Beta upwards"},
    {"aes", "beta_down", "Beta downwards"},
    {"aes", "beta_up_low", "Beta upwards, low"},
    {"aes", "beta_down_low", "Beta downwards, low; the dump never prints it"},
    {"aes", "low_freq", "Low frequency"},
    {"aes", "high_freq", "High frequency"},
    {"aes", "thd_flag", "Threshold flag"},
    {"aes", "hard_flag", "Hard-suppression flag"},
    {"aes", "LimitRatio_0", "Limits of the ratio, row 0"},
    {"aes", "LimitRatio_1", "Limits of the ratio, row 1"},
    {"aes", "ThdSplitFreq_0",
     "Frequencies that bound threshold band 0; a missing second number is the upper 16 bits of the first"},
    {"aes", "ThdSplitFreq_1", "Frequencies that bound threshold band 1"},
    {"aes", "ThdSplitFreq_2", "Frequencies that bound threshold band 2"},
    {"aes", "ThdSplitFreq_3", "Frequencies that bound threshold band 3"},
    {"aes", "ThdSupDegree_0", "Degrees of suppression in threshold band 0"},
    {"aes", "ThdSupDegree_1", "Degrees of suppression in threshold band 1"},
    {"aes", "ThdSupDegree_2", "Degrees of suppression in threshold band 2"},
    {"aes", "ThdSupDegree_3", "Degrees of suppression in threshold band 3"},
    {"aes", "HardSplitFreq_0",
     "Frequencies that bound hard-suppression band 0; a missing second number is the upper 16 bits of the "
     "first"},
    {"aes", "HardSplitFreq_1", "Frequencies that bound hard-suppression band 1"},
    {"aes", "HardSplitFreq_2", "Frequencies that bound hard-suppression band 2"},
    {"aes", "HardSplitFreq_3", "Frequencies that bound hard-suppression band 3"},
    {"aes", "HardSplitFreq_4", "Frequencies that bound hard-suppression band 4"},
    {"aes", "HardThreshold", "Thresholds of the hard suppression"},

    {"howl", nullptr, "Howling (acoustic feedback) suppression, of the capture path or of the playback path"},
    {"howl", "mode", "Mode of the suppression"},

    {"doa", nullptr, "Direction of arrival"},
    {"doa", "rad", "The engine's rad"},
    {"doa", "start_freq", "Lower end of the band that is looked at"},
    {"doa", "end_freq", "Upper end of that band"},
    {"doa", "lg_num", "The engine's lg_num"},
    {"doa", "lg_pitch_num", "The engine's lg_pitch_num"},

    {"wakeup", nullptr,
     "Wake-word detection; every key is optional, and read only when the section is enabled"},
    {"wakeup", "wakeup_frames", "A count of frames"},
    {"wakeup", "wakeup_words", "Number of wake words; 0 is complained about in the log, and kept"},
    {"wakeup", "mode",
     "1 oneshot only, 2 wakeup + command, 3 (oneshot) and (wakeup + command); any other number, 0 included, "
     "is complained about in the log, and kept"},
    {"wakeup", "model_word1", "First model word; an empty one counts as none"},
    {"wakeup", "model_word2", "Second model word; an empty one counts as none"},

    {"ainr", nullptr, "Neural noise reduction; the model is read only when it is enabled"},
    {"ainr", "model_path", "File of the model, not checked; without one the enabled module has no model"},
};
// clang-format on
const size_t kMeaningCount = std::size(kMeanings);

const char* meaningOf(const char* section, const char* key) {
    for (const Meaning& meaning : kMeanings) {
        if (std::strcmp(meaning.section, section) != 0) continue;
        if (key == nullptr ? meaning.key == nullptr
                           : meaning.key != nullptr && std::strcmp(meaning.key, key) == 0) {
            return meaning.text;
        }
    }
    return "Not explained yet";
}
