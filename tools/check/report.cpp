#include "check/report.h"

#include <algorithm>
#include <utility>

const std::vector<const CheckCode*>& checkCodes() {
#define EBO_CHECK_CODE(name, id, level, title) &(name),
    static const std::vector<const CheckCode*> codes = {EBO_CHECK_CODES(EBO_CHECK_CODE)};
#undef EBO_CHECK_CODE
    return codes;
}

void CheckLoad::logs(const std::string& message) {
    if (!ended) log.push_back(message);
}

void CheckLoad::ends(CheckOutcome how) {
    if (!ended) outcome = how;
    ended = true;
}

bool CheckReport::leaveOut(const CheckCode& code) {
    if (held_[&code] < kMost) return false;
    ++left[&code];
    return true;
}

void CheckReport::add(CheckFinding finding) {
    if (leaveOut(*finding.code)) return;
    ++held_[finding.code];
    findings.push_back(std::move(finding));
}

CheckLevel CheckReport::levelOf(const CheckCode& code) const {
    const auto chosen = levels.find(&code);
    return chosen != levels.end() ? chosen->second : code.level;
}

size_t CheckReport::count(CheckLevel level) const {
    size_t count = 0;
    for (const CheckFinding& finding : findings) count += levelOf(*finding.code) == level ? 1 : 0;
    for (const auto& [code, more] : left) count += levelOf(*code) == level ? more : 0;
    return count;
}

bool CheckReport::isFailure(const CheckCode& code) const {
    return failOn != FailOn::Never && static_cast<int>(levelOf(code)) <= static_cast<int>(failOn);
}

bool CheckReport::fails() const {
    return std::any_of(findings.begin(), findings.end(),
                       [this](const CheckFinding& finding) { return isFailure(*finding.code); }) ||
           std::any_of(left.begin(), left.end(), [this](const auto& row) { return isFailure(*row.first); });
}

void CheckReport::sortByPlace() {
    std::stable_sort(findings.begin(), findings.end(), [](const CheckFinding& a, const CheckFinding& b) {
        return a.place.offset < b.place.offset;
    });
}

CheckOutcome CheckReport::outcome() const {
    CheckOutcome worst = CheckOutcome::Loads;
    for (const CheckLoad& load : loads) worst = std::max(worst, load.outcome);
    return worst;
}

std::string CheckReport::words() const {
    std::string all;
    for (const CheckLoad& load : loads) all += (all.empty() ? "" : ", ") + load.words;
    return all;
}

const char* nameOf(CheckLevel level) {
    switch (level) {
        case CheckLevel::Error:
            return "error";
        case CheckLevel::Warning:
            return "warning";
        default:
            return "info";
    }
}

const char* nameOf(CheckOutcome outcome) {
    switch (outcome) {
        case CheckOutcome::Loads:
            return "succeeds";
        case CheckOutcome::Fails:
            return "fails";
        default:
            return "aborts";
    }
}
