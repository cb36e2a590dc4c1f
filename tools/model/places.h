// Every section and key of a tuning file, and where their values stand in loaded records: the loads' and the
// readers' own tables, seen from a file.
#pragma once

#include <parse/loads.h>

#include <string>
#include <vector>

#include "model/tuning.h"

// One section under one root object.
struct SectionPlace {
    const EboSection* section;
    const EboLoad* load;  // of all sections under this root
    const char* root;
    std::string record;  // type of the record; empty: the section fills none
    std::string mask;    // the enable mask that shows whether the section is enabled
    int32_t bit;         // in that mask
    bool required;       // the load of the whole root fails without the section

    void* recordOf(const Tuning& tuning) const;  // null without one
    // Null without one, and of a mask that nobody gets: the root's, when a component alone is loaded.
    int32_t* maskOf(const Tuning& tuning) const;
    // Whether `tuning` has what the section belongs to: its own record when that is a container, otherwise
    // the record that it hangs on.
    bool isIn(const Tuning& tuning) const;
    // Its keys are read, and required, whatever its status.
    bool readWhenDisabled() const { return section->whenDisabled == EboDisabled::IsRead; }
    // A record of its own hangs on every file that loads: not of a switch, nor of a disabled "delay".
    bool leavesNoRecordWhenDisabled() const { return section->whenDisabled == EboDisabled::LeavesNoRecord; }
    // Its record is the container of other sections.
    bool isContainer() const { return section->container == EboContainer::Root && load->playback == 0; }
};

// The loads that read all of a root object, in the order in which a file is shown.
const std::vector<const EboLoad*>& rootLoads();

// All sections of "ebo_configs" in the order in which they are read, then those of the other two roots.
const std::vector<SectionPlace>& sectionPlaces();

// The names of the sections that any loader reads under this root; none for an unknown root.
std::vector<std::string> sectionNames(const std::string& root);
const std::vector<std::string>& rootNames();

// All places of one section: "anr" stands under two roots.
std::vector<const SectionPlace*> placesOf(const EboSection& section);

// The name of a section, or of a key of it, as reports write it: "agc.fRk0", and with its root object when
// that is not "ebo_configs".
std::string nameOf(const SectionPlace& place);
std::string nameOf(const SectionPlace& place, const EboKeyRow& row);

// Whether the section's bit is set; false when its mask is not there.
bool isEnabled(const SectionPlace& place, const Tuning& tuning);

using KeyRows = std::vector<const EboKeyRow*>;
// The rows of a section without the status; and its fields that no key fills.
KeyRows keysOf(const EboSection& section);
KeyRows fieldsWithoutKey(const EboSection& section);

// The log's format when the key is missing; null when the key is optional.
inline const char* missingMessage(const EboKeyRow& row) {
    return row.ifMissing == EboIfMissing::Fails ? row.text : nullptr;
}

// What every loaded record holds in a field that no key fills.
inline const char* valueWithoutKey(const EboKeyRow& row) {
    return row.text != nullptr ? row.text : "0";
}

// The bit of a MaskBit.
inline int32_t bitOf(const EboKeyRow& row) {
    return 1 << row.offset;
}

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

// The record's field of a key, in the words of the language: "LimitRatio[0]". Empty when there is none.
std::string fieldName(const EboKeyRow& row);
