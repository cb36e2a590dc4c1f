// What there is to know about a section and a key, as texts. All of it is asked of the readers' tables, of
// the create functions and of the readers; only the meanings are written down.
#pragma once

#include <string>
#include <vector>

#include "model/places.h"

struct KeyFacts {
    std::string name;     // "agc.fRk0"
    std::string key;      // "fRk0"
    size_t order;         // of the lookup within the section, from 1; 0 for a field that no key fills
    std::string type;     // in the tuning file: "number"
    std::string stored;   // in the record: "float", "int16[2]"; for what only sets a bit, the bit
    std::string field;    // "EboAgcParam::fRk0"; empty when there is none
    std::string value;    // of the built-in defaults, in "wakeup" of a missing key; empty when there is none
    std::string missing;  // the log's message about a missing key; empty when the key is optional
    std::string meaning;
};

// Of the status, which is the first row, too.
KeyFacts factsOf(const SectionPlace& place, const EboKeyRow& row);
// The status, the keys in reading order, then the fields without key.
std::vector<KeyFacts> factsOf(const SectionPlace& place);

// "bit 0x20 of bf.model_en", or "no bit".
std::string bitText(const SectionPlace& place);
