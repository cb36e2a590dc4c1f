// What each loader reads, in its order, and what a failure on the way means to it.
#pragma once

#include <parse/section.h>

#include <string>
#include <vector>

#include "model/roots.h"

struct CheckStep {
    const EboSection* section;
    bool required;  // without it the load fails
};

// One root object as one loader reads it.
struct CheckPass {
    const char* root;
    const char* load;  // what the loader does, for messages
    std::vector<CheckStep> steps;
    bool chosen;  // the loader that the check is about, not one that may read the file as well
};

// full, aec, beamform, ao, agc
const std::vector<std::string>& checkParts();
std::vector<CheckPass> checkPlan(const std::string& part);

// The names of the sections that any loader reads under this root; none for an unknown root.
std::vector<std::string> sectionNames(const std::string& root);
const std::vector<std::string>& rootNames();
