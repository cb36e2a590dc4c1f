// The sections of a tuning file as data: one row per key. The readers run on these tables, and everything
// else that wants to know the keys enumerates them from kEboLoadOrder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "ebo_log.h"
#include "ebo_params.h"

// What stands behind a key, and how it gets into the record.
enum class EboKeyKind : uint8_t {
    Status,      // text: "enable" in any case sets the section's bit; no field
    Int32,       // integer
    Int16,       // integer, of which the low 16 bits are stored
    Flag,        // integer, stored as 1 when it is not zero, else as 0
    Float,       // number
    FloatRow,    // text: `count` numbers separated by blanks
    IntRow,      // text: `count` integers separated by blanks, of which the low 16 bits are stored
    IntList,     // text: `count` integers separated by commas, of which the low 16 bits are stored
    ChannelMap,  // text: "<number of channels> chn;map:<channel>,<channel> ...", `count` channels at the most
    Word,        // text, copied; an empty one counts as none
};

// One key, read top to bottom: the order of the rows is the order of the lookups and so of the error
// messages. `function` is the name of the reader, for log lines.
struct EboKeyRow {
    // Stores a text in the record.
    using Take = void (*)(const EboKeyRow& row, const char* text, void* record, const char* function);
    // Looks at the record when the key's turn is over, found or not.
    using Review = void (*)(const void* record, const char* function);

    const char* key;      // spelling in the tuning file
    const char* missing;  // whole log format for a missing key; null: the key is optional
    Take take;            // kinds of text other than the status
    Review review;        // null: nothing to look at
    uint16_t offset;      // of the field in the section's record
    uint16_t line;        // the row's own source line: the log points at the row
    EboKeyKind kind;
    uint8_t count;  // numbers in the text
};

struct EboSection {
    const char* name;       // spelling in the tuning file
    const EboKeyRow* rows;  // the first is the status
    uint16_t rowCount;
    uint16_t recordSize;     // bytes
    const char* assertion;   // expression that fails when the record cannot be allocated; null: no record
    const char* notEnabled;  // information line about a disabled section; null: nothing is said
    int32_t bit;             // of an enabled section
    int32_t playbackBit;     // the same under "ebo_ao_configs"; 0: no different
};

// The seventeen sections of "ebo_configs" in the order in which a whole file is read.
struct EboLoadStep {
    const EboSection* section;
    bool (*load)(KAEboParam* ebo, void* parser, const char* root);  // false: the whole load fails
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

// The field's type chooses the conversion; a field of any other type does not compile.
template <typename Field>
constexpr EboKeyKind eboKindOf() {
    static_assert(
        std::is_same_v<Field, int32_t> || std::is_same_v<Field, int16_t> || std::is_same_v<Field, float>,
        "no key of a tuning file fills a field of this type");
    if (std::is_same_v<Field, float>) return EboKeyKind::Float;
    return std::is_same_v<Field, int16_t> ? EboKeyKind::Int16 : EboKeyKind::Int32;
}

// Constructors of rows. A row stands on one source line, so that its line is its own.
// clang-format off
#define EBO_STATUS(text)                               {"status", EBO_RED(text), nullptr, nullptr, 0, __LINE__, EboKeyKind::Status, 0}
#define EBO_STATUS_OPTIONAL                            {"status", nullptr, nullptr, nullptr, 0, __LINE__, EboKeyKind::Status, 0}
#define EBO_NUMBER(Record, field, text)                {#field, EBO_RED(text), nullptr, nullptr, offsetof(Record, field), __LINE__, eboKindOf<decltype(Record::field)>(), 0}
#define EBO_NUMBER_OPTIONAL(Record, field, review)     {#field, nullptr, nullptr, review, offsetof(Record, field), __LINE__, eboKindOf<decltype(Record::field)>(), 0}
#define EBO_FLAG(Record, field, text)                  {#field, EBO_RED(text), nullptr, nullptr, offsetof(Record, field), __LINE__, EboKeyKind::Flag, 0}
#define EBO_WORD_OPTIONAL(Record, field)               {#field, nullptr, eboTakeWord, nullptr, offsetof(Record, field), __LINE__, EboKeyKind::Word, 0}
#define EBO_TEXT(key, kind, count, offset, take, text) {key, EBO_RED(text), take, nullptr, offset, __LINE__, EboKeyKind::kind, count}
#define EBO_TEXT_OPTIONAL(key, kind, count, offset, take) {key, nullptr, take, nullptr, offset, __LINE__, EboKeyKind::kind, count}
// clang-format on

// Stores a private copy of the text, which the record owns, in a `char*` field; an empty text leaves null
// there.
void eboTakeWord(const EboKeyRow& row, const char* text, void* record, const char* function);
