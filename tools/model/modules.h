// What a loaded file asks of each module and what becomes of it.
#pragma once

#include <string>
#include <vector>

#include "model/places.h"

struct ModuleRow {
    const SectionPlace* place;
    std::string asked;             // the status as the file spells it; "-" without one
    bool enabled;                  // its bit is set
    bool recorded;                 // it has a record
    size_t lines;                  // that the dump prints for it
    std::string heading;           // first of these lines
    std::vector<std::string> why;  // what the other columns do not say, one sentence each
};

// One row per section of every part that `load` has loaded, in reading order.
std::vector<ModuleRow> moduleRows(const Load& load);
