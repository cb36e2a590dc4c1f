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
bool takeKey(Peer& peer, const EboSection& section, const EboKeyRow& row, char* record, Rows rows) {
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
bool takeKeys(Peer& peer, const EboSection& section, void* record, Rows rows) {
    for (uint16_t i = 1; i < section.rowCount; ++i) {
        const EboKeyRow& row = section.rows[i];
        if (!takeKey(peer, section, row, static_cast<char*>(record), rows) && row.missing != nullptr)
            return false;
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

template <typename Record>
Record* make() {
    return static_cast<Record*>(std::calloc(1, sizeof(Record)));
}

// A section that is read whether enabled or not; null when a key is missing.
template <typename Record, typename Peer>
Record* take(Peer& peer, const EboSection& section, int32_t* mask, Rows rows) {
    enabled(peer, section, mask);
    auto* record = make<Record>();
    if (takeKeys(peer, section, record, rows)) return record;
    std::free(record);
    return nullptr;
}

// The whole capture path of a complete file; null when it is not complete, and then what was built is lost.
template <typename Peer>
KAEboParam* fill(Peer& peer, Rows rows) {
    auto* ebo = make<KAEboParam>();
    ebo->aec = take<EboAecParam>(peer, kEboAecSection, &ebo->model_en, rows);
    if (ebo->aec == nullptr) return nullptr;
    if (int32_t none = 0; enabled(peer, kEboDelaySection, &none)) {
        ebo->aec->delay = make<EboDelayParam>();
        if (!takeKeys(peer, kEboDelaySection, ebo->aec->delay, rows)) return nullptr;
        ebo->aec->model_aec_en |= EBO_AEC_DELAY;
    }
    auto* bf = ebo->bf = take<EboBeamFormParam>(peer, kEboBfSection, &ebo->model_en, rows);
    if (bf == nullptr) return nullptr;
    int32_t* mask = &bf->model_en;
    enabled(peer, kEboFastAecSection, mask);
    enabled(peer, kEboGscSection, mask);
    if (int method = 0; peer.integer("method", &method) && method == 1) *mask |= EBO_BF_GSC_METHOD;
    enabled(peer, kEboWindSection, mask);
    bf->agc = take<EboAgcParam>(peer, kEboAgcSection, mask, rows);
    bf->anr = take<EboAnrParam>(peer, kEboAnrSection, mask, rows);
    bf->nlp = take<EboNlpParam>(peer, kEboNlpSection, mask, rows);
    bf->dereverb = take<EboDereverbParam>(peer, kEboDereverbSection, mask, rows);
    bf->cng = take<EboCngParam>(peer, kEboCngSection, mask, rows);
    bf->dtd = take<EboDtdParam>(peer, kEboDtdSection, mask, rows);
    bf->aes = take<EboAesParam>(peer, kEboAesSection, mask, rows);
    bf->howl = take<EboHowlParam>(peer, kEboHowlSection, mask, rows);
    bf->doa = take<EboDoaParam>(peer, kEboDoaSection, mask, rows);
    bf->wakeup = make<EboWakeupParam>();
    if (enabled(peer, kEboWakeupSection, mask)) {
        bf->wakeup->wakeup_frames = 180;
        takeKeys(peer, kEboWakeupSection, bf->wakeup, rows);
    }
    bf->ainr = make<EboAiNRParam>();
    if (enabled(peer, kEboAinrSection, mask)) takeKeys(peer, kEboAinrSection, bf->ainr, rows);
    if (bf->agc == nullptr || bf->anr == nullptr || bf->nlp == nullptr || bf->dereverb == nullptr ||
        bf->cng == nullptr || bf->dtd == nullptr || bf->aes == nullptr || bf->howl == nullptr ||
        bf->doa == nullptr) {
        return nullptr;
    }
    bf->agc->sample_rate = 16000;
    bf->agc->frame_len = 256;
    return ebo;
}

}  // namespace peer_records
