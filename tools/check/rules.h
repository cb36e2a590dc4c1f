// Values that are read without complaint and are still unlikely to be meant.
#pragma once

#include <string>
#include <vector>

#include "check/context.h"
#include "check/names.h"

// Two keys of a section of which the first is meant to be the lower.
struct OrderRule {
    const char* section;
    const char* low;
    const char* high;
};
const std::vector<OrderRule>& orderRules();

struct RuleSubject {
    CheckContext& context;
    const CheckPass& pass;
    const EboSection& section;
    const CheckNames& names;
    const KaMetaData& keys;
    bool enabled;
};
void checkRules(const RuleSubject& subject);
