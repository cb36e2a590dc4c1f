// The report as test results in JUnit's XML: a suite per file, a failed case per finding that fails the run.
#include <algorithm>

#include "report/check_report.h"
#include "report/finding_words.h"
#include "text/words.h"

namespace {

// XML has no way to write control characters and what is no character; a line break in an attribute would be
// read as a blank.
std::string xml(const std::string& text) {
    std::string result;
    size_t line = 0;
    for (size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', line = end + 1)) {
        result += printable(text.substr(line, end - line)) + '\n';
    }
    result += printable(text.substr(line));
    const struct {
        const char* written;
        const char* meant;
    } rows[] = {{"&", "&amp;"},  {"<", "&lt;"},         {">", "&gt;"},        {"\"", "&quot;"},
                {"\n", "&#10;"}, {"\xEF\xBF\xBE", "?"}, {"\xEF\xBF\xBF", "?"}};
    for (const auto& row : rows) {
        const std::string written = row.written;
        const std::string meant = row.meant;
        for (size_t at = result.find(written); at != std::string::npos;
             at = result.find(written, at + meant.size())) {
            result.replace(at, written.size(), meant);
        }
    }
    return result;
}

std::string attribute(const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + xml(value) + '"';
}

struct Case {
    std::string name;
    const CheckCode* code;  // null: there is nothing wrong
    std::string message;
    std::string text;
};

std::vector<Case> casesOf(const CheckReport& report) {
    std::vector<Case> cases;
    for (const CheckFinding& finding : report.findings) {
        const TextPlace& place = finding.place;
        std::string where = pathInFolder(report.file);
        if (place.line != 0) where += ':' + std::to_string(place.line) + ':' + std::to_string(place.column);
        // The name is what runs are compared by: it does not say where.
        cases.push_back({finding.code->id + (": " + finding.text), finding.code, finding.text,
                         where + ": " + messageOf(finding, "\n")});
    }
    for (const auto& [code, count] : report.left) {
        const std::string more = "and " + std::to_string(count) + " more";
        cases.push_back({code->id + (": " + more), code, more, code->title});
    }
    if (cases.empty()) cases.push_back({"no problems found", nullptr, "", ""});
    return cases;
}

size_t failuresOf(const CheckReport& report, const std::vector<Case>& cases) {
    return static_cast<size_t>(std::count_if(cases.begin(), cases.end(), [&](const Case& one) {
        return one.code != nullptr && report.isFailure(*one.code);
    }));
}

std::string countsOf(size_t tests, size_t failures) {
    return attribute("tests", std::to_string(tests)) + attribute("failures", std::to_string(failures)) +
           attribute("errors", "0");
}

void writeCase(const CheckReport& report, const std::string& file, const Case& one, std::ostream& out) {
    out << "    <testcase" << attribute("classname", file) << attribute("name", one.name);
    if (one.code == nullptr) {
        out << "/>\n";
    } else if (report.isFailure(*one.code)) {
        out << "><failure" << attribute("type", one.code->id) << attribute("message", one.message) << '>'
            << xml(one.text) << "</failure></testcase>\n";
    } else {
        out << "><system-out>" << nameOf(report.levelOf(*one.code)) << ": " << xml(one.text)
            << "</system-out></testcase>\n";
    }
}

}  // namespace

void writeCheckJunit(const std::vector<CheckReport>& reports, std::ostream& out) {
    size_t tests = 0;
    size_t failures = 0;
    std::vector<std::vector<Case>> suites;
    for (const CheckReport& report : reports) {
        suites.push_back(casesOf(report));
        tests += suites.back().size();
        failures += failuresOf(report, suites.back());
    }
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites" << attribute("name", "eboconf check")
        << countsOf(tests, failures) << ">\n";
    for (size_t i = 0; i < suites.size(); ++i) {
        const std::string file = pathInFolder(reports[i].file);
        out << "  <testsuite" << attribute("name", file)
            << countsOf(suites[i].size(), failuresOf(reports[i], suites[i])) << ">\n";
        for (const Case& one : suites[i]) writeCase(reports[i], file, one, out);
        out << "  </testsuite>\n";
    }
    out << "</testsuites>\n";
}
