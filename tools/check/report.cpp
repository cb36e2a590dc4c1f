#include "check/report.h"

#include <algorithm>

size_t CheckReport::count(CheckLevel level) const {
    return static_cast<size_t>(
        std::count_if(findings.begin(), findings.end(),
                      [level](const CheckFinding& finding) { return finding.code->level == level; }));
}

const char* checkLevelName(CheckLevel level) {
    return level == CheckLevel::Error ? "error" : "warning";
}

const char* checkOutcomeName(CheckOutcome outcome) {
    switch (outcome) {
        case CheckOutcome::Loads:
            return "succeeds";
        case CheckOutcome::Fails:
            return "fails";
        default:
            return "aborts";
    }
}
