#include "model/places.h"

#include <cctype>

namespace {

template <auto Slot>
void* ofRoot(const Tuning& tuning) {
    return tuning.capture ? tuning.capture.get()->*Slot : nullptr;
}
template <auto Slot>
void* ofBeamformer(const Tuning& tuning) {
    return tuning.capture && tuning.capture->bf != nullptr ? tuning.capture->bf->*Slot : nullptr;
}
template <auto Slot>
void* ofPlayback(const Tuning& tuning) {
    return tuning.playback ? tuning.playback->rx->*Slot : nullptr;
}
void* delayRecord(const Tuning& tuning) {
    return tuning.capture && tuning.capture->aec != nullptr ? tuning.capture->aec->delay : nullptr;
}
void* gainRecord(const Tuning& tuning) {
    return tuning.gain.get();
}
void* noRecord(const Tuning& /*tuning*/) {
    return nullptr;
}

int32_t* rootMask(const Tuning& tuning) {
    return tuning.capture ? &tuning.capture->model_en : nullptr;
}
int32_t* aecMask(const Tuning& tuning) {
    return tuning.capture && tuning.capture->aec != nullptr ? &tuning.capture->aec->model_aec_en : nullptr;
}
int32_t* bfMask(const Tuning& tuning) {
    return tuning.capture && tuning.capture->bf != nullptr ? &tuning.capture->bf->model_en : nullptr;
}
int32_t* playbackMask(const Tuning& tuning) {
    return tuning.playback ? &tuning.playback->rx->model_en : nullptr;
}
int32_t* gainMask(const Tuning& tuning) {
    return const_cast<int32_t*>(&tuning.gainMask);
}

SectionPlace inRoot(const EboSection& section, const char* record, void* (*recordOf)(const Tuning&)) {
    return {&section, kCaptureRoot, record, "model_en", section.bit, true, true, recordOf, rootMask};
}
SectionPlace inBeamformer(const EboSection& section, const char* record, void* (*recordOf)(const Tuning&)) {
    return {&section, kCaptureRoot, record, "bf.model_en", section.bit, true, true, recordOf, bfMask};
}
SectionPlace inPlayback(const EboSection& section, const char* record, void* (*recordOf)(const Tuning&)) {
    return {&section, kPlaybackRoot, record,   "rx.model_en", section.playbackBit,
            false,    true,          recordOf, playbackMask};
}

// The exceptions among the sections.
std::vector<SectionPlace> makePlaces() {
    SectionPlace delay = {
        &kEboDelaySection, kCaptureRoot, "EboDelayParam", "aec.model_aec_en", EBO_AEC_DELAY, false, false,
        delayRecord,       aecMask};
    SectionPlace wakeup =
        inBeamformer(kEboWakeupSection, "EboWakeupParam", ofBeamformer<&EboBeamFormParam::wakeup>);
    wakeup.required = false;
    wakeup.readWhenDisabled = false;
    SectionPlace ainr = inBeamformer(kEboAinrSection, "EboAiNRParam", ofBeamformer<&EboBeamFormParam::ainr>);
    ainr.readWhenDisabled = false;
    const SectionPlace gain = {&kEboAgcSection, kGainRoot, "EboAgcParam", "none", EBO_BF_AGC, true, true,
                               gainRecord,      gainMask};
    return {
        inRoot(kEboAecSection, "EboAecParam", ofRoot<&KAEboParam::aec>),
        delay,
        inRoot(kEboBfSection, "EboBeamFormParam", ofRoot<&KAEboParam::bf>),
        inBeamformer(kEboFastAecSection, nullptr, noRecord),
        inBeamformer(kEboGscSection, nullptr, noRecord),
        inBeamformer(kEboWindSection, nullptr, noRecord),
        inBeamformer(kEboAgcSection, "EboAgcParam", ofBeamformer<&EboBeamFormParam::agc>),
        inBeamformer(kEboAnrSection, "EboAnrParam", ofBeamformer<&EboBeamFormParam::anr>),
        inBeamformer(kEboNlpSection, "EboNlpParam", ofBeamformer<&EboBeamFormParam::nlp>),
        inBeamformer(kEboDereverbSection, "EboDereverbParam", ofBeamformer<&EboBeamFormParam::dereverb>),
        inBeamformer(kEboCngSection, "EboCngParam", ofBeamformer<&EboBeamFormParam::cng>),
        inBeamformer(kEboDtdSection, "EboDtdParam", ofBeamformer<&EboBeamFormParam::dtd>),
        inBeamformer(kEboAesSection, "EboAesParam", ofBeamformer<&EboBeamFormParam::aes>),
        inBeamformer(kEboHowlSection, "EboHowlParam", ofBeamformer<&EboBeamFormParam::howl>),
        inBeamformer(kEboDoaSection, "EboDoaParam", ofBeamformer<&EboBeamFormParam::doa>),
        wakeup,
        ainr,
        inPlayback(kEboAnrSection, "EboAnrParam", ofPlayback<&EboRxParam::anr>),
        inPlayback(kEboHowlSection, "EboHowlParam", ofPlayback<&EboRxParam::howl>),
        gain,
    };
}

// Fields that no key fills.
struct FieldWithoutKey {
    const EboSection* section;
    EboKeyRow row;
    const char* loaded;  // value in a loaded record
};
const FieldWithoutKey kFieldsWithoutKey[] = {
    {&kEboAecSection, EBO_NUMBER_OPTIONAL(EboAecParam, pos), "0"},
    {&kEboDelaySection, EBO_NUMBER_OPTIONAL(EboDelayParam, LeastDelay), "0"},
    {&kEboBfSection, EBO_NUMBER_OPTIONAL(EboBeamFormParam, ref_pos), "0"},
    {&kEboBfSection, EBO_NUMBER_OPTIONAL(EboBeamFormParam, num_ref_channel), "0"},
    {&kEboAgcSection, EBO_NUMBER_OPTIONAL(EboAgcParam, sample_rate), "16000"},
    {&kEboAgcSection, EBO_NUMBER_OPTIONAL(EboAgcParam, frame_len), "256"},
};

}  // namespace

const std::vector<SectionPlace>& sectionPlaces() {
    static const std::vector<SectionPlace> places = makePlaces();
    return places;
}

std::string nameOf(const SectionPlace& place) {
    const bool capture = place.root == kCaptureRoot;
    return capture ? place.section->name : std::string(place.root) + "." + place.section->name;
}

std::string nameOf(const SectionPlace& place, const EboKeyRow& row) {
    return nameOf(place) + "." + row.key;
}

bool isEnabled(const SectionPlace& place, const Tuning& tuning) {
    const int32_t* mask = place.maskOf(tuning);
    return mask != nullptr && (*mask & place.bit) != 0;
}

std::vector<const EboKeyRow*> keysOf(const EboSection& section) {
    std::vector<const EboKeyRow*> keys;
    for (const EboKeyRow* row = section.rows + 1; row < section.rows + section.rowCount; ++row) {
        keys.push_back(row);
    }
    return keys;
}

std::vector<const EboKeyRow*> fieldsWithoutKey(const EboSection& section) {
    std::vector<const EboKeyRow*> fields;
    for (const FieldWithoutKey& field : kFieldsWithoutKey) {
        if (field.section == &section) fields.push_back(&field.row);
    }
    return fields;
}

const char* loadedValueOf(const EboKeyRow& fieldWithoutKey) {
    for (const FieldWithoutKey& field : kFieldsWithoutKey) {
        if (&field.row == &fieldWithoutKey) return field.loaded;
    }
    return "";
}

bool isReadWhenDisabled(const EboSection& section) {
    const std::vector<SectionPlace>& places = sectionPlaces();
    return std::all_of(places.begin(), places.end(), [&section](const SectionPlace& place) {
        return place.section != &section || place.readWhenDisabled;
    });
}

bool isMethod(const SectionPlace& place, const EboKeyRow& row) {
    return place.section == &kEboGscSection && row.kind != EboKeyKind::Status;
}

Numbers numbersOf(const EboKeyRow& row) {
    switch (row.kind) {
        case EboKeyKind::Int32:
        case EboKeyKind::Flag:
            return {EboKeyKind::Int32, row.offset, sizeof(int32_t), 1};
        case EboKeyKind::Int16:
            return {EboKeyKind::Int16, row.offset, sizeof(int16_t), 1};
        case EboKeyKind::Float:
            return {EboKeyKind::Float, row.offset, sizeof(float), 1};
        case EboKeyKind::FloatRow:
            return {EboKeyKind::Float, row.offset, sizeof(float), row.count};
        case EboKeyKind::IntRow:
            return {EboKeyKind::Int16, row.offset, sizeof(int16_t), row.count};
        case EboKeyKind::BandList:
            return {EboKeyKind::Int16, row.offset, sizeof(EboNlpBand), row.count};
        default:
            return {EboKeyKind::Int16, 0, 0, 0};
    }
}

std::string fieldName(const SectionPlace& place, const EboKeyRow& row) {
    if (row.kind == EboKeyKind::Status || isMethod(place, row)) return "";
    if (row.kind == EboKeyKind::ChannelMap) return "Array_list";
    std::string name = row.key;
    if (row.kind == EboKeyKind::BandList) return "bands[]." + name;
    const size_t end = name.size();
    const bool inTable = row.kind == EboKeyKind::FloatRow || row.kind == EboKeyKind::IntRow;
    if (inTable && end > 2 && name[end - 2] == '_' &&
        std::isdigit(static_cast<unsigned char>(name[end - 1]))) {
        name = name.substr(0, end - 2) + "[" + name[end - 1] + "]";
    }
    return name;
}
