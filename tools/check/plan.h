// What each loader reads, in its order, and what a failure on the way means to it.
#pragma once

#include <string>
#include <vector>

#include "check/report.h"
#include "model/tuning.h"

struct CheckStep {
    const EboSection* section;
    bool required;  // without it the load fails
};

// One root object as one loader reads it.
struct CheckPass {
    const EboLoad* how;
    std::vector<CheckStep> steps;
    bool chosen;  // a loader that the check is about, not one that may read the file as well
    bool strict;  // a record that is asked for and stays null is an error, whatever the loader says
    CheckLoad load;

    const char* root() const { return how->root; }
    // Whether a section that fails ends the load, and whether that is an error.
    bool endsWith(const CheckStep& step) const { return chosen && step.required; }
    bool isError(const CheckStep& step) const { return chosen && (step.required || strict); }
};

// The loads that `part` means for a file with these root objects; for the whole capture path the other roots
// too, unchosen. Without a part every root that the file has, or misspells, is judged by the load of the
// whole of it.
std::vector<CheckPass> checkPlan(Part part, const std::vector<std::string>& roots);
