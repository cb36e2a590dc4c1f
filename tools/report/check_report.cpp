#include "report/check_report.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

void writeTexts(const std::vector<CheckReport>& reports, const CheckTextStyle& style, std::ostream& out) {
    for (const CheckReport& report : reports) writeCheckText(report, style, out);
    if (style.summary && reports.size() > 1) writeCheckTotals(reports, out);
}

}  // namespace

bool failsRun(const std::vector<CheckReport>& reports) {
    return std::any_of(reports.begin(), reports.end(),
                       [](const CheckReport& report) { return report.fails(); });
}

const std::vector<std::string>& checkFormats() {
    static const std::vector<std::string> formats = {"text", "json", "sarif", "github", "gitlab", "junit"};
    return formats;
}

void writeCheck(const std::string& format, const std::vector<CheckReport>& reports,
                const CheckTextStyle& style, std::ostream& out) {
    if (format == "text") writeTexts(reports, style, out);
    if (format == "json") writeCheckJson(reports, out);
    if (format == "sarif") writeCheckSarif(reports, out);
    if (format == "github") writeCheckGithub(reports, out);
    if (format == "gitlab") writeCheckGitlab(reports, out);
    if (format == "junit") writeCheckJunit(reports, out);
}
