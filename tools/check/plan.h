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
    CheckLoad load;

    const char* root() const { return how->root; }
    // What a failing section does to the load.
    bool endsWith(const CheckStep& step) const { return chosen && step.required; }
};

// The loads that `part` means for the document; for the whole capture path the other roots too, unchosen.
std::vector<CheckPass> checkPlan(Part part, const KAJsonParser& document);

// The names of the sections that any loader reads under this root; none for an unknown root.
std::vector<std::string> sectionNames(const std::string& root);
const std::vector<std::string>& rootNames();
