// The parameter records of the voice pipeline and the bits of their enable masks.
//
// This is the contract with the signal-processing engine, which is compiled against the same records, in C99
// or C++17: the order and the width of every field are fixed. All records are plain; a pointer owns what it
// points at unless its comment says otherwise. A quoted word is the key of the tuning file that fills the
// field. Where only a key is named, meaning and unit are the engine's: the library carries the value
// unchanged.
#pragma once

#include <stdint.h>

// A number for the layout of the records, another one whenever a size or an offset changes. The library does
// not compile with a wrong one, and says which is right. eboLayout() of <ebo_version.h> gives the library's.
#define EBO_LAYOUT 239071389U

// ---- enable bits

// KAEboParam::model_en: which paths are configured.
enum {
    EBO_PATH_AEC = 0x1,  // echo canceller, section "aec"
    EBO_PATH_BF = 0x2,   // beamformer, section "bf"
    EBO_PATH_RX = 0x4,   // playback
};

// EboAecParam::model_aec_en
enum {
    EBO_AEC_DELAY = 0x1,    // a delay-estimator record is attached in `delay`
    EBO_AEC_CHN_MAP = 0x2,  // `Array_list` is a map from the file, owned by the record
};

// EboBeamFormParam::model_en: the modules of the capture chain. 0x200 and 0x2000 mean nothing.
enum {
    EBO_BF_FAST_AEC = 0x1,      // section "fast_aec"
    EBO_BF_WAKEUP = 0x2,        // section "wakeup"
    EBO_BF_DEREVERB = 0x4,      // section "dereverb"
    EBO_BF_NLP = 0x8,           // section "nlp"
    EBO_BF_AES = 0x10,          // section "aes"
    EBO_BF_AGC = 0x20,          // section "agc"
    EBO_BF_ANR = 0x40,          // section "anr" of the capture path
    EBO_BF_GSC = 0x80,          // section "gsc"
    EBO_BF_GSC_METHOD = 0x100,  // "method" of "gsc" is 1, whatever the section's status
    EBO_BF_DTD = 0x400,         // section "dtd"
    EBO_BF_CNG = 0x800,         // section "cng"
    EBO_BF_EQ = 0x1000,         // no section sets it
    EBO_BF_HOWL = 0x4000,       // section "howl" of the capture path
    EBO_BF_DOA = 0x8000,        // section "doa"
    EBO_BF_WIND = 0x10000,      // section "wind"
    EBO_BF_AINR = 0x20000,      // section "ainr"
};

// EboRxParam::model_en: the modules of the playback path. A name space of its own: 0x2 is not the wake-up
// here.
enum {
    EBO_RX_ANR = 0x1,   // section "anr" of the playback path
    EBO_RX_HOWL = 0x2,  // section "howl" of the playback path
};

// ---- module records of the capture path

// Section "delay": estimator of the delay between loudspeaker reference and microphones.
typedef struct EboDelayParam {
    int16_t MaxFrame;     // "MaxFrame"
    int16_t LeastDelay;   // no key fills it: 0 in every record that was read
    int16_t JumpFrame;    // "JumpFrame"
    int16_t DelayOffset;  // "DelayOffset"
    int16_t MicAmpThr;    // "MicAmpThr": microphone amplitude threshold
    int16_t RefAmpThr;    // "RefAmpThr": reference amplitude threshold
    int16_t StartFreq;    // "StartFreq": lower end of the band that is looked at
    int16_t EndFreq;      // "EndFreq": upper end of that band
    float SmoothFactor;   // "SmoothFactor"
} EboDelayParam;

// Section "wakeup": wake-word detection.
typedef struct EboWakeupParam {
    int32_t mode;  // "mode": 1 oneshot only, 2 wakeup + command, 3 both; any other is reported and kept
    int32_t wakeup_frames;  // "wakeup_frames": a count of frames; 180 when missing from keys that are read
    int32_t wakeup_words;   // "wakeup_words": number of wake words
    char* model_word1;      // "model_word1": null when missing or empty
    char* model_word2;      // "model_word2": null when missing or empty
} EboWakeupParam;

// Section "doa": direction-of-arrival estimation.
typedef struct EboDoaParam {
    float rad;             // "rad"
    int16_t start_freq;    // "start_freq"
    int16_t end_freq;      // "end_freq"
    int16_t lg_num;        // "lg_num"
    int16_t lg_pitch_num;  // "lg_pitch_num"
} EboDoaParam;

// Section "howl": howling (acoustic feedback) suppression, of either path.
typedef struct EboHowlParam {
    int16_t mode;  // "mode"
} EboHowlParam;

// ---- module records of the enhancement modules

// Section "anr": noise reduction, of either path.
typedef struct EboAnrParam {
    float noiseFactor;     // "noiseFactor"
    int32_t swU;           // "swU"
    float psiMin;          // "psiMin"
    float psiMax;          // "psiMax"
    float fGmin;           // "fGmin"
    int16_t Sup_Freq1;     // "Sup_Freq1"
    int16_t Sup_Freq2;     // "Sup_Freq2"
    float Sup_Energy1;     // "Sup_Energy1"
    float Sup_Energy2;     // "Sup_Energy2"
    int16_t InterV;        // "InterV"
    float BiasMin;         // "BiasMin"
    int16_t UpdateFrm;     // "UpdateFrm"
    float NPreGammaThr;    // "NPreGammaThr"
    float NPreZetaThr;     // "NPreZetaThr"
    float SabsGammaThr0;   // "SabsGammaThr0"
    float SabsGammaThr1;   // "SabsGammaThr1"
    float InfSmooth;       // "InfSmooth"
    float ProbSmooth;      // "ProbSmooth"
    float CompCoeff;       // "CompCoeff"
    float PrioriMin;       // "PrioriMin"
    float PostMax;         // "PostMax"
    float PrioriRatio;     // "PrioriRatio"
    float PrioriRatioLow;  // "PrioriRatioLow"
    int32_t SplitBand;     // "SplitBand"
    float PrioriSmooth;    // "PrioriSmooth"
    int16_t TranMode;      // "TranMode"
} EboAnrParam;

// Section "aes": acoustic echo suppression. A table's rows are the keys "<field>_0", "<field>_1" ...
typedef struct EboAesParam {
    float beta_up;                // "beta_up"
    float beta_down;              // "beta_down"
    float beta_up_low;            // "beta_up_low"
    float beta_down_low;          // "beta_down_low"
    int16_t low_freq;             // "low_freq"
    int16_t high_freq;            // "high_freq"
    int16_t thd_flag;             // "thd_flag"
    int16_t hard_flag;            // "hard_flag"
    float LimitRatio[2][3];       // "LimitRatio_0", "LimitRatio_1"
    int16_t ThdSplitFreq[4][2];   // "ThdSplitFreq_0" to "ThdSplitFreq_3"
    float ThdSupDegree[4][10];    // "ThdSupDegree_0" to "ThdSupDegree_3"
    int16_t HardSplitFreq[5][2];  // "HardSplitFreq_0" to "HardSplitFreq_4"
    float HardThreshold[4];       // "HardThreshold"
} EboAesParam;

// One band of the non-linear processing.
typedef struct EboNlpBand {
    int16_t band_pass_thd;     // the band's number in "band_pass_thd"
    int16_t super_est_factor;  // the band's number in "super_est_factor"
} EboNlpBand;

// Section "nlp": non-linear processing.
typedef struct EboNlpParam {
    EboNlpBand bands[8];  // band 0 first
} EboNlpParam;

// Section "ainr": neural noise reduction.
typedef struct EboAiNRParam {
    char* model_path;  // "model_path": the model's file, null when missing, empty or not enabled
} EboAiNRParam;

// Section "dereverb": dereverberation.
typedef struct EboDereverbParam {
    int32_t rlsLg;     // "rlsLg"
    int32_t curveLg;   // "curveLg"
    int32_t delay;     // "delay"
    float forgetting;  // "forgetting"
    float t60;         // "t60"
    float coCoeff;     // "coCoeff"
} EboDereverbParam;

// Section "cng": comfort-noise generation.
typedef struct EboCngParam {
    float fGain;         // "fGain": gain
    float fMpy;          // "fMpy": multiplier
    float fSmoothAlpha;  // "fSmoothAlpha": smoothing constant
    float fSpeechGain;   // "fSpeechGain": gain during speech
} EboCngParam;

// Section "dtd": double-talk detection.
typedef struct EboDtdParam {
    float ksiThd_high;  // "ksiThd_high": upper threshold
    float ksiThd_low;   // "ksiThd_low": lower threshold, not required to lie below the upper
} EboDtdParam;

// Section "agc": automatic gain control. On purpose not in the order of the keys.
typedef struct EboAgcParam {
    float attack_time;     // "attack_time"
    float release_time;    // "release_time"
    float max_gain;        // "max_gain": highest gain
    float max_peak;        // "max_peak": highest output peak
    float fRth0;           // "fRth0": level threshold 0
    float fRk0;            // "fRk0": coefficient 0
    float fRth1;           // "fRth1": level threshold 1
    int32_t sample_rate;   // no key: 16000 (Hz)
    int32_t frame_len;     // no key: 256 (samples)
    float attenuate_time;  // "attenuate_time"
    float fRth2;           // "fRth2": level threshold 2
    float fRk1;            // "fRk1": coefficient 1
    float fRk2;            // "fRk2": coefficient 2
    float fLineGainDb;     // "fLineGainDb": line gain, dB
    int32_t swSmL0;        // "swSmL0": first smoothing length
    int32_t swSmL1;        // "swSmL1": second smoothing length
    int32_t swSmL2;        // "swSmL2": third smoothing length
} EboAgcParam;

// ---- container records

// Section "aec": echo canceller.
typedef struct EboAecParam {
    int32_t pos;               // no key: 1 by default, 0 in a record that was read
    int32_t drop_ref_channel;  // "drop_ref_channel": 0, or 1 for any other value
    int32_t model_aec_en;      // EBO_AEC_ bits
    int32_t delay_len;         // "delay_len"
    int32_t look_ahead;        // "look_ahead"
    // "mic_chn_map": channel numbers, as many as the key's count says, owned with EBO_AEC_CHN_MAP. Without
    // that bit null in a record that was read, and the shared map `Array` in a default record.
    int16_t* Array_list;
    int16_t filter_len;    // "filter_len"
    EboDelayParam* delay;  // section "delay"; null when missing, incomplete or disabled
} EboAecParam;

// Section "bf": beamformer, and the modules that work on its output.
typedef struct EboBeamFormParam {
    int32_t model_en;            // EBO_BF_ bits
    int32_t ref_pos;             // no key: 1 by default, 0 in a record that was read
    int32_t targ;                // "targ"
    int32_t num_ref_channel;     // no key: 1 by default, 0 in a record that was read
    int32_t drop_ref_channel;    // "drop_ref_channel": 0, or 1 for any other value
    EboDereverbParam* dereverb;  // section "dereverb"
    EboAesParam* aes;            // section "aes"
    EboNlpParam* nlp;            // section "nlp"
    EboAnrParam* anr;            // section "anr"
    EboAgcParam* agc;            // section "agc"
    EboCngParam* cng;            // section "cng"
    EboDtdParam* dtd;            // section "dtd"
    void* reserved;              // never created, filled, printed or freed
    EboHowlParam* howl;          // section "howl"; null in a default record
    EboDoaParam* doa;            // section "doa"; null in a default record
    EboWakeupParam* wakeup;      // section "wakeup"; null in a default record
    EboAiNRParam* ainr;          // section "ainr"; null in a default record
} EboBeamFormParam;

// Playback path.
typedef struct EboRxParam {
    int32_t model_en;    // EBO_RX_ bits
    EboAnrParam* anr;    // section "anr" of the playback path; null when it failed
    EboHowlParam* howl;  // section "howl" of the playback path; null when it failed or by default
} EboRxParam;

// Root of one tuning.
typedef struct KAEboParam {
    int32_t model_en;      // EBO_PATH_ bits
    EboAecParam* aec;      // echo canceller
    EboBeamFormParam* bf;  // beamformer
    EboRxParam* rx;        // playback; null unless the playback path was loaded
} KAEboParam;
