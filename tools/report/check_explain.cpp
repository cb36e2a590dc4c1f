// The codes of findings explained.
#include <string>

#include "check/explanations.h"
#include "report/check_report.h"
#include "text/terminal.h"

namespace {

void writeExample(const std::string& title, const std::string& text, std::ostream& out) {
    out << title << ":\n    " << (text.empty() ? "(an empty file)" : text) << '\n';
}

}  // namespace

void writeExplanation(const CheckCode& code, size_t width, std::ostream& out) {
    const CheckExplanation& row = explanationOf(code);
    const std::string part = row.part;
    out << code.id << ": " << code.title << " (" << nameOf(code.level) << ")\n\n"
        << wrapped(row.meaning, 0, width) << '\n';
    writeExample("With this finding" + (part == "auto" ? "" : " (--part " + part + ')'), row.wrong, out);
    writeExample("Without", row.right, out);
    out << '\n' << wrapped(row.mend, 0, width);
}

void writeCodes(std::ostream& out) {
    for (const CheckCode* code : checkCodes()) {
        out << code->id << "  " << padded(nameOf(code->level), 9) << code->title << '\n';
    }
}
