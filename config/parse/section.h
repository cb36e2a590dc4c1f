// The sections of a tuning file as data: one row per key. The readers run on these tables, and everything
// else that wants to know the keys enumerates them from kEboLoads (loads.h).
#pragma once

#include <cstddef>
#include <cstdint>

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
    Preset,   // the field holds the integer that `text` spells in digits
    NoKey,    // no key of the file fills the field: the same, or without a `text` it stays zero
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
    uint32_t offset : 9;  // of the field in the record, in the band of a list; the number of a mask's bit
};

// Which record of the tree holds a section's record, and by that the mask that takes its bit.
enum class EboContainer : uint32_t {
    Root,           // KAEboParam, its `model_en`
    EchoCanceller,  // EboAecParam, its `model_aec_en`: the loaders set the bit once there is a record
    Beamformer,     // EboBeamFormParam, its `model_en`
};

// What the reader makes of a section that is not enabled.
enum class EboDisabled : uint32_t {
    IsRead,          // all of it, as of one that is: on purpose it must be complete too
    LeavesZeros,     // a zero record: the keys are not looked at
    LeavesNoRecord,  // nothing
    GoesByMask,      // a zero record, unless the section's bit was set in the mask before
};

struct EboSection {
    // What the table cannot say of a key. Called for each one when its turn is over; `text` is what was found
    // of a key that holds a text, else null.
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
    uint32_t playbackSlot : 8;    // the same in EboRxParam
    uint32_t playbackBit : 8;     // the bit in the playback mask; 0: no section of the playback path
    uint32_t optional : 1;        // on purpose the load of a whole file goes on without it
    uint32_t releasedByHost : 1;  // its record goes by ka_mem_safe_free when it fails
    EboDisabled whenDisabled : 2;
    const char* notEnabled;  // information line about a disabled section; null: nothing is said
    Special special;         // null: the table says it all

    constexpr EboSection onPlayback(uint8_t itsBit, uint8_t itsSlot) const {
        EboSection section = *this;
        section.playbackBit = itsBit;
        section.playbackSlot = itsSlot;
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
    constexpr EboSection isReleasedByHost() const {
        EboSection section = *this;
        section.releasedByHost = 1;
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

// The reader's stack has room for tables of so many bytes, in rows of so many numbers.
constexpr size_t kEboTableBytes = 160;
constexpr size_t kEboRowNumbers = 10;
