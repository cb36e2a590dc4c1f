// One section of a file against its table.
#pragma once

#include <string>
#include <vector>

#include "check/plan.h"
#include "check/source.h"

// Checks the section `item`, which is the one of its name that counts, as the loader of `pass` reads it.
void checkSection(CheckReport& report, CheckSource& source, CheckPass& pass, const CheckStep& step,
                  const KaJsonItem& item);

// How to report what is missing, or not what it should be.
struct CheckAbsence {
    const CheckCode* error;    // when it fails the load, or nothing may fail
    const CheckCode* warning;  // when it does not
    TextPlace place;
    std::string text;
    std::string help;
    std::vector<TextEdit> edits = {};
};
void checkMissingSection(CheckReport& report, CheckPass& pass, const CheckStep& step,
                         const CheckAbsence& absence);
