// What two tunings differ in, field by field.
#pragma once

#include <string>
#include <vector>

#include "model/tuning.h"

struct Value {
    // None: no such thing; Switch: enabled or disabled; Note: in our own words.
    enum Kind { None, Switch, Number, Word, Note } kind;
    std::string text;
};

struct Difference {
    std::string name;  // "agc", "agc.fRk0", "aes.LimitRatio_0[2]", "ebo_ao_configs.anr.swU"
    Value from;
    Value to;
};

struct Differences {
    std::vector<Difference> switches;  // modules enabled, disabled or not there
    std::vector<Difference> values;    // in reading order

    bool none() const { return switches.empty() && values.empty(); }
};

// Compares every bit of every record, text and map; not the addresses. The status of "agc" under
// "ebo_agc_configs" is none of them: no mask takes it.
Differences differencesOf(const Tuning& from, const Tuning& to);
