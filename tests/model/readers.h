// The section readers of the model. Each fills its record, which is all zero before, ORs its bit into the mask,
// and returns whether the reader succeeds.
#pragma once

#include "model/section.h"

namespace model {

class Readers {
public:
    Readers(const Value& document, std::string root, Expectation& expectation)
        : document_(document), root_(std::move(root)), expectation_(expectation) {}

    bool aec(EboAecParam& r, int32_t& mask);
    bool delay(EboDelayParam& r);
    bool bf(EboBeamFormParam& r, int32_t& mask);
    bool fastAec(int32_t& mask);
    bool gsc(int32_t& mask);
    bool wind(int32_t& mask);
    bool agc(EboAgcParam& r, int32_t& mask);
    bool anr(EboAnrParam& r, int32_t& mask);
    bool nlp(EboNlpParam& r, int32_t& mask);
    bool dereverb(EboDereverbParam& r, int32_t& mask);
    bool cng(EboCngParam& r, int32_t& mask);
    bool dtd(EboDtdParam& r, int32_t& mask);
    bool aes(EboAesParam& r, int32_t& mask);
    bool howl(EboHowlParam& r, int32_t& mask);
    bool doa(EboDoaParam& r, int32_t& mask);
    bool wakeup(EboWakeupParam& r, int32_t& mask);
    bool ainr(EboAiNRParam& r, int32_t& mask);

private:
    Section open(const std::string& name, const std::string& function);
    bool playback() const { return root_ == "ebo_ao_configs"; }
    void channelMap(Section& in, EboAecParam& r);

    const Value& document_;
    const std::string root_;
    Expectation& expectation_;
};

}  // namespace model
