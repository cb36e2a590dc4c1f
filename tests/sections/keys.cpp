#include <ebo_params.h>

#include "sections/fields.h"

namespace {

json readChannelMap(const void* record) {
    const int16_t* const map = static_cast<const EboAecParam*>(record)->Array_list;
    return map ? json(std::vector<int>(map, map + 4)) : json(nullptr);  // as long as the sample
}

template <auto Member>
json readBands(const void* record) {
    json values = json::array();
    for (const EboNlpBand& band : static_cast<const EboNlpParam*>(record)->bands)
        values.push_back(band.*Member);
    return values;
}

template <auto Member>
constexpr Field bands = {readBands<Member>, Kind::Row};

}  // namespace

// One key, one line.
// clang-format off
const std::vector<Key>& allKeys() {
    static const std::vector<Key> keys = {
        {"aec", "status", Call::CString, "find aec status failed", "enable", kNoField},
        {"aec", "mic_chn_map", Call::CString, kOptional, "4 chn;map:3,1,2,-7", {readChannelMap, Kind::Row}},
        {"aec", "drop_ref_channel", Call::Int32, "find aec drop_ref_channel failed", 1,
         flag<&EboAecParam::drop_ref_channel>},
        {"aec", "delay_len", Call::Int32, "find aec delay_len failed", 48, at<&EboAecParam::delay_len>},
        {"aec", "look_ahead", Call::Int32, "find aec look_ahead failed", 3, at<&EboAecParam::look_ahead>},
        {"aec", "filter_len", Call::Int32, "find aec filter_len failed", 1024, at<&EboAecParam::filter_len>},

        {"delay", "status", Call::CString, "find delay status failed", "enable", kNoField},
        {"delay", "MaxFrame", Call::Int32, "find delay MaxFrame failed", 60, at<&EboDelayParam::MaxFrame>},
        {"delay", "JumpFrame", Call::Int32, "find delay JumpFrame failed", 8, at<&EboDelayParam::JumpFrame>},
        {"delay", "DelayOffset", Call::Int32, "find delay DelayOffset failed", -1,
         at<&EboDelayParam::DelayOffset>},
        {"delay", "MicAmpThr", Call::Int32, "find delay MicAmpThr failed", 61, at<&EboDelayParam::MicAmpThr>},
        {"delay", "RefAmpThr", Call::Int32, "find delay RefAmpThr failed", 80, at<&EboDelayParam::RefAmpThr>},
        {"delay", "StartFreq", Call::Int32, "find delay StartFreq failed", 400,
         at<&EboDelayParam::StartFreq>},
        {"delay", "EndFreq", Call::Int32, "find delay EndFreq failed", 3600, at<&EboDelayParam::EndFreq>},
        {"delay", "SmoothFactor", Call::Float, "find delay SmoothFactor failed", 0.9725,
         at<&EboDelayParam::SmoothFactor>},

        {"bf", "status", Call::CString, "find bf status failed", "enable", kNoField},
        {"bf", "drop_ref_channel", Call::Int32, "find bf drop_ref_channel failed", 1,
         flag<&EboBeamFormParam::drop_ref_channel>},
        {"bf", "targ", Call::Int32, "find bf targ failed", 4, at<&EboBeamFormParam::targ>},

        {"fast_aec", "status", Call::CString, "find bf status failed", "enable", kNoField},

        {"gsc", "status", Call::CString, "find gsc status failed", "enable", kNoField},
        {"gsc", "method", Call::Int32, "find gsc method failed", 2, kNoField},

        {"wind", "status", Call::CString, "find bf status failed", "enable", kNoField},

        {"wakeup", "status", Call::CString, kOptional, "enable", kNoField},
        {"wakeup", "wakeup_frames", Call::Int32, kOptional, 200, at<&EboWakeupParam::wakeup_frames>},
        {"wakeup", "wakeup_words", Call::Int32, kOptional, 2, at<&EboWakeupParam::wakeup_words>},
        {"wakeup", "mode", Call::Int32, kOptional, 3, at<&EboWakeupParam::mode>},
        {"wakeup", "model_word1", Call::CString, kOptional, "hello house", at<&EboWakeupParam::model_word1>},
        {"wakeup", "model_word2", Call::CString, kOptional, "good night", at<&EboWakeupParam::model_word2>},

        {"doa", "status", Call::CString, "find doa status failed", "enable", kNoField},
        {"doa", "rad", Call::Float, "find doa rad failed", 0.0325, at<&EboDoaParam::rad>},
        {"doa", "start_freq", Call::Int32, "find doa start_freq failed", 600, at<&EboDoaParam::start_freq>},
        {"doa", "end_freq", Call::Int32, "find doa end_freq failed", 3400, at<&EboDoaParam::end_freq>},
        {"doa", "lg_num", Call::Int32, "find doa lg_num failed", 36, at<&EboDoaParam::lg_num>},
        {"doa", "lg_pitch_num", Call::Int32, "find doa lg_pitch_num failed", 5,
         at<&EboDoaParam::lg_pitch_num>},

        {"howl", "status", Call::CString, "find howl status failed", "enable", kNoField},
        {"howl", "mode", Call::Int32, "find howl mode failed", 2, at<&EboHowlParam::mode>},

        {"anr", "status", Call::CString, "find anr status failed", "enable", kNoField},
        {"anr", "noiseFactor", Call::Float, "find anr noiseFactor failed", 0.88,
         at<&EboAnrParam::noiseFactor>},
        {"anr", "psiMin", Call::Float, "find anr psiMin failed", 0.0125, at<&EboAnrParam::psiMin>},
        {"anr", "psiMax", Call::Float, "find anr psiMax failed", 0.516, at<&EboAnrParam::psiMax>},
        {"anr", "fGmin", Call::Float, "find anr fGmin failed", 0.0562, at<&EboAnrParam::fGmin>},
        {"anr", "swU", Call::Int32, "find anr swU failed", 10, at<&EboAnrParam::swU>},
        {"anr", "Sup_Freq1", Call::Int32, "find anr Sup_Freq1 failed", 3600, at<&EboAnrParam::Sup_Freq1>},
        {"anr", "Sup_Freq2", Call::Int32, "find anr Sup_Freq2 failed", 5200, at<&EboAnrParam::Sup_Freq2>},
        {"anr", "Sup_Energy1", Call::Float, "find anr Sup_Energy1 failed", 100000.5,
         at<&EboAnrParam::Sup_Energy1>},
        {"anr", "Sup_Energy2", Call::Float, "find anr Sup_Energy2 failed", 250000.25,
         at<&EboAnrParam::Sup_Energy2>},
        {"anr", "InterV", Call::Int32, "find anr InterV failed", 8, at<&EboAnrParam::InterV>},
        {"anr", "BiasMin", Call::Float, "find anr BiasMin failed", 1.67, at<&EboAnrParam::BiasMin>},
        {"anr", "UpdateFrm", Call::Int32, "find anr UpdateFrm failed", 15, at<&EboAnrParam::UpdateFrm>},
        {"anr", "NPreGammaThr", Call::Float, "find anr NPreGammaThr failed", 4.6,
         at<&EboAnrParam::NPreGammaThr>},
        {"anr", "NPreZetaThr", Call::Float, "find anr NPreZetaThr failed", 1.6703,
         at<&EboAnrParam::NPreZetaThr>},
        {"anr", "SabsGammaThr0", Call::Float, "find anr SabsGammaThr0 failed", 1.125,
         at<&EboAnrParam::SabsGammaThr0>},
        {"anr", "SabsGammaThr1", Call::Float, "find anr SabsGammaThr1 failed", 3.25,
         at<&EboAnrParam::SabsGammaThr1>},
        {"anr", "InfSmooth", Call::Float, "find anr InfSmooth failed", 0.925, at<&EboAnrParam::InfSmooth>},
        {"anr", "ProbSmooth", Call::Float, "find anr ProbSmooth failed", 0.8, at<&EboAnrParam::ProbSmooth>},
        {"anr", "CompCoeff", Call::Float, "find anr CompCoeff failed", 1.475, at<&EboAnrParam::CompCoeff>},
        {"anr", "PrioriMin", Call::Float, "find anr PrioriMin failed", 0.003162, at<&EboAnrParam::PrioriMin>},
        {"anr", "PostMax", Call::Float, "find anr PostMax failed", 40.5, at<&EboAnrParam::PostMax>},
        {"anr", "PrioriRatio", Call::Float, "find anr PrioriRatio failed", 0.95,
         at<&EboAnrParam::PrioriRatio>},
        {"anr", "PrioriRatioLow", Call::Float, "find anr PrioriRatioLow failed", 0.85,
         at<&EboAnrParam::PrioriRatioLow>},
        {"anr", "SplitBand", Call::Int32, "find anr SplitBand failed", 24, at<&EboAnrParam::SplitBand>},
        {"anr", "PrioriSmooth", Call::Float, "find anr PrioriSmooth failed", 0.7,
         at<&EboAnrParam::PrioriSmooth>},
        {"anr", "TranMode", Call::Int32, "find anr TranMode failed", 1, at<&EboAnrParam::TranMode>},

        {"aes", "status", Call::CString, "find aes status failed", "enable", kNoField},
        {"aes", "beta_up", Call::Float, "find aes beta_up failed", 0.005, at<&EboAesParam::beta_up>},
        {"aes", "beta_down", Call::Float, "find aes beta_down failed", 0.00125, at<&EboAesParam::beta_down>},
        {"aes", "beta_up_low", Call::Float, "find aes beta_up_low failed", 0.004,
         at<&EboAesParam::beta_up_low>},
        {"aes", "beta_down_low", Call::Float, "find aes beta_down_low failed", 0.0008,
         at<&EboAesParam::beta_down_low>},
        {"aes", "low_freq", Call::Int32, "find aes low_freq failed", 300, at<&EboAesParam::low_freq>},
        {"aes", "high_freq", Call::Int32, "find aes high_freq failed", 3800, at<&EboAesParam::high_freq>},
        {"aes", "thd_flag", Call::Int32, "find aes thd_flag failed", 1, at<&EboAesParam::thd_flag>},
        {"aes", "hard_flag", Call::Int32, "find aes hard_flag failed", 2, at<&EboAesParam::hard_flag>},
        {"aes", "LimitRatio_0", Call::CString, "find aes LimitRatio_0 failed", "1.5  0.85  0.7",
         row<&EboAesParam::LimitRatio, 0>},
        {"aes", "LimitRatio_1", Call::CString, "find aes LimitRatio_1 failed", "0.9  0.625  -0.5",
         row<&EboAesParam::LimitRatio, 1>},
        {"aes", "ThdSplitFreq_0", Call::CString, "find aes ThdSplitFreq_0 failed", "0  500",
         row<&EboAesParam::ThdSplitFreq, 0>},
        {"aes", "ThdSplitFreq_1", Call::CString, "find aes ThdSplitFreq_1 failed", "501  1500",
         row<&EboAesParam::ThdSplitFreq, 1>},
        {"aes", "ThdSplitFreq_2", Call::CString, "find aes ThdSplitFreq_2 failed", "1501  4000",
         row<&EboAesParam::ThdSplitFreq, 2>},
        {"aes", "ThdSplitFreq_3", Call::CString, "find aes ThdSplitFreq_3 failed", "4001  8000",
         row<&EboAesParam::ThdSplitFreq, 3>},
        {"aes", "ThdSupDegree_0", Call::CString, "find aes ThdSupDegree_0 failed",
         "0.96  0.89  0.82  0.75  0.68  0.61  0.54  0.47  0.40  0.33", row<&EboAesParam::ThdSupDegree, 0>},
        {"aes", "ThdSupDegree_1", Call::CString, "find aes ThdSupDegree_1 failed",
         "0.95  0.88  0.81  0.74  0.67  0.60  0.53  0.46  0.39  0.32", row<&EboAesParam::ThdSupDegree, 1>},
        {"aes", "ThdSupDegree_2", Call::CString, "find aes ThdSupDegree_2 failed",
         "0.94  0.87  0.80  0.73  0.66  0.59  0.52  0.45  0.38  0.31", row<&EboAesParam::ThdSupDegree, 2>},
        {"aes", "ThdSupDegree_3", Call::CString, "find aes ThdSupDegree_3 failed",
         "0.93  0.86  0.79  0.72  0.65  0.58  0.51  0.44  0.37  0.30", row<&EboAesParam::ThdSupDegree, 3>},
        {"aes", "HardSplitFreq_0", Call::CString, "find aes HardSplitFreq_0 failed", "0  400",
         row<&EboAesParam::HardSplitFreq, 0>},
        {"aes", "HardSplitFreq_1", Call::CString, "find aes HardSplitFreq_1 failed", "401  1200",
         row<&EboAesParam::HardSplitFreq, 1>},
        {"aes", "HardSplitFreq_2", Call::CString, "find aes HardSplitFreq_2 failed", "1201  2800",
         row<&EboAesParam::HardSplitFreq, 2>},
        {"aes", "HardSplitFreq_3", Call::CString, "find aes HardSplitFreq_3 failed", "2801  5200",
         row<&EboAesParam::HardSplitFreq, 3>},
        {"aes", "HardSplitFreq_4", Call::CString, "find aes HardSplitFreq_4 failed", "5201  -1",
         row<&EboAesParam::HardSplitFreq, 4>},
        {"aes", "HardThreshold", Call::CString, "find aes HardThreshold failed", "0.45  0.38  0.3  0.225",
         row<&EboAesParam::HardThreshold>},

        {"nlp", "status", Call::CString, "find nlp status failed", "enable", kNoField},
        {"nlp", "band_pass_thd", Call::CString, "find nlp band_pass_thd failed", "10,11,8,5,4,3,1,0",
         bands<&EboNlpBand::band_pass_thd>},
        {"nlp", "super_est_factor", Call::CString, "find nlp super_est_factor failed",
         "6,10,12,13,14,15,16,-7", bands<&EboNlpBand::super_est_factor>},

        {"ainr", "status", Call::CString, "find ainr status failed", "enable", kNoField},
        {"ainr", "model_path", Call::CString, kOptional, "/opt/model.bin", at<&EboAiNRParam::model_path>},

        {"dereverb", "status", Call::CString, "find dereverb status failed", "enable", kNoField},
        {"dereverb", "rlsLg", Call::Int32, "find dereverb rlsLg failed", 4, at<&EboDereverbParam::rlsLg>},
        {"dereverb", "curveLg", Call::Int32, "find dereverb curveLg failed", 10,
         at<&EboDereverbParam::curveLg>},
        {"dereverb", "delay", Call::Int32, "find dereverb delay failed", 2, at<&EboDereverbParam::delay>},
        {"dereverb", "forgetting", Call::Float, "find dereverb forgetting failed", 0.98,
         at<&EboDereverbParam::forgetting>},
        {"dereverb", "t60", Call::Float, "find dereverb t60 failed", 0.45, at<&EboDereverbParam::t60>},
        {"dereverb", "coCoeff", Call::Float, "find dereverb coCoeff failed", 1.25,
         at<&EboDereverbParam::coCoeff>},

        {"cng", "status", Call::CString, "find cng status failed", "enable", kNoField},
        {"cng", "fGain", Call::Float, "find cng fGain failed", 12.5, at<&EboCngParam::fGain>},
        {"cng", "fMpy", Call::Float, "find cng fMpy failed", 18.0, at<&EboCngParam::fMpy>},
        {"cng", "fSmoothAlpha", Call::Float, "find cng fSmoothAlpha failed", 0.985,
         at<&EboCngParam::fSmoothAlpha>},
        {"cng", "fSpeechGain", Call::Float, "find cng fSpeechGain failed", 0.3,
         at<&EboCngParam::fSpeechGain>},

        {"dtd", "status", Call::CString, "find dtd status failed", "enable", kNoField},
        {"dtd", "ksiThd_high", Call::Float, "find dtd ksiThd_high failed", 0.62,
         at<&EboDtdParam::ksiThd_high>},
        {"dtd", "ksiThd_low", Call::Float, "find dtd ksiThd_low failed", 0.285, at<&EboDtdParam::ksiThd_low>},

        {"agc", "status", Call::CString, "find agc status failed", "enable", kNoField},
        {"agc", "attack_time", Call::Float, "find agc attack_time failed", 160.5,
         at<&EboAgcParam::attack_time>},
        {"agc", "release_time", Call::Float, "find agc release_time failed", 1800.0,
         at<&EboAgcParam::release_time>},
        {"agc", "attenuate_time", Call::Float, "find agc attenuate_time failed", 900.0,
         at<&EboAgcParam::attenuate_time>},
        {"agc", "max_gain", Call::Float, "find agc max_gain failed", 24.0, at<&EboAgcParam::max_gain>},
        {"agc", "max_peak", Call::Float, "find agc max_peak failed", -1.5, at<&EboAgcParam::max_peak>},
        {"agc", "fRth0", Call::Float, "find agc fRth0 failed", -48.0, at<&EboAgcParam::fRth0>},
        {"agc", "fRth1", Call::Float, "find agc fRth1 failed", -36.5, at<&EboAgcParam::fRth1>},
        {"agc", "fRth2", Call::Float, "find agc fRth2 failed", -18.0, at<&EboAgcParam::fRth2>},
        {"agc", "fRk0", Call::Float, "find agc fRk0 failed", 1.25, at<&EboAgcParam::fRk0>},
        {"agc", "fRk1", Call::Float, "find agc fRk1 failed", 0.8, at<&EboAgcParam::fRk1>},
        {"agc", "fRk2", Call::Float, "find agc fRk2 failed", 0.375, at<&EboAgcParam::fRk2>},
        {"agc", "fLineGainDb", Call::Float, "find agc fLineGainDb failed", -6.0,
         at<&EboAgcParam::fLineGainDb>},
        {"agc", "swSmL0", Call::Int32, "find agc swSmL0 failed", 40, at<&EboAgcParam::swSmL0>},
        {"agc", "swSmL1", Call::Int32, "find agc swSmL1 failed", 80, at<&EboAgcParam::swSmL1>},
        {"agc", "swSmL2", Call::Int32, "find agc swSmL2 failed", 96, at<&EboAgcParam::swSmL2>},
    };
    return keys;
}
// clang-format on
