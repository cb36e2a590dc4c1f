#include "model/places.h"

#include <algorithm>
#include <cctype>
#include <cstring>

namespace {

// A reader's name is that of its record but for these two: "parseEboAgcConfigs" fills an EboAgcParam.
std::string recordName(const EboSection& section) {
    if (section.recordSize == 0) return "";
    constexpr size_t kBefore = sizeof("parseEbo") - 1;
    constexpr size_t kAfter = sizeof("Configs") - 1;
    const std::string function = section.function;
    std::string name = function.substr(kBefore, function.size() - kBefore - kAfter);
    if (name == "Bf") name = "BeamForm";
    if (name == "AINR") name = "AiNR";
    return "Ebo" + name + "Param";
}

SectionPlace placeIn(const EboLoad& load, const EboSection& section) {
    SectionPlace place = {
        &section, &load, load.root, recordName(section), "", section.bit, eboMustLoad(load, section)};
    if (load.playback != 0) {
        place.mask = "rx.model_en";
        place.bit = static_cast<int32_t>(section.playbackBit);
    } else if (load.maskless != 0) {
        place.mask = "none";
    } else {
        place.mask = section.container == EboContainer::Root            ? "model_en"
                     : section.container == EboContainer::EchoCanceller ? "aec.model_aec_en"
                                                                        : "bf.model_en";
    }
    return place;
}

template <typename Record>
void* pointerIn(const Record* container, size_t slot) {
    void* record = nullptr;
    if (container != nullptr) std::memcpy(&record, fieldAt(container, slot), sizeof(record));
    return record;
}

}  // namespace

void* SectionPlace::recordOf(const Tuning& tuning) const {
    if (section->recordSize == 0) return nullptr;
    if (load->maskless != 0) return tuning.gain.get();
    if (load->playback != 0)
        return tuning.playback ? pointerIn(tuning.playback->rx, section->playbackSlot) : nullptr;
    if (!tuning.capture) return nullptr;
    switch (section->container) {
        case EboContainer::Root:
            return pointerIn(tuning.capture.get(), section->slot);
        case EboContainer::EchoCanceller:
            return pointerIn(tuning.capture->aec, section->slot);
        default:
            return pointerIn(tuning.capture->bf, section->slot);
    }
}

int32_t* SectionPlace::maskOf(const Tuning& tuning) const {
    if (load->maskless != 0) return const_cast<int32_t*>(&tuning.gainMask);
    if (load->playback != 0) return tuning.playback ? &tuning.playback->rx->model_en : nullptr;
    if (!tuning.capture) return nullptr;
    KAEboParam& ebo = *tuning.capture;
    switch (section->container) {
        case EboContainer::Root:
            return ebo.aec != nullptr && ebo.bf != nullptr ? &ebo.model_en : nullptr;
        case EboContainer::EchoCanceller:
            return ebo.aec != nullptr ? &ebo.aec->model_aec_en : nullptr;
        default:
            return ebo.bf != nullptr ? &ebo.bf->model_en : nullptr;
    }
}

bool SectionPlace::isIn(const Tuning& tuning) const {
    return isContainer() || load->maskless != 0 ? recordOf(tuning) != nullptr : maskOf(tuning) != nullptr;
}

const std::vector<const EboLoad*>& rootLoads() {
    static const std::vector<const EboLoad*> loads = [] {
        std::vector<const EboLoad*> all;
        for (const EboLoad& load : kEboLoads) {
            const auto sameRoot = [&load](const EboLoad* other) {
                return std::strcmp(other->root, load.root) == 0;
            };
            if (std::none_of(all.begin(), all.end(), sameRoot)) all.push_back(&load);
        }
        return all;
    }();
    return loads;
}

const std::vector<SectionPlace>& sectionPlaces() {
    static const std::vector<SectionPlace> places = [] {
        std::vector<SectionPlace> all;
        for (const EboLoad* load : rootLoads()) {
            for (size_t i = 0; i < load->sectionCount; ++i) all.push_back(placeIn(*load, *load->sections[i]));
        }
        return all;
    }();
    return places;
}

const std::vector<std::string>& rootNames() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all;
        for (const EboLoad* load : rootLoads()) all.emplace_back(load->root);
        return all;
    }();
    return names;
}

std::vector<std::string> sectionNames(const std::string& root) {
    std::vector<std::string> names;
    for (const SectionPlace& place : sectionPlaces()) {
        if (place.root == root) names.emplace_back(place.section->name);
    }
    return names;
}

std::vector<const SectionPlace*> placesOf(const EboSection& section) {
    std::vector<const SectionPlace*> places;
    for (const SectionPlace& place : sectionPlaces()) {
        if (place.section == &section) places.push_back(&place);
    }
    return places;
}

std::string nameOf(const SectionPlace& place) {
    const bool capture = place.load == rootLoads().front();
    return capture ? place.section->name : std::string(place.root) + "." + place.section->name;
}

std::string nameOf(const SectionPlace& place, const EboKeyRow& row) {
    return nameOf(place) + "." + row.key;
}

bool isEnabled(const SectionPlace& place, const Tuning& tuning) {
    const int32_t* mask = place.maskOf(tuning);
    return mask != nullptr && (*mask & place.bit) != 0;
}

KeyRows keysOf(const EboSection& section) {
    KeyRows keys;
    for (const EboKeyRow* row = section.rows + 1; row < section.rows + section.rowCount; ++row) {
        if (row->ifMissing != EboIfMissing::NoKey) keys.push_back(row);
    }
    return keys;
}

KeyRows fieldsWithoutKey(const EboSection& section) {
    KeyRows fields;
    for (const EboKeyRow* row = section.rows; row < section.rows + section.rowCount; ++row) {
        if (row->ifMissing == EboIfMissing::NoKey) fields.push_back(row);
    }
    return fields;
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

std::string fieldName(const EboKeyRow& row) {
    if (row.kind == EboKeyKind::Status || row.kind == EboKeyKind::MaskBit) return "";
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
