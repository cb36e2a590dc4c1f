// The sections of a tuning file as data: one row per key. The readers run on these tables, and everything
// else that wants to know the keys enumerates them from kEboLoadOrder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <type_traits>

#include "ebo_log.h"
#include "ebo_params.h"

// What stands behind a key, and how it gets into the record.
enum class EboKeyKind : uint32_t {
    Status,      // text: "enable" in any case sets the section's bit; no field
    Int32,       // integer
    Int16,       // integer, of which the low 16 bits are stored
    Flag,        // integer, stored as 1 when it is not zero, else as 0
    Float,       // number
    FloatRow,    // text: `count` numbers separated by blanks
    IntRow,      // text: two integers separated by blanks, of which the low 16 bits are stored
    Word,        // text, copied; an empty one counts as none
    BandList,    // text: `count` integers separated by commas, one for each EboNlpBand, stored by the section
    ChannelMap,  // text: "<number of channels> chn;map:<channel>,<channel> ...", `count` channels at the most,
                 // stored by the section
};

// One key, read top to bottom: the order of the rows is the order of the lookups and so of the error
// messages. The numbers are packed for the flash of a device; compilers warn of one that does not fit.
struct EboKeyRow {
    const char* key;      // spelling in the tuning file
    const char* missing;  // whole log format for a missing key; null: the key is optional
    EboKeyKind kind : 8;
    uint32_t count : 5;   // numbers in the text
    uint32_t line : 10;   // the row's own source line: the log points at the row
    uint32_t offset : 9;  // of the field in the section's record
};

struct EboSection {
    // Stores the text of a list or a map in the record.
    using Take = void (*)(const EboSection& section, const EboKeyRow& row, const char* text, void* record);
    // Looks at the record when a key's turn is over, found or not.
    using Review = void (*)(const EboSection& section, const EboKeyRow& row, const void* record);

    const char* name;       // spelling in the tuning file
    const char* function;   // name of the section's reader, for log lines
    const EboKeyRow* rows;  // the first is the status
    uint32_t rowCount : 8;
    uint32_t recordSize : 12;  // bytes
    uint32_t line : 12;        // of the section itself, for log lines that are no key's
    int32_t bit;               // of an enabled section
    const char* assertion;     // expression that fails when the record cannot be allocated; null: no record
    // What only some sections have.
    int32_t playbackBit = 0;           // the bit under "ebo_ao_configs"; 0: no different
    const char* notEnabled = nullptr;  // information line about a disabled section; null: nothing is said
    Take take = nullptr;               // null: no lists or maps
    Review review = nullptr;           // null: nothing to look at
};

// The seventeen sections of "ebo_configs" in the order in which a whole file is read.
struct EboLoadStep {
    const EboSection* section;
    bool (*load)(void* parser, const char* root, KAEboParam* ebo);  // false: the whole load fails
};
constexpr size_t kEboSectionCount = 17;
extern const EboLoadStep kEboLoadOrder[kEboSectionCount];

extern const EboSection kEboAecSection;
extern const EboSection kEboDelaySection;
extern const EboSection kEboBfSection;
extern const EboSection kEboFastAecSection;
extern const EboSection kEboGscSection;
extern const EboSection kEboWindSection;
extern const EboSection kEboAgcSection;
extern const EboSection kEboAnrSection;
extern const EboSection kEboNlpSection;
extern const EboSection kEboDereverbSection;
extern const EboSection kEboCngSection;
extern const EboSection kEboDtdSection;
extern const EboSection kEboAesSection;
extern const EboSection kEboHowlSection;
extern const EboSection kEboDoaSection;
extern const EboSection kEboWakeupSection;
extern const EboSection kEboAinrSection;

// The field's type chooses the conversion: numbers, rows of numbers. A field of any other type does not compile.
template <typename Field>
constexpr EboKeyKind eboKindOf() {
    constexpr bool kRow = std::is_array_v<Field>;
    using Number = std::remove_extent_t<Field>;
    static_assert(std::is_same_v<Number, float> || std::is_same_v<Field, int32_t> ||
                      std::is_same_v<Field, int16_t> || std::is_same_v<Field, int16_t[2]>,
                  "no key of a tuning file fills a field of this type");
    if (std::is_same_v<Number, float>) return kRow ? EboKeyKind::FloatRow : EboKeyKind::Float;
    if (std::is_same_v<Number, int16_t>) return kRow ? EboKeyKind::IntRow : EboKeyKind::Int16;
    return EboKeyKind::Int32;
}

// For the kinds that a type does not tell.
template <EboKeyKind kKind, typename Wanted, typename Field>
constexpr EboKeyKind eboKindFor() {
    static_assert(std::is_same_v<Field, Wanted>, "a key of this kind fills fields of another type");
    return kKind;
}

// Constructors of rows. A row stands on one source line, so that its line is its own.
// clang-format off
#define EBO_STATUS(text)                         {"status", EBO_RED(text), EboKeyKind::Status, 0, __LINE__, 0}
#define EBO_STATUS_OPTIONAL                      {"status", nullptr, EboKeyKind::Status, 0, __LINE__, 0}
#define EBO_KEY(key, Record, place, missing)     {key, missing, eboKindOf<EBO_TYPE_OF(Record, place)>(), std::extent_v<EBO_TYPE_OF(Record, place)>, __LINE__, offsetof(Record, place)}
#define EBO_NUMBER(Record, field, text)          EBO_KEY(#field, Record, field, EBO_RED(text))
#define EBO_NUMBER_OPTIONAL(Record, field)       EBO_KEY(#field, Record, field, nullptr)
#define EBO_FLAG(Record, field, text)            {#field, EBO_RED(text), eboKindFor<EboKeyKind::Flag, int32_t, decltype(Record::field)>(), 0, __LINE__, offsetof(Record, field)}
#define EBO_WORD_OPTIONAL(Record, field)         {#field, nullptr, eboKindFor<EboKeyKind::Word, char*, decltype(Record::field)>(), 0, __LINE__, offsetof(Record, field)}
#define EBO_TEXT(key, kind, count, offset, text) {key, EBO_RED(text), EboKeyKind::kind, count, __LINE__, offset}
#define EBO_TEXT_OPTIONAL(key, kind, count, offset) {key, nullptr, EboKeyKind::kind, count, __LINE__, offset}
#define EBO_TYPE_OF(Record, place) std::remove_reference_t<decltype(Record::place)>
// Constructors of sections: what all of them have.
#define EBO_SECTION(name, function, rows, Record, bit, assertion) name, #function, rows, std::size(rows), sizeof(Record), __LINE__, bit, assertion
#define EBO_SWITCH(name, function, rows, bit)                     name, #function, rows, std::size(rows), 0, __LINE__, bit, nullptr
// clang-format on
