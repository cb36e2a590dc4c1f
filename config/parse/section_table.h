// How the tables of rows and sections are written: only the sources of the sections need it.
#pragma once

#include <cstddef>
#include <iterator>
#include <type_traits>

#include "ebo_log.h"
#include "section.h"

// The field's type chooses the conversion. A field of any other type does not compile.
template <typename Field>
constexpr EboKeyKind eboKindOf() {
    static_assert(
        std::is_same_v<Field, float> || std::is_same_v<Field, int32_t> || std::is_same_v<Field, int16_t>,
        "no key of a tuning file fills a field of this type");
    if (std::is_same_v<Field, float>) return EboKeyKind::Float;
    return std::is_same_v<Field, int16_t> ? EboKeyKind::Int16 : EboKeyKind::Int32;
}

// The same for a row of a table.
template <typename Row>
constexpr EboKeyKind eboRowKindOf() {
    using Number = std::remove_extent_t<Row>;
    static_assert(std::is_array_v<Row> && (std::is_same_v<Number, float> || std::is_same_v<Row, int16_t[2]>),
                  "no key of a tuning file fills a table of this type");
    return std::is_same_v<Number, float> ? EboKeyKind::FloatRow : EboKeyKind::IntRow;
}

// For the kinds that a type does not tell.
template <EboKeyKind kKind, typename Wanted, typename Field>
constexpr EboKeyKind eboKindFor() {
    static_assert(std::is_same_v<Field, Wanted>, "a key of this kind fills fields of another type");
    return kKind;
}

template <uint32_t kBit>
constexpr uint32_t eboBitNumber() {
    static_assert(kBit != 0 && (kBit & (kBit - 1)) == 0, "one bit");
    uint32_t number = 0;
    while (kBit >> number != 1) ++number;
    return number;
}

// The offset of a slot that holds records of this type.
template <typename Record, typename Container>
constexpr uint8_t eboSlot(Record* Container::* /*slot*/, size_t offset) {
    return static_cast<uint8_t>(offset);  // the containers have some hundred bytes
}

// The name of a reader that there is.
template <typename Result>
constexpr const char* eboReaderName(const char* name) {
    return name;
}

// Bytes of the field of a row; 0: no field of the record.
constexpr size_t eboRowBytes(const EboKeyRow& row) {
    switch (row.kind) {
        case EboKeyKind::Status:
        case EboKeyKind::MaskBit:
        case EboKeyKind::BandList:
            return 0;
        case EboKeyKind::Int16:
            return sizeof(int16_t);
        case EboKeyKind::IntRow:
            return row.count * sizeof(int16_t);
        case EboKeyKind::FloatRow:
            return row.count * sizeof(float);
        case EboKeyKind::Word:
        case EboKeyKind::ChannelMap:
            return sizeof(void*);
        default:
            return sizeof(int32_t);
    }
}

// Whether the reader can run on a table of rows: fields lie within the record, tables are whole and stand
// together, and what the table cannot say is said elsewhere. Asked of every section when it is compiled.
constexpr bool eboIsSound(const EboSection& section) {
    if (section.rowCount == 0) return false;
    size_t filled = 0;
    for (size_t i = 0; i < section.rowCount; ++i) {
        const EboKeyRow& row = section.rows[i];
        const bool last = i + 1 == section.rowCount;
        const bool inTable = row.kind == EboKeyKind::FloatRow || row.kind == EboKeyKind::IntRow;
        if ((row.kind == EboKeyKind::Status) != (i == 0)) return false;
        if (row.offset + eboRowBytes(row) > section.recordSize && eboRowBytes(row) > 0) return false;
        if (row.count > kEboRowNumbers && inTable) return false;
        if ((row.kind == EboKeyKind::BandList || row.kind == EboKeyKind::ChannelMap) &&
            section.special == nullptr)
            return false;
        if (row.ifMissing == EboIfMissing::Fails && row.text == nullptr) return false;
        if (row.ifMissing == EboIfMissing::Preset ||
            (row.ifMissing == EboIfMissing::NoKey && row.text != nullptr)) {
            if (row.kind != EboKeyKind::Int32 && row.kind != EboKeyKind::Int16) return false;
            for (const char* digit = row.text; *digit != '\0'; ++digit) {
                if (*digit < '0' || *digit > '9') return false;
            }
        }
        filled = inTable ? filled + eboRowBytes(row) : 0;
        if (filled > kEboTableBytes) return false;
        if (row.toCome == 0) {
            filled = 0;
            continue;
        }
        if (last || !inTable) return false;
        const EboKeyRow& next = section.rows[i + 1];
        if (next.kind != row.kind || next.count != row.count || next.toCome + 1 != row.toCome ||
            next.offset != row.offset + eboRowBytes(row))
            return false;
    }
    return true;
}
#define EBO_SOUND(section) static_assert(eboIsSound(section), "a row of the section is wrong")

// Constructors of rows. A row stands on one source line, so that its line is its own.
// clang-format off
#define EBO_ROW(key, text, ifMissing, kind, count, toCome, offset) {key, text, kind, EboIfMissing::ifMissing, count, toCome, __LINE__, offset}
#define EBO_STATUS(message)                        EBO_ROW("status", EBO_RED(message), Fails, EboKeyKind::Status, 0, 0, 0)
#define EBO_STATUS_OPTIONAL                        EBO_ROW("status", nullptr, Nothing, EboKeyKind::Status, 0, 0, 0)
#define EBO_FIELD(Record, field, text, ifMissing)  EBO_ROW(#field, text, ifMissing, eboKindOf<decltype(Record::field)>(), 0, 0, offsetof(Record, field))
#define EBO_NUMBER(Record, field, message)         EBO_FIELD(Record, field, EBO_RED(message), Fails)
#define EBO_NUMBER_OPTIONAL(Record, field)         EBO_FIELD(Record, field, nullptr, Nothing)
#define EBO_NUMBER_PRESET(Record, field, value)    EBO_FIELD(Record, field, #value, Preset)
#define EBO_NO_KEY(Record, field)                  EBO_FIELD(Record, field, nullptr, NoKey)
#define EBO_NO_KEY_BUT(Record, field, value)       EBO_FIELD(Record, field, #value, NoKey)
#define EBO_FLAG(Record, field, message)           EBO_ROW(#field, EBO_RED(message), Fails, (eboKindFor<EboKeyKind::Flag, int32_t, decltype(Record::field)>()), 0, 0, offsetof(Record, field))
#define EBO_MASK_BIT(key, bit, message)            EBO_ROW(key, EBO_RED(message), Fails, EboKeyKind::MaskBit, 0, 0, eboBitNumber<bit>())
#define EBO_WORD_OPTIONAL(Record, field)           EBO_ROW(#field, nullptr, Nothing, (eboKindFor<EboKeyKind::Word, char*, decltype(Record::field)>()), 0, 0, offsetof(Record, field))
#define EBO_TABLE_ROW(key, Record, place, toCome, message) EBO_ROW(key, EBO_RED(message), Fails, eboRowKindOf<EBO_TYPE_OF(Record, place)>(), std::extent_v<EBO_TYPE_OF(Record, place)>, toCome, offsetof(Record, place))
#define EBO_TEXT(key, kind, count, offset, message) EBO_ROW(key, EBO_RED(message), Fails, EboKeyKind::kind, count, 0, offset)
#define EBO_TEXT_OPTIONAL(key, kind, count, offset) EBO_ROW(key, nullptr, Nothing, EboKeyKind::kind, count, 0, offset)
#define EBO_TYPE_OF(Record, place) std::remove_reference_t<decltype(Record::place)>
// Constructors of sections: what all of them have. `slot` is the pointer to the record in its container.
#define EBO_READER(function, Result) eboReaderName<std::enable_if_t<std::is_same_v<decltype(function(nullptr, nullptr, nullptr)), Result>, Result>>(#function)
#define EBO_SECTION_OF(name, reader, rows, bit, bytes, container, offset, assertion) \
    EboSection{name, reader, rows, assertion, bit, std::size(rows), bytes, __LINE__, EboContainer::container, offset, 0, 0, 0, 0, EboDisabled::IsRead, nullptr, nullptr}
#define EBO_SLOT(Record, Container, slot) eboSlot<Record>(&Container::slot, offsetof(Container, slot))
#define EBO_SECTION(name, function, rows, Record, bit, container, Container, slot, assertion) \
    EBO_SECTION_OF(name, EBO_READER(function, Record*), rows, bit, sizeof(Record), container, EBO_SLOT(Record, Container, slot), assertion)
#define EBO_MODULE(name, function, rows, Record, bit, slot, assertion) \
    EBO_SECTION(name, function, rows, Record, bit, Beamformer, EboBeamFormParam, slot, assertion)
#define EBO_SWITCH(name, function, rows, bit) EBO_SECTION_OF(name, EBO_READER(function, int), rows, bit, 0, Beamformer, 0, nullptr)
// clang-format on
