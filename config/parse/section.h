// The sections of a tuning file as data: one row per key. The readers run on these tables, and everything else
// that wants to know the keys enumerates them from kEboLoads (loads.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <type_traits>

#include "ebo_log.h"
#include "ebo_params.h"

// What a key holds, and how it gets into the record.
enum class EboKeyKind : uint32_t {
    Status,      // text: "enable" in any case sets the section's bit; no field
    Int32,       // integer
    Int16,       // integer, of which the low 16 bits are stored
    Flag,        // integer, stored as 1 when it is not zero, else as 0
    MaskBit,     // integer: 1 sets the bit of this number in the mask; no field
    Float,       // number
    FloatRow,    // text: `count` numbers separated by blanks
    IntRow,      // text: two integers separated by blanks, of which the low 16 bits are stored
    Word,        // text, copied; an empty one counts as none
    BandList,    // text: `count` integers separated by commas, one for each EboNlpBand, stored by the section
    ChannelMap,  // text: "<number of channels> chn;map:<channel>,<channel> ...", `count` channels at the most,
                 // stored by the section
};

// What a missing key means, and with it the row's `text`.
enum class EboIfMissing : uint32_t {
    Fails,    // the section fails; `text` is the whole log format
    Nothing,  // the field stays as it is; no `text`
    Preset,   // the field holds the integer that `text` spells
    NoKey,    // the same, always: no key of the file fills the field
};

// One key, read top to bottom: the order of the rows is the order of the lookups and so of the error
// messages. The numbers are packed for the flash of a device; compilers warn of one that does not fit.
struct EboKeyRow {
    const char* key;  // spelling in the tuning file
    const char* text;
    EboKeyKind kind : 4;
    EboIfMissing ifMissing : 2;
    uint32_t count : 5;   // numbers in the text
    uint32_t toCome : 3;  // rows of the same table after this one: a table is stored with its last row
    uint32_t line : 9;    // the row's own source line: the log points at the row
    uint32_t offset : 9;  // of the field in the section's record; the number of a mask's bit
};

// Which record of the tree holds a section's record, and by that the mask that takes its bit.
enum class EboContainer : uint32_t {
    Root,           // KAEboParam, its `model_en`
    EchoCanceller,  // EboAecParam, its `model_aec_en`: the loaders set the bit once there is a record
    Beamformer,     // EboBeamFormParam, its `model_en`
};

// What the reader makes of a section that is not enabled.
enum class EboDisabled : uint32_t {
    IsRead,          // all of it, as of one that is
    LeavesZeros,     // a zero record: the keys are not looked at
    LeavesNoRecord,  // nothing
    GoesByMask,      // a zero record, unless the section's bit was set in the mask before
};

struct EboSection {
    // What the table cannot say of a key: `text` is its value when it is a list or a map, null otherwise and when
    // the key is missing. Called for each key of the section when its turn is over.
    using Special = void (*)(const EboSection& section, const EboKeyRow& row, const char* text, void* record);

    const char* name;       // spelling in the tuning file
    const char* function;   // name of the section's reader, for log lines
    const EboKeyRow* rows;  // the first is the status
    const char* assertion;  // expression that fails when the record cannot be allocated; null: no record
    int32_t bit;            // of an enabled section
    uint32_t rowCount : 8;
    uint32_t recordSize : 12;  // bytes; 0: no record
    uint32_t line : 9;         // of the section itself, for log lines that are no key's
    EboContainer container : 2;
    uint32_t slot : 8;  // offset of the record's pointer in its container
    // What only some sections have.
    uint32_t playbackSlot : 8;  // the same in EboRxParam
    uint32_t optional : 1;      // the load of a whole file goes on without it
    EboDisabled whenDisabled : 2;
    int32_t playbackBit;     // the bit in the playback mask; 0: no section of the playback path
    const char* notEnabled;  // information line about a disabled section; null: nothing is said
    Special special;         // null: the table says it all

    constexpr EboSection onPlayback(int32_t itsBit, size_t itsSlot) const {
        EboSection section = *this;
        section.playbackBit = itsBit;
        section.playbackSlot = static_cast<uint8_t>(itsSlot);
        return section;
    }
    constexpr EboSection disabled(EboDisabled becomes, const char* message = nullptr) const {
        EboSection section = *this;
        section.whenDisabled = becomes;
        section.notEnabled = message;
        return section;
    }
    constexpr EboSection isOptional() const {
        EboSection section = *this;
        section.optional = 1;
        return section;
    }
    constexpr EboSection with(Special itsSpecial) const {
        EboSection section = *this;
        section.special = itsSpecial;
        return section;
    }
};

// The sections of "ebo_configs" in the order in which a whole file is read.
// clang-format off
#define EBO_SECTIONS(SECTION) \
    SECTION(Aec) SECTION(Delay) SECTION(Bf) SECTION(FastAec) SECTION(Gsc) SECTION(Wind) SECTION(Agc) SECTION(Anr) \
    SECTION(Nlp) SECTION(Dereverb) SECTION(Cng) SECTION(Dtd) SECTION(Aes) SECTION(Howl) SECTION(Doa) SECTION(Wakeup) \
    SECTION(Ainr)
#define EBO_DECLARE_SECTION(name) extern const EboSection kEbo##name##Section;
EBO_SECTIONS(EBO_DECLARE_SECTION)
#undef EBO_DECLARE_SECTION
// clang-format on

// The field's type chooses the conversion. A field of any other type does not compile.
template <typename Field>
constexpr EboKeyKind eboKindOf() {
    static_assert(
        std::is_same_v<Field, float> || std::is_same_v<Field, int32_t> || std::is_same_v<Field, int16_t>,
        "no key of a tuning file fills a field of this type");
    if (std::is_same_v<Field, float>) return EboKeyKind::Float;
    return std::is_same_v<Field, int16_t> ? EboKeyKind::Int16 : EboKeyKind::Int32;
}

// The same for a row of a table. The reader's stack has room for tables of so many bytes.
constexpr size_t kEboTableBytes = 160;
template <typename Row, size_t kToCome>
constexpr EboKeyKind eboRowKindOf() {
    using Number = std::remove_extent_t<Row>;
    static_assert(std::is_array_v<Row> && (std::is_same_v<Number, float> || std::is_same_v<Row, int16_t[2]>),
                  "no key of a tuning file fills a table of this type");
    static_assert((kToCome + 1) * sizeof(Row) <= kEboTableBytes,
                  "the reader has no room for so large a table");
    return std::is_same_v<Number, float> ? EboKeyKind::FloatRow : EboKeyKind::IntRow;
}

// For the kinds that a type does not tell.
template <EboKeyKind kKind, typename Wanted, typename Field>
constexpr EboKeyKind eboKindFor() {
    static_assert(std::is_same_v<Field, Wanted>, "a key of this kind fills fields of another type");
    return kKind;
}

constexpr uint32_t eboBitNumber(uint32_t bit) {
    return bit > 1 ? eboBitNumber(bit >> 1) + 1 : 0;
}

// Constructors of rows. A row stands on one source line, so that its line is its own.
// clang-format off
#define EBO_ROW(key, text, ifMissing, kind, count, toCome, offset) {key, text, kind, EboIfMissing::ifMissing, count, toCome, __LINE__, offset}
#define EBO_STATUS(message)                        EBO_ROW("status", EBO_RED(message), Fails, EboKeyKind::Status, 0, 0, 0)
#define EBO_STATUS_OPTIONAL                        EBO_ROW("status", nullptr, Nothing, EboKeyKind::Status, 0, 0, 0)
#define EBO_FIELD(Record, field, text, ifMissing)  EBO_ROW(#field, text, ifMissing, eboKindOf<decltype(Record::field)>(), 0, 0, offsetof(Record, field))
#define EBO_NUMBER(Record, field, message)         EBO_FIELD(Record, field, EBO_RED(message), Fails)
#define EBO_NUMBER_OPTIONAL(Record, field)         EBO_FIELD(Record, field, nullptr, Nothing)
#define EBO_NUMBER_PRESET(Record, field, value)    EBO_FIELD(Record, field, #value, Preset)
#define EBO_NO_KEY(Record, field, value)           EBO_FIELD(Record, field, #value, NoKey)
#define EBO_FLAG(Record, field, message)           EBO_ROW(#field, EBO_RED(message), Fails, (eboKindFor<EboKeyKind::Flag, int32_t, decltype(Record::field)>()), 0, 0, offsetof(Record, field))
#define EBO_MASK_BIT(key, bit, message)            EBO_ROW(key, EBO_RED(message), Fails, EboKeyKind::MaskBit, 0, 0, eboBitNumber(bit))
#define EBO_WORD_OPTIONAL(Record, field)           EBO_ROW(#field, nullptr, Nothing, (eboKindFor<EboKeyKind::Word, char*, decltype(Record::field)>()), 0, 0, offsetof(Record, field))
#define EBO_TABLE_ROW(key, Record, place, toCome, message) EBO_ROW(key, EBO_RED(message), Fails, (eboRowKindOf<EBO_TYPE_OF(Record, place), toCome>()), std::extent_v<EBO_TYPE_OF(Record, place)>, toCome, offsetof(Record, place))
#define EBO_TEXT(key, kind, count, offset, message) EBO_ROW(key, EBO_RED(message), Fails, EboKeyKind::kind, count, 0, offset)
#define EBO_TEXT_OPTIONAL(key, kind, count, offset) EBO_ROW(key, nullptr, Nothing, EboKeyKind::kind, count, 0, offset)
#define EBO_TYPE_OF(Record, place) std::remove_reference_t<decltype(Record::place)>
// Constructors of sections: what all of them have.
#define EBO_SECTION(name, function, rows, Record, bit, container, slot, assertion) \
    EboSection{name, #function, rows, assertion, bit, std::size(rows), sizeof(Record), __LINE__, EboContainer::container, slot, 0, 0, EboDisabled::IsRead, 0, nullptr, nullptr}
#define EBO_MODULE(name, function, rows, Record, bit, slot, assertion) EBO_SECTION(name, function, rows, Record, bit, Beamformer, offsetof(EboBeamFormParam, slot), assertion)
#define EBO_SWITCH(name, function, rows, bit) \
    EboSection{name, #function, rows, nullptr, bit, std::size(rows), 0, __LINE__, EboContainer::Beamformer, 0, 0, 0, EboDisabled::IsRead, 0, nullptr, nullptr}
// clang-format on
