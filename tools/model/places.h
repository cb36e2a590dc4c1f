// Every section and key of a tuning file, and where their values stand in loaded records. Keys, kinds and
// offsets are those of the readers' own tables; this adds only what those do not need to know.
#pragma once

#include <parse/section.h>

#include <string>
#include <vector>

#include "model/tuning.h"

// One section under one root object.
struct SectionPlace {
    const EboSection* section;
    const char* root;
    const char* record;                        // type of the record; null: the section fills none
    const char* mask;                          // the enable mask that shows whether the section is enabled
    int32_t bit;                               // in that mask
    bool required;                             // the load fails without the section
    bool readWhenDisabled;                     // its keys are read, and required, whatever its status
    void* (*recordOf)(const Tuning& tuning);   // null without one
    int32_t* (*maskOf)(const Tuning& tuning);  // null without one
};

// All sections of "ebo_configs" in the order in which they are read, then those of the other two roots.
const std::vector<SectionPlace>& sectionPlaces();

// The name of a section, or of a key of it, as reports write it: "agc.fRk0", and with its root object when
// that is not "ebo_configs".
std::string nameOf(const SectionPlace& place);
std::string nameOf(const SectionPlace& place, const EboKeyRow& row);

// Whether the section's bit is set; false when its mask is not there.
bool isEnabled(const SectionPlace& place, const Tuning& tuning);

// The rows of a section without the status; and its fields that no key fills, as rows.
std::vector<const EboKeyRow*> keysOf(const EboSection& section);
std::vector<const EboKeyRow*> fieldsWithoutKey(const EboSection& section);
// What every loaded record holds in such a field.
const char* loadedValueOf(const EboKeyRow& fieldWithoutKey);

// "delay", "wakeup" and "ainr" are read behind their status only when they are enabled.
bool isReadWhenDisabled(const EboSection& section);

// The one key whose value is kept as a bit of the mask and nowhere else.
bool isMethod(const SectionPlace& place, const EboKeyRow& row);

// The numbers that a key fills: `count` of them, the first at `offset` in the record, `stride` bytes apart.
// None for words, for the channel map, which stands outside of its record, and for what only sets bits.
struct Numbers {
    EboKeyKind type;  // Int32, Int16 or Float
    size_t offset;
    size_t stride;
    size_t count;
};
Numbers numbersOf(const EboKeyRow& row);

// The place of a number, or of the pointer to a text, in a record.
inline const char* fieldAt(const void* record, size_t offset) {
    return static_cast<const char*>(record) + offset;
}

// The record's field behind a key, in the words of the language: "LimitRatio[0]". Empty when there is none.
std::string fieldName(const SectionPlace& place, const EboKeyRow& row);
