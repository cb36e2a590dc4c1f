// Reads a text that is no JSON: mends it in memory, fault by fault.
#pragma once

#include <memory>
#include <vector>

#include "check/report.h"
#include "check/source.h"

struct CheckReading {
    std::unique_ptr<CheckSource> source;  // a document unless there was a fault that nobody can mend
    std::vector<CheckFinding> faults;     // at most kMost of them; what a device does is still to be said
    static constexpr size_t kMost = 20;

    bool isDocument() const { return source->error().reason == nullptr; }
};

// `source` has a text, and an error with a place.
CheckReading readOn(std::unique_ptr<CheckSource> source);
