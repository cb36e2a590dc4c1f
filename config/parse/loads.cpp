#include "loads.h"

#include <cstring>
#include <iterator>

#include "section_reader.h"

namespace {

constexpr const EboSection* kCapturePath[] = {
#define EBO_LIST_SECTION(name) &kEbo##name##Section,
    EBO_SECTIONS(EBO_LIST_SECTION)
#undef EBO_LIST_SECTION
};
constexpr size_t kEchoCanceller = 2;  // of these sections; all others are the beamformer's
static_assert(kCapturePath[kEchoCanceller] == &kEboBfSection,
              "the beamformer comes after the echo canceller");
constexpr const EboSection* kPlaybackPath[] = {&kEboAnrSection, &kEboHowlSection};
constexpr const EboSection* kGainControl[] = {&kEboAgcSection};

// Where a section's record goes, and the mask that its reader is handed.
struct Place {
    int32_t* mask;
    void* container;
    size_t slot;
};

Place placeOf(const EboLoad& load, const EboSection& section, KAEboParam* ebo) {
    if (load.playback != 0) return {&ebo->rx->model_en, ebo->rx, section.playbackSlot};
    switch (section.container) {
        case EboContainer::Root:
            return {&ebo->model_en, ebo, section.slot};
        case EboContainer::EchoCanceller:
            return {&ebo->model_en, ebo->aec, section.slot};
        default:
            return {&ebo->bf->model_en, ebo->bf, section.slot};
    }
}

// Slots are typed pointers, so they are not written through a `void**`.
bool readInto(const Place& place, const char* root, void* parser, const EboSection& section) {
    void* const record = eboReadSection(parser, root, place.mask, section);
    if (section.recordSize > 0)
        std::memcpy(static_cast<char*>(place.container) + place.slot, &record, sizeof(record));
    return record != KA_NULL;
}

}  // namespace

// On purpose lenient but for the whole capture path: the others take a record that is not there.
// clang-format off
const EboLoad kEboLoads[] = {
    {"full", "ebo_configs", kCapturePath, std::size(kCapturePath), EboStrictness::All, 0, 0},
    {"aec", "ebo_configs", kCapturePath, kEchoCanceller, EboStrictness::First, 0, 0},
    {"beamform", "ebo_configs", kCapturePath + kEchoCanceller, std::size(kCapturePath) - kEchoCanceller, EboStrictness::First, 0, 0},
    {"ao", "ebo_ao_configs", kPlaybackPath, std::size(kPlaybackPath), EboStrictness::None, 1, 0},
    {"agc", "ebo_agc_configs", kGainControl, std::size(kGainControl), EboStrictness::First, 0, 1},
};
// clang-format on

bool eboMustLoad(const EboLoad& load, const EboSection& section) {
    if (load.strictness == EboStrictness::First) return load.sections[0] == &section;
    return load.strictness == EboStrictness::All && section.optional == 0;
}

bool eboReadSections(const EboLoad& load, void* parser, KAEboParam* ebo) {
    for (size_t i = 0; i < load.sectionCount; ++i) {
        const EboSection& section = *load.sections[i];
        const bool read = readInto(placeOf(load, section, ebo), load.root, parser, section);
        if (read && section.container == EboContainer::EchoCanceller) ebo->aec->model_aec_en |= section.bit;
        if (!read && eboMustLoad(load, section)) return false;
    }
    return true;
}
