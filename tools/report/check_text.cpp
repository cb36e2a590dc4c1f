// The report as people read it.
#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/tuning.h"
#include "report/check_report.h"
#include "text/odd_characters.h"
#include "text/utf8.h"
#include "text/width.h"
#include "text/words.h"

namespace {

constexpr char kPlain[] = "\x1b[0m";

class Painter {
public:
    explicit Painter(bool colours) : colours_(colours) {}
    std::string operator()(const char* colour, const std::string& text) const {
        return colours_ ? colour + text + kPlain : text;
    }

private:
    bool colours_;
};

constexpr char kBold[] = "\x1b[1m";
constexpr char kRed[] = "\x1b[1;31m";
constexpr char kYellow[] = "\x1b[1;33m";
constexpr char kBlue[] = "\x1b[1;34m";
constexpr char kGreen[] = "\x1b[1;32m";

// As a quote shows it: what is no character, cannot be seen or steers the terminal as '?', a tab as a blank.
std::string shownInQuote(std::string_view character, char32_t code) {
    const std::optional<OddCharacter> odd = oddCharacter(code);
    if (odd && odd->plain == OddCharacter::kNothing) return "?";
    return character == "\t" ? " " : printable(character);
}

// What stands in each column: a character with the marks that combine with it; nothing in the second column of
// a wide one.
std::vector<std::string> columnsOf(std::string_view text) {
    std::vector<std::string> columns;
    for (size_t at = 0; at < text.size();) {
        const Utf8Character character = utf8At(text, at);
        const size_t length = std::max<size_t>(character.length, 1);
        const std::string shown = shownInQuote(text.substr(at, length), character.code);
        const size_t width = widthOf(shown);
        if (width == 0 && !columns.empty()) {
            columns.back() += shown;
        } else {
            columns.push_back(shown);
            columns.resize(columns.size() + std::max<size_t>(width, 1) - 1);
        }
        at += length;
    }
    return columns;
}

// The quoted line with the mark below it, cut to the width around the mark.
void writeQuote(const TextPlace& place, const CheckTextStyle& style, const Painter& paint,
                std::ostream& out) {
    const std::string number = std::to_string(place.line);
    const std::string gutter(std::max<size_t>(number.size() + 1, 6), ' ');
    const std::vector<std::string> columns = columnsOf(place.quote);
    const std::string_view quote = place.quote;
    const size_t end = columnsOf(quote.substr(0, place.quoteMark + place.length)).size();
    size_t mark = columnsOf(quote.substr(0, place.quoteMark)).size();
    if (mark == end && place.length > 0) --mark;  // it combines with the letter before
    const size_t marked = std::max<size_t>(end - mark, 1);

    const size_t room = std::max<size_t>(style.width, 40) - gutter.size() - 3 - 6;
    size_t first = 0;
    if (columns.size() > room && mark > room / 2) first = std::min(mark - room / 2, columns.size() - room);
    const size_t last = std::min(columns.size(), first + room);
    const bool before = first > 0 || place.cutBefore;

    std::string line = before ? "..." : "";
    if (columns.size() > first && columns[first].empty()) line += ' ';  // the left half is cut off
    for (size_t i = first; i < last; ++i) line += columns[i];
    if (last < columns.size() || place.cutAfter) line += "...";
    const std::string margin((before ? 3 : 0) + mark - first, ' ');
    const size_t shown = mark < last ? std::min(marked, last - mark) : 1;
    out << paint(kBlue, gutter.substr(number.size()) + number + " | ") << line << '\n'
        << paint(kBlue, gutter + " | ") << margin << paint(kGreen, '^' + std::string(shown - 1, '~')) << '\n';
}

void writeFinding(const std::string& file, const CheckFinding& finding, const CheckTextStyle& style,
                  std::ostream& out) {
    const Painter paint(style.colours);
    const TextPlace& place = finding.place;
    std::string where = printable(file);
    if (place.line != 0) where += ':' + std::to_string(place.line) + ':' + std::to_string(place.column);
    const CheckLevel level = finding.code->level;
    const char* colour = level == CheckLevel::Error ? kRed : level == CheckLevel::Warning ? kYellow : kBlue;
    out << paint(kBold, where + ": ") << paint(colour, nameOf(level)) << ": " << paint(kBold, finding.text)
        << " [" << finding.code->id << "]\n";
    if (place.line != 0) writeQuote(place, style, paint, out);
    out << paint(kBlue, "       = device: ") << finding.device << '\n';
    if (!finding.help.empty()) out << paint(kBlue, "       = help: ") << finding.help << '\n';
    out << '\n';
}

std::string joined(const std::vector<std::string>& words) {
    std::string all;
    for (const std::string& word : words) all += (all.empty() ? "" : ", ") + word;
    return all;
}

std::vector<std::string> componentsOf(const CheckReport& report) {
    std::vector<std::string> components;
    for (const CheckLoad& load : report.loads) components.emplace_back(componentOf(*load.load));
    return components;
}

// What became of a load, apart from its name: " fails: find aec status failed", of several " each fail ...".
std::string endOf(const CheckLoad& load, bool isOne = true) {
    const std::string verb = nameOf(load.outcome);
    std::string end = isOne ? ' ' + verb : " each " + verb.substr(0, verb.size() - 1);
    if (load.outcome != CheckOutcome::Loads) return load.log.empty() ? end : end + ": " + load.log.back();
    if (load.lacks.empty()) return end;
    std::vector<std::string> sections;
    for (const std::string& section : load.lacks) sections.push_back(inQuotes(section));
    return end + " without the record" + (sections.size() == 1 ? "" : "s") + " of " + joined(sections);
}

// Loads that end alike are told together.
void writeLoads(const std::vector<CheckLoad>& loads, std::ostream& out) {
    for (size_t first = 0; first < loads.size();) {
        size_t last = first;
        while (last + 1 < loads.size() && endOf(loads[last + 1]) == endOf(loads[first])) ++last;
        out << "; ";
        for (size_t i = first; i <= last; ++i)
            out << (i == first ? "" : i == last ? " and " : ", ") << loads[i].words;
        out << endOf(loads[first], first == last);
        first = last + 1;
    }
}

}  // namespace

void writeCheckText(const CheckReport& report, const CheckTextStyle& style, std::ostream& out) {
    for (const CheckFinding& finding : report.findings) writeFinding(report.file, finding, style, out);
    for (const auto& [code, count] : report.left) {
        out << printable(report.file) << ": " << nameOf(code->level) << ": and " << count << " more ["
            << code->id << "]\n\n";
    }
    std::vector<std::string> counts;
    for (const CheckLevel level : {CheckLevel::Error, CheckLevel::Warning, CheckLevel::Info}) {
        if (const size_t count = report.count(level)) counts.push_back(countOf(count, nameOf(level)));
    }
    out << printable(report.file) << ": ";
    if (report.count(CheckLevel::Error) + report.count(CheckLevel::Warning) == 0) {
        out << "no problems found (" << joined(componentsOf(report)) << ")";
        for (const std::string& count : counts) out << ", " << count;
    } else {
        out << joined(counts);
        writeLoads(report.loads, out);
    }
    out << '\n';
}
