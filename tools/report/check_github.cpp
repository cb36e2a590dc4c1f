// The report as GitHub Actions takes it from a log: a line per finding, which it shows beside the file's own.
#include "report/check_report.h"
#include "report/finding_words.h"
#include "text/words.h"

namespace {

// As the runner reads it back: in a message three characters are escaped, in a property two more.
std::string escaped(const std::string& text, bool isProperty) {
    std::string result;
    for (const char c : text) {
        if (c == '%') {
            result += "%25";
        } else if (c == '\r') {
            result += "%0D";
        } else if (c == '\n') {
            result += "%0A";
        } else if (isProperty && c == ':') {
            result += "%3A";
        } else if (isProperty && c == ',') {
            result += "%2C";
        } else {
            result += c;
        }
    }
    return printable(result);
}

std::string property(const char* name, const std::string& value) {
    return std::string(name) + '=' + escaped(value, true);
}

const char* commandOf(CheckLevel level) {
    return level == CheckLevel::Info ? "notice" : nameOf(level);
}

void writeAnnotation(const CheckReport& report, const std::string& file, const CheckFinding& finding,
                     std::ostream& out) {
    const TextPlace& place = finding.place;
    out << "::" << commandOf(report.levelOf(*finding.code)) << ' ' << property("file", file);
    if (place.line != 0) {
        out << ",line=" << place.line << ",col=" << place.characters;
        const size_t marked = markedCharacters(place);
        if (marked > 0) out << ",endColumn=" << place.characters + marked - 1;
    }
    out << ',' << property("title", std::string(finding.code->id) + ": " + finding.code->title)
        << "::" << escaped(messageOf(finding, "\n"), false) << '\n';
}

}  // namespace

void writeCheckGithub(const std::vector<CheckReport>& reports, std::ostream& out) {
    for (const CheckReport& report : reports) {
        const std::string file = pathInFolder(report.file);
        for (const CheckFinding& finding : report.findings) writeAnnotation(report, file, finding, out);
        for (const auto& [code, count] : report.left) {
            out << "::" << commandOf(report.levelOf(*code)) << ' ' << property("file", file) << ','
                << property("title", std::string(code->id) + ": " + code->title) << "::and " << count
                << " more\n";
        }
    }
}
