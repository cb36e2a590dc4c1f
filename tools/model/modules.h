// What a loaded file asks of each module and what becomes of it.
#pragma once

#include <string>
#include <vector>

#include "model/places.h"

struct ModuleRow {
    const SectionPlace* place;
    bool stated;                   // it has a status
    std::string asked;             // the status as the file spells it
    bool masked;                   // its bit goes into a mask that the load gives
    bool enabled;                  // the bit is set
    bool recorded;                 // it has a record
    size_t lines;                  // that the dump prints for it
    std::string heading;           // first of these lines
    std::vector<std::string> why;  // what the other columns do not say, one sentence each
};

// What becomes of it: "enabled" or "disabled", "missing" without the record that it should have, or "loaded"
// when its status goes nowhere.
const char* effectOf(const ModuleRow& row);

struct MaskValue {
    std::string name;  // "bf.model_en"
    int32_t bits;
};
// The masks that the sections of `load` have in `tuning`, each once.
std::vector<MaskValue> masksOf(const EboLoad& load, const Tuning& tuning);

// One row per section of every part that `load` has loaded, in reading order.
std::vector<ModuleRow> moduleRows(const Load& load);
