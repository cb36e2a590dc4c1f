#include "model/module_dump.h"

#include <algorithm>

namespace {

// The lines of `all` that `fewer` lacks, given that they stand together and after the first `head` lines,
// which show the mask and so differ as well.
DumpLines block(const DumpLines& all, const DumpLines& fewer, size_t head) {
    const auto skip = static_cast<std::ptrdiff_t>(head);
    const auto begin = std::mismatch(fewer.begin() + skip, fewer.end(), all.begin() + skip, all.end()).second;
    return {begin, begin + static_cast<std::ptrdiff_t>(all.size() - fewer.size())};
}

// What `Dump` prints of a container's record under another mask. The record is copied, what it points at is
// not.
template <auto Mask, auto Dump, typename Container>
DumpLines linesWith(const Container* container, int32_t mask) {
    if (container == nullptr) return {};
    Container copy = *container;
    copy.*Mask = mask;
    return dumpLines([&copy] { Dump(&copy); });
}

template <auto Mask, auto Dump, typename Container>
DumpLines linesOfBit(const Container* container, int32_t bit) {
    if (container == nullptr) return {};
    const int32_t mask = container->*Mask;
    const size_t head = linesWith<Mask, Dump>(container, 0).size() - 1;  // without the closing line
    return block(linesWith<Mask, Dump>(container, mask), linesWith<Mask, Dump>(container, mask & ~bit), head);
}

}  // namespace

DumpLines linesOfSection(const SectionPlace& place, const Tuning& tuning) {
    constexpr auto kAecMask = &EboAecParam::model_aec_en;
    constexpr auto kBfMask = &EboBeamFormParam::model_en;
    if (place.load->maskless != 0) return {};
    if (place.load->playback != 0) {
        return linesOfBit<&EboRxParam::model_en, dumpEboAoConfig>(tuning.playback->rx, place.bit);
    }
    const KAEboParam& ebo = *tuning.capture;
    switch (place.section->container) {
        case EboContainer::Root:
            return place.section->slot == offsetof(KAEboParam, aec)
                       ? linesWith<kAecMask, dumpEboAecConfig>(ebo.aec, 0)
                       : linesWith<kBfMask, dumpEboBeamFormConfig>(ebo.bf, 0);
        case EboContainer::EchoCanceller:
            return linesOfBit<kAecMask, dumpEboAecConfig>(ebo.aec, place.bit);
        default:
            break;
    }
    // A bit of a key's own heads the block, and not the status.
    int32_t bit = place.bit;
    for (const EboKeyRow* row : keysOf(*place.section)) {
        if (row->kind == EboKeyKind::MaskBit) bit = bitOf(*row);
    }
    return linesOfBit<kBfMask, dumpEboBeamFormConfig>(ebo.bf, bit);
}

DumpLines linesOfLoad(const EboLoad& load, const Tuning& tuning) {
    if (load.maskless != 0) {
        EboBeamFormParam bf = {};
        bf.model_en = EBO_BF_AGC;
        bf.agc = tuning.gain.get();
        const DumpLines lines = dumpLines([&bf] { dumpEboBeamFormConfig(&bf); });
        return {std::find(lines.begin(), lines.end(), "agc:"), lines.end() - 1};
    }
    return dumpLines([&] {
        if (load.playback != 0) return dumpEboAoConfig(tuning.playback->rx);
        if (tuning.capture->aec != nullptr) dumpEboAecConfig(tuning.capture->aec);
        if (tuning.capture->bf != nullptr) dumpEboBeamFormConfig(tuning.capture->bf);
    });
}
