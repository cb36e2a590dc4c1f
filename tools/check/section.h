// One section of a file against its table.
#pragma once

#include "check/context.h"

// Checks the section `item`, which is the one of its name that counts, as the loader of `pass` reads it.
void checkSection(CheckContext& context, const CheckPass& pass, const CheckStep& step,
                  const KaJsonItem& item);

// A section that is not there, or is none: how that is told.
struct CheckAbsence {
    const CheckCode* error;    // when it fails the load
    const CheckCode* warning;  // when it does not
    CheckPlace place;
    std::string text;
    std::string help;
};
void checkMissingSection(CheckContext& context, const CheckPass& pass, const CheckStep& step,
                         const CheckAbsence& absence);

// What a device does when the section fails with `message`.
std::string effectOfFailure(const CheckPass& pass, const CheckStep& step, bool enabled,
                            const std::string& message);
