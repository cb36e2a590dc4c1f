// What the sections and keys of a tuning file mean, for people. Nothing but the meanings: types, order,
// defaults and the rest come from the readers' tables. The status of a section needs none: it means the same
// everywhere.
#pragma once

#include <cstddef>

struct Meaning {
    const char* section;
    const char* key;   // or a field that no key fills; null: the section itself
    const char* text;  // a sentence without its full stop
};

extern const Meaning kMeanings[];
extern const size_t kMeaningCount;

// "Not explained yet" when there is none.
const char* meaningOf(const char* section, const char* key);
