// Filled records, every block named after its place, and what becomes of them.
#pragma once

#include <ebo_config.h>

#include <cstring>

#include "harness/expect.h"
#include "harness/trace.h"

template <typename Record>
Record* make(const char* name) {
    return static_cast<Record*>(ka_mem_malloc(sizeof(Record), name));
}

inline EboWakeupParam* makeWakeup() {
    auto* wakeup = make<EboWakeupParam>("wakeup");
    wakeup->model_word1 = strdup("first");
    wakeup->model_word2 = strdup("second");
    return wakeup;
}

inline EboAiNRParam* makeAiNR() {
    auto* ainr = make<EboAiNRParam>("ainr");
    ainr->model_path = strdup("path");
    return ainr;
}

inline EboAecParam* makeAec() {
    auto* aec = make<EboAecParam>("aec");
    aec->Array_list = static_cast<int16_t*>(ka_mem_malloc(2 * sizeof(int16_t), "map"));
    aec->delay = make<EboDelayParam>("delay");
    return aec;
}

inline EboBeamFormParam* makeBeamForm() {
    auto* bf = make<EboBeamFormParam>("bf");
    bf->dereverb = make<EboDereverbParam>("dereverb");
    bf->aes = make<EboAesParam>("aes");
    bf->nlp = make<EboNlpParam>("nlp");
    bf->anr = make<EboAnrParam>("anr");
    bf->agc = make<EboAgcParam>("agc");
    bf->cng = make<EboCngParam>("cng");
    bf->dtd = make<EboDtdParam>("dtd");
    bf->howl = make<EboHowlParam>("howl");
    bf->doa = make<EboDoaParam>("doa");
    bf->wakeup = makeWakeup();
    bf->ainr = makeAiNR();
    return bf;
}

inline EboRxParam* makeRx() {
    auto* rx = make<EboRxParam>("rx");
    rx->anr = make<EboAnrParam>("anr");
    rx->howl = make<EboHowlParam>("howl");
    return rx;
}

// How each is released whole.
inline const std::vector<std::string> kAecReleases = {
    "safe_free delay by destroyEboDelayConfig",
    "safe_free map by destroyEboAecConfig",
    "safe_free aec by destroyEboAecConfig",
};

inline const std::vector<std::string> kBeamFormReleases = {
    "safe_free dereverb by destroyEboDereverbConfig", "safe_free nlp by destroyEboNlpConfig",
    "safe_free anr by destroyEboAnrConfig",           "safe_free agc by destroyEboAgcConfig",
    "safe_free cng by destroyEboCngConfig",           "safe_free dtd by destroyEboDtdConfig",
    "safe_free aes by destroyEboAesConfig",           "safe_free howl by destroyEboHowlConfig",
    "safe_free doa by destroyEboDoaConfig",           "safe_free first by destroyEboWakeupConfig",
    "safe_free second by destroyEboWakeupConfig",     "safe_free wakeup by destroyEboWakeupConfig",
    "safe_free path by destroyEboAiNRConfig",         "safe_free ainr by destroyEboAiNRConfig",
    "safe_free bf by destroyEboBeamFormConfig",
};

inline const std::vector<std::string> kRxReleases = {
    "safe_free anr by destroyEboAnrConfig",
    "safe_free howl by destroyEboHowlConfig",
    "safe_free rx by destroyEboRxConfig",
};

// What was released, and that it was done in silence.
inline void expectReleases(Host& host, const std::vector<std::string>& want) {
    EXPECT_THAT(host.log(), testing::IsEmpty());
    if constexpr (Host::kRecords) {
        EXPECT_EQ(releases(host.recorder()), want);
    }
}

// Every pointer that was handed to a release, null included.
inline void expectReleaseCalls(Host& host, const std::vector<std::string>& want) {
    if constexpr (Host::kRecords) {
        EXPECT_EQ(calls(host.recorder(), {ka_recording::Op::SafeFree, ka_recording::Op::Free}), want);
    }
}
