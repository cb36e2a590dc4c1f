// Values that are read without complaint and are still unlikely to be meant.
#pragma once

#include <ka/framework.h>

#include <functional>
#include <vector>

#include "check/report.h"

// Two keys of a section of which the first is meant to be the lower.
struct OrderRule {
    const char* section;
    const char* low;
    const char* high;
};
const std::vector<OrderRule>& orderRules();

struct RuleSubject {
    CheckReport& report;
    CheckLoad& load;
    const EboSection& section;
    const KaMetaData& keys;
    bool enabled;
    // The value of a key; of one that is missing the section's status, or the section's name.
    std::function<TextPlace(const char* key)> placeOf;
};
void checkRules(const RuleSubject& subject);
