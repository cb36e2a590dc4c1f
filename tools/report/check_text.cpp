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

// What stands in each column: a character with the marks that combine with it; nothing in the second column
// of a wide one.
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

void writeFinding(const CheckReport& report, const CheckFinding& finding, const CheckTextStyle& style,
                  std::ostream& out) {
    const Painter paint(style.colours);
    const TextPlace& place = finding.place;
    std::string where = printable(report.file);
    if (place.line != 0) where += ':' + std::to_string(place.line) + ':' + std::to_string(place.column);
    const CheckLevel level = report.levelOf(*finding.code);
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

constexpr CheckLevel kLevels[] = {CheckLevel::Error, CheckLevel::Warning, CheckLevel::Info};

// "and 12 more [EBO104, EBO105]"
void writeLeft(const CheckReport& report, std::ostream& out) {
    for (const CheckLevel level : kLevels) {
        size_t more = 0;
        std::vector<std::string> codes;
        for (const auto& [code, count] : report.left) {
            if (report.levelOf(*code) != level) continue;
            more += count;
            codes.emplace_back(code->id);
        }
        if (more == 0) continue;
        out << printable(report.file) << ": " << nameOf(level) << ": and " << more << " more ["
            << joined(codes) << "]\n\n";
    }
}

// "2 errors, 1 info"; `count` counts the findings of a level.
template <typename Count>
std::string levelCounts(Count count) {
    std::vector<std::string> texts;
    for (const CheckLevel level : kLevels) {
        if (const size_t found = count(level)) texts.push_back(countOf(found, nameOf(level)));
    }
    return joined(texts);
}

bool hasProblems(const CheckReport& report) {
    return report.count(CheckLevel::Error) + report.count(CheckLevel::Warning) > 0;
}

// Findings that were not chosen change nothing for a device.
bool isWhole(const CheckReport& report) {
    return std::all_of(report.loads.begin(), report.loads.end(), [](const CheckLoad& load) {
        return load.outcome == CheckOutcome::Loads && load.lacks.empty();
    });
}

constexpr char kNoneChosen[] = "no findings of the chosen codes";

}  // namespace

void writeCheckText(const CheckReport& report, const CheckTextStyle& style, std::ostream& out) {
    for (const CheckFinding& finding : report.findings) writeFinding(report, finding, style, out);
    writeLeft(report, out);
    if (!style.summary) return;
    const std::string counts = levelCounts([&](CheckLevel level) { return report.count(level); });
    out << printable(report.file) << ": ";
    if (!hasProblems(report) && isWhole(report)) {
        out << "no problems found (" << joined(componentsOf(report)) << ")"
            << (counts.empty() ? "" : ", " + counts);
    } else {
        out << (counts.empty() ? kNoneChosen : counts);
        writeLoads(report.loads, out);
    }
    out << '\n';
}

void writeCheckTotals(const std::vector<CheckReport>& reports, std::ostream& out) {
    const std::string counts = levelCounts([&](CheckLevel level) {
        size_t sum = 0;
        for (const CheckReport& report : reports) sum += report.count(level);
        return sum;
    });
    const auto faulty = std::count_if(reports.begin(), reports.end(), hasProblems);
    out << countOf(reports.size(), "file") << " checked: ";
    if (faulty != 0) {
        out << counts << "; problems in " << countOf(static_cast<size_t>(faulty), "file") << '\n';
    } else {
        const bool whole = std::all_of(reports.begin(), reports.end(), isWhole);
        out << (whole ? "no problems found" : kNoneChosen) << (counts.empty() ? "" : ", " + counts) << '\n';
    }
}
