// The report as GitLab's Code Quality takes it: one array of findings, each with a fingerprint by which two
// runs are compared.
#include <algorithm>
#include <nlohmann/json.hpp>

#include "report/check_report.h"
#include "report/finding_words.h"

namespace {

using QualityJson = nlohmann::ordered_json;

const char* severityOf(CheckLevel level) {
    return level == CheckLevel::Error ? "major" : level == CheckLevel::Warning ? "minor" : "info";
}

// A finding about the file as a whole stands at its first line: there is no other way.
QualityJson qualityOf(const CheckReport& report, const std::string& path, const CheckFinding& finding,
                      Fingerprints& fingerprints) {
    return {
        {"description", messageOf(finding, ". ")},
        {"check_name", finding.code->id},
        {"fingerprint", fingerprints.of(path, finding)},
        {"severity", severityOf(report.levelOf(*finding.code))},
        {"location", {{"path", path}, {"lines", {{"begin", std::max<uint32_t>(finding.place.line, 1)}}}}}};
}

}  // namespace

void writeCheckGitlab(const std::vector<CheckReport>& reports, std::ostream& out) {
    QualityJson findings = QualityJson::array();
    Fingerprints fingerprints;
    for (const CheckReport& report : reports) {
        const std::string path = pathInFolder(report.file);
        for (const CheckFinding& finding : report.findings) {
            findings.push_back(qualityOf(report, path, finding, fingerprints));
        }
        for (const auto& [code, count] : report.left) {
            CheckFinding rest;
            rest.code = code;
            rest.text = "and " + std::to_string(count) + " more";
            findings.push_back(qualityOf(report, path, rest, fingerprints));
            findings.back()["description"] = code->title + (": " + rest.text);
        }
    }
    out << findings.dump(2, ' ', false, QualityJson::error_handler_t::replace) << '\n';
}
