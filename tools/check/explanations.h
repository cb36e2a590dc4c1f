// What each finding means, for who meets it for the first time.
#pragma once

#include <string>

#include "check/report.h"

struct CheckExplanation {
    const CheckCode* code;
    const char* meaning;
    const char* mend;
    const char* wrong;  // of a file, or all of one, that draws the finding
    const char* right;  // the same mended
    const char* part = "auto";
};

const CheckExplanation& explanationOf(const CheckCode& code);

// Null when there is none of this name.
const CheckCode* codeNamed(const std::string& id);
