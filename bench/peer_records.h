// Fills the records from a peer's open document the way a program without this library would: section by
// section and key by key in the order of the file, each looked up by its name. The names come from the
// library's own tables; storing and the row texts are done anew here.
//
// A Peer offers, and each returns false when there is no such thing:
//
//     bool enter(const char* section);                 a section of "ebo_configs", in which the keys then are
//     bool integer(const char* key, int* out);
//     bool number(const char* key, float* out);
//     bool text(const char* key, const char** out);    lives until the next call
#pragma once

#include <strings.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <ebo_lifecycle.h>
#include <parse/loads.h>
#include <parse/section_reader.h>

#include "loaders.h"

namespace peer_records {

void takeFloats(const char* text, float* row, int count);
void takeIntPair(const char* text, int16_t* row);
void takeBands(const char* text, int16_t* first, size_t stride);
void takeChannelMap(const char* text, EboAecParam* aec);

inline void takeText(const EboSection& section, const EboKeyRow& row, const char* text, char* record,
                     Rows rows) {
    if (rows == Rows::Scanner || row.kind == EboKeyKind::Word)
        return eboStoreText(section, row, text, record);
    switch (row.kind) {
        case EboKeyKind::FloatRow:
            return takeFloats(text, reinterpret_cast<float*>(record + row.offset), row.count);
        case EboKeyKind::IntRow:
            return takeIntPair(text, reinterpret_cast<int16_t*>(record + row.offset));
        case EboKeyKind::BandList:
            return takeBands(text, reinterpret_cast<int16_t*>(record + row.offset),
                             sizeof(EboNlpBand) / sizeof(int16_t));
        default:
            return takeChannelMap(text, reinterpret_cast<EboAecParam*>(record));
    }
}

template <typename Peer>
bool takeKey(Peer& peer, const EboSection& section, const EboKeyRow& row, char* record, int32_t* mask,
             Rows rows) {
    char* field = record + row.offset;
    int integer = 0;
    const char* text = nullptr;
    switch (row.kind) {
        case EboKeyKind::Int32:
            if (!peer.integer(row.key, &integer)) return false;
            *reinterpret_cast<int32_t*>(field) = integer;
            return true;
        case EboKeyKind::Int16:
            if (!peer.integer(row.key, &integer)) return false;
            *reinterpret_cast<int16_t*>(field) = static_cast<int16_t>(integer);
            return true;
        case EboKeyKind::MaskBit:
            if (!peer.integer(row.key, &integer)) return false;
            if (integer == 1) *mask |= 1 << row.offset;
            return true;
        case EboKeyKind::Flag:
            if (!peer.integer(row.key, &integer)) return false;
            *reinterpret_cast<int32_t*>(field) = integer != 0;
            return true;
        case EboKeyKind::Float:
            return peer.number(row.key, reinterpret_cast<float*>(field));
        default:
            if (!peer.text(row.key, &text)) return false;
            takeText(section, row, text, record, rows);
            return true;
    }
}

template <typename Peer>
bool takeKeys(Peer& peer, const EboSection& section, void* record, int32_t* mask, Rows rows) {
    for (uint16_t i = 1; i < section.rowCount; ++i) {
        const EboKeyRow& row = section.rows[i];
        const bool hasKey = row.ifMissing != EboIfMissing::NoKey;
        if (hasKey && takeKey(peer, section, row, static_cast<char*>(record), mask, rows)) continue;
        if (row.ifMissing == EboIfMissing::Fails) return false;
        if (row.text != nullptr)
            *reinterpret_cast<int32_t*>(static_cast<char*>(record) + row.offset) = std::atoi(row.text);
    }
    return true;
}

template <typename Peer>
bool enabled(Peer& peer, const EboSection& section, int32_t* mask) {
    const char* status = nullptr;
    if (!peer.enter(section.name) || !peer.text("status", &status)) return false;
    if (strcasecmp(status, "enable") != 0) return false;
    *mask |= section.bit;
    return true;
}

// A new record, or of a section without one the mask; null when a key is missing that is required, or the
// section leaves no record.
template <typename Peer>
void* take(Peer& peer, const EboSection& section, int32_t* mask, Rows rows) {
    int32_t lost = 0;
    const bool echo = section.container == EboContainer::EchoCanceller;
    const bool on = enabled(peer, section, echo ? &lost : mask);
    if (!on && section.whenDisabled == EboDisabled::LeavesNoRecord) return nullptr;
    void* record = section.recordSize > 0 ? std::calloc(1, section.recordSize) : nullptr;
    const bool reads = on || section.whenDisabled == EboDisabled::IsRead;
    if (!reads || takeKeys(peer, section, record, mask, rows)) return record != nullptr ? record : mask;
    std::free(record);
    return nullptr;
}

// The whole capture path of a complete file; null when it is not complete, and then what was built is lost.
template <typename Peer>
KAEboParam* fill(Peer& peer, Rows rows) {
    auto* ebo = static_cast<KAEboParam*>(std::calloc(1, sizeof(KAEboParam)));
    const EboLoad& load = kEboLoads[kEboFullLoad];
    for (size_t i = 0; i < load.sectionCount; ++i) {
        const EboSection& section = *load.sections[i];
        void* container = section.container == EboContainer::Root            ? static_cast<void*>(ebo)
                          : section.container == EboContainer::EchoCanceller ? static_cast<void*>(ebo->aec)
                                                                             : static_cast<void*>(ebo->bf);
        int32_t* mask = section.container == EboContainer::Beamformer ? &ebo->bf->model_en : &ebo->model_en;
        void* record = take(peer, section, mask, rows);
        if (record == nullptr && section.optional == 0) return nullptr;
        if (section.recordSize > 0)
            std::memcpy(static_cast<char*>(container) + section.slot, &record, sizeof(record));
        if (record != nullptr && section.container == EboContainer::EchoCanceller)
            ebo->aec->model_aec_en |= section.bit;
    }
    return ebo;
}

}  // namespace peer_records
