#include "record_bytes.h"

#include <parse/loads.h>

#include <algorithm>
#include <cstring>

namespace {

// Takes a field out of a record that is about to be written, and returns what it pointed at.
template <typename Pointee>
Pointee* cut(Pointee*& field) {
    Pointee* pointee = field;
    field = nullptr;
    return pointee;
}

template <typename Record>
void append(std::string* bytes, const Record* record) {
    *bytes += record != nullptr ? '+' : '-';
    if (record != nullptr) bytes->append(reinterpret_cast<const char*>(record), sizeof *record);
}

void appendText(std::string* bytes, const char* text) {
    *bytes += text != nullptr ? '+' : '-';
    if (text != nullptr) bytes->append(text).push_back('\0');
}

void appendAec(std::string* bytes, const EboAecParam* from, size_t channels) {
    if (from == nullptr) return;
    EboAecParam aec;
    std::memcpy(static_cast<void*>(&aec), from, sizeof aec);
    const int16_t* map = cut(aec.Array_list);
    const EboDelayParam* delay = cut(aec.delay);
    append(bytes, &aec);
    if (map != nullptr) bytes->append(reinterpret_cast<const char*>(map), channels * sizeof *map);
    append(bytes, delay);
}

// What a record holds: all its bytes, or where texts hang on it, its numbers and the texts.
void appendModule(std::string* bytes, const EboSection& section, const char* record) {
    *bytes += record != nullptr ? '+' : '-';
    if (record == nullptr) return;
    const EboKeyRow* const end = section.rows + section.rowCount;
    const bool hasTexts =
        std::any_of(section.rows, end, [](const EboKeyRow& row) { return row.kind == EboKeyKind::Word; });
    if (!hasTexts) bytes->append(record, section.recordSize);
    for (const EboKeyRow* row = section.rows + 1; hasTexts && row < end; ++row) {
        if (row->kind == EboKeyKind::Word) {
            const char* text = nullptr;
            std::memcpy(&text, record + row->offset, sizeof text);
            appendText(bytes, text);
        } else {
            bytes->append(record + row->offset, sizeof(int32_t));
        }
    }
}

void appendBf(std::string* bytes, const EboBeamFormParam* from) {
    if (from == nullptr) return;
    EboBeamFormParam bf;
    std::memcpy(static_cast<void*>(&bf), from, sizeof bf);
    const EboLoad& load = kEboLoads[kEboBeamFormLoad];
    for (size_t i = 0; i < load.sectionCount; ++i) {
        const EboSection& section = *load.sections[i];
        if (section.container != EboContainer::Beamformer || section.recordSize == 0) continue;
        char* const slot = reinterpret_cast<char*>(&bf) + section.slot;
        const char* record = nullptr;
        std::memcpy(&record, slot, sizeof record);
        std::memset(slot, 0, sizeof record);
        appendModule(bytes, section, record);
    }
    append(bytes, &bf);
}

}  // namespace

std::string recordBytes(const KAEboParam& ebo, size_t channels) {
    std::string bytes(reinterpret_cast<const char*>(&ebo.model_en), sizeof ebo.model_en);
    appendAec(&bytes, ebo.aec, channels);
    appendBf(&bytes, ebo.bf);
    if (ebo.rx != nullptr) bytes += "rx";
    return bytes;
}
