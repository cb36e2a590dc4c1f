#include "check/choice/codes.h"

#include <algorithm>
#include <iterator>

#include "text/words.h"

namespace {

using Codes = std::vector<std::string>;

bool isPartOf(const std::string& text, const CheckCode& code) {
    return std::string(code.id).compare(0, text.size(), text) == 0;
}

// Letters of the longest that the code begins with; 0: none.
size_t longest(const Codes& list, const CheckCode& code) {
    size_t most = 0;
    for (const std::string& text : list) {
        if (isPartOf(text, code)) most = std::max(most, text.size());
    }
    return most;
}

// Of a file with such a finding nothing else is known.
bool isBroken(const CheckCode& code) {
    return &code == &kUnreadable || &code == &kInvalidJson || &code == &kForeign;
}

// Nothing when the choice does not say.
std::optional<bool> isSelected(const CheckChoice& choice, const CheckCode& code) {
    const size_t ignored = longest(choice.ignore, code);
    if (choice.select.empty() || isBroken(code)) return ignored != 0 ? std::optional(false) : std::nullopt;
    return longest(choice.select, code) > ignored;
}

std::optional<CheckLevel> levelIn(const CheckChoice& choice, const CheckCode& code) {
    const size_t error = longest(choice.error, code);
    const size_t warning = longest(choice.warn, code);
    if (error == 0 && warning == 0) return std::nullopt;
    return error >= warning ? CheckLevel::Error : CheckLevel::Warning;
}

// The others are counted.
void keepWorst(CheckReport& report, size_t most) {
    auto& findings = report.findings;
    if (findings.size() <= most) return;
    std::stable_sort(findings.begin(), findings.end(), [&](const CheckFinding& a, const CheckFinding& b) {
        return report.levelOf(*a.code) < report.levelOf(*b.code);
    });
    const auto end = findings.begin() + static_cast<std::ptrdiff_t>(most);
    for (auto finding = end; finding != findings.end(); ++finding) ++report.left[finding->code];
    findings.erase(end, findings.end());
    report.sortByPlace();
}

}  // namespace

const std::vector<std::string>& failOnNames() {
    static const std::vector<std::string> names = {"error", "warning", "info", "never"};
    return names;
}

std::optional<FailOn> failOnNamed(const std::string& name) {
    const auto& names = failOnNames();
    const auto found = std::find(names.begin(), names.end(), name);
    if (found == names.end()) return std::nullopt;
    return static_cast<FailOn>(found - names.begin());
}

std::string whyNoCode(const std::string& text) {
    constexpr size_t kLetters = 3;  // "EBO"
    const auto& codes = checkCodes();
    const auto isPart = [&text](const CheckCode* code) { return isPartOf(text, *code); };
    if (text.size() >= kLetters && std::any_of(codes.begin(), codes.end(), isPart)) return "";
    std::vector<std::string> known = {"EBO1", "EBO2"};
    for (const CheckCode* code : codes) known.emplace_back(code->id);
    const std::string nearest = nearestName(text, known);
    return "there is no code " + inQuotes(text) +
           (nearest.empty() ? "" : "; did you mean " + inQuotes(nearest) + "?");
}

void choose(CheckReport& report, const CheckChoice& line, const CheckChoice& file) {
    const auto isUnwanted = [&](const CheckCode& code) {
        const std::optional<bool> said = isSelected(line, code);
        return !(said ? *said : isSelected(file, code).value_or(true));
    };
    auto& findings = report.findings;
    findings.erase(std::remove_if(findings.begin(), findings.end(),
                                  [&](const CheckFinding& finding) { return isUnwanted(*finding.code); }),
                   findings.end());
    for (const CheckCode* code : checkCodes()) {
        if (isUnwanted(*code)) report.left.erase(code);
        const std::optional<CheckLevel> said = levelIn(line, *code);
        if (const std::optional<CheckLevel> level = said ? said : levelIn(file, *code)) {
            report.levels[code] = *level;
        }
    }
    if (const std::optional<size_t> most = line.max ? line.max : file.max) keepWorst(report, *most);
    report.failOn = line.failOn.value_or(file.failOn.value_or(FailOn::Error));
}
