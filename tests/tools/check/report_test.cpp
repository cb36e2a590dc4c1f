// The reports: the faulty files with theirs, the codes, several files at once.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "check/file.h"
#include "check/rules.h"
#include "loading.h"
#include "model/places.h"
#include "report/check_report.h"
#include "text/width.h"

namespace {

constexpr char kFaultyFiles[] = EBO_FAULTY_INPUTS_DIR "/";

// Named "<part>/<fault>.json".
std::vector<std::string> faultyFiles() {
    std::vector<std::string> names;
    for (const std::string& path : filesIn(kFaultyFiles, ".json")) {
        names.push_back(path.substr(sizeof(kFaultyFiles) - 1));
    }
    return names;
}

CheckReport checkFaulty(const std::string& name) {
    const LogCatcher ignored;
    CheckReport report = checkFile(kFaultyFiles + name, partNamed(name.substr(0, name.find('/'))));
    report.file = name;
    return report;
}

std::set<std::string> codesOf(const CheckReport& report) {
    std::set<std::string> codes;
    for (const CheckFinding& finding : report.findings) codes.insert(finding.code->id);
    return codes;
}

TEST(FaultyFiles, AreManyAndNoneIsWithoutFault) {
    EXPECT_GE(faultyFiles().size(), 170U);
    for (const std::string& name : faultyFiles()) EXPECT_FALSE(checkFaulty(name).findings.empty()) << name;
}

TEST(Codes, AreAllSeenInTheFaultyFiles) {
    std::set<std::string> seen;
    std::set<std::string> all;
    for (const std::string& name : faultyFiles()) seen.merge(codesOf(checkFaulty(name)));
    for (const CheckCode* code : checkCodes()) all.insert(code->id);
    EXPECT_EQ(seen, all);
}

TEST(Codes, TellTheirLevelAndAscend) {
    std::string before;
    for (const CheckCode* code : checkCodes()) {
        EXPECT_EQ(code->id[3], code->level == CheckLevel::Error ? '1' : '2') << code->id;
        EXPECT_EQ(code->level == CheckLevel::Info, code == &kDisabledSettings) << code->id;
        EXPECT_LT(before, code->id);
        before = code->id;
    }
}

TEST(Codes, StandInTheDocumentationWithAnExampleThatDrawsThem) {
    const std::regex row(R"re(\| (EBO\d+) \| (\w+) \| ([^|]+) \| (.+) \| )re"
                         R"re(\[((\w+)/[^\]]+)\]\(\.\./tests/data/check/(\w+)\.golden\) \|)re");
    std::istringstream page(readText(EBO_DOCS_DIR "/check.md"));
    std::vector<std::string> documented;
    for (std::string line; std::getline(page, line);) {
        std::smatch column;
        if (line.compare(0, 5, "| EBO") != 0) continue;
        ASSERT_TRUE(std::regex_match(line, column, row)) << line;
        documented.push_back(column.str(1) + ' ' + column.str(2) + ' ' + column.str(3));
        EXPECT_EQ(column[6], column[7]);
        EXPECT_THAT(codesOf(checkFaulty(column[5])), testing::Contains(column.str(1)));
        const std::string example = column[4];
        if (example.front() != '`') continue;  // what is missing cannot be shown
        EXPECT_THAT(readText(kFaultyFiles + column.str(5)),
                    testing::HasSubstr(example.substr(1, example.size() - 2)));
    }
    std::vector<std::string> coded;
    for (const CheckCode* code : checkCodes()) {
        coded.push_back(std::string(code->id) + ' ' + nameOf(code->level) + ' ' + code->title);
    }
    EXPECT_EQ(documented, coded);
}

bool hasKey(const std::string& section, const std::string& key) {
    for (const SectionPlace& place : sectionPlaces()) {
        if (section != place.section->name) continue;
        const KeyRows keys = keysOf(*place.section);
        return std::any_of(keys.begin(), keys.end(),
                           [&key](const EboKeyRow* row) { return key == row->key; });
    }
    return false;
}

TEST(Rules, NameKeysOfTheTables) {
    for (const OrderRule& rule : orderRules()) {
        EXPECT_TRUE(hasKey(rule.section, rule.low)) << rule.low;
        EXPECT_TRUE(hasKey(rule.section, rule.high)) << rule.high;
    }
    for (const SectionPlace& place : sectionPlaces()) {
        for (const EboKeyRow* field : fieldsWithoutKey(*place.section)) {
            EXPECT_FALSE(hasKey(place.section->name, field->key)) << field->key;
        }
    }
}

TEST(Examples, HaveNoErrors) {
    const LogCatcher ignored;
    for (const std::string& file : filesIn(EBO_TUNINGS_DIR, ".json")) {
        EXPECT_EQ(checkFile(file, partNamed("full")).count(CheckLevel::Error), 0U) << file;
    }
}

size_t g_told = 0;

TEST(SeveralFiles, AreCheckedOnThreadsAndReportedInTheirOrder) {
    const LogCatcher ignored;
    std::vector<std::string> paths;
    for (const std::string& name : faultyFiles()) paths.push_back(kFaultyFiles + name);
    g_told = 0;
    const std::vector<CheckReport> reports =
        checkFiles(paths, partNamed("full"), 4, [](size_t done, size_t all) {
            EXPECT_EQ(done, ++g_told);
            EXPECT_LE(done, all);
        });
    ASSERT_EQ(reports.size(), paths.size());
    EXPECT_EQ(g_told, paths.size());
    for (size_t i = 0; i < paths.size(); ++i) {
        std::ostringstream together;
        std::ostringstream alone;
        writeCheckText(reports[i], {}, together);
        writeCheckText(checkFile(paths[i], partNamed("full")), {}, alone);
        EXPECT_EQ(together.str(), alone.str());
    }
}

TEST(Places, CountCharactersInOneLongLine) {
    const LogCatcher ignored;
    std::string note;
    for (int i = 0; i < 3000; ++i) note += "\xC3\xA9";
    const std::string path = testing::TempDir() + std::to_string(getpid()) + "-one-long-line.json";
    std::ofstream(path) << R"({"note": ")" << note << R"(", "ebo_config": {}})";
    const CheckReport report = checkFile(path, partNamed("full"));
    std::remove(path.c_str());
    ASSERT_EQ(report.findings.size(), 2U);
    EXPECT_EQ(report.findings[0].place.characters, 2U);
    EXPECT_EQ(report.findings[1].place.column, 6014U);
    EXPECT_EQ(report.findings[1].place.characters, 3014U);
}

CheckReport reportOf(const char* file, const TextPlace& place) {
    CheckReport report;
    report.file = file;
    report.add({&kUnknownKey, place, "text", "device", ""});
    return report;
}

TEST(TextReport, CutsLongLinesToTheWidthAroundTheMark) {
    TextPlace place;
    place.line = 7;
    place.column = 301;
    place.length = 4;
    place.quote = std::string(150, 'a') + "MARK" + std::string(150, 'b');
    place.quoteMark = 150;
    const CheckReport report = reportOf("f", place);
    std::ostringstream out;
    writeCheckText(report, {false, 40}, out);
    EXPECT_THAT(out.str(), testing::HasSubstr("     7 | ...aaaaaaaaaaaaMARKbbbbbbbbb...\n"
                                              "       |                ^~~~\n"));
}

// The lines of a quote, from the bar on.
std::string quoteOf(const std::string& before, const std::string& marked, const std::string& after,
                    size_t width = 100) {
    TextPlace place;
    place.line = 1;
    place.quote = before + marked + after;
    place.quoteMark = static_cast<uint32_t>(before.size());
    place.length = static_cast<uint32_t>(marked.size());
    std::ostringstream out;
    writeCheckText(reportOf("f", place), {false, width}, out);
    std::istringstream lines(out.str());
    std::string quote;
    for (std::string line; std::getline(lines, line);) {
        if (line.find(" | ") != std::string::npos) quote += line.substr(line.find(" | ") + 3) + '\n';
    }
    return quote;
}

TEST(TextReport, MarksWhatIsWideOrCombines) {
    const std::string wide = "\xE6\xBC\xA2";
    const std::string accent = "\xCC\x81";
    EXPECT_EQ(quoteOf(wide + wide, "key", wide), wide + wide + "key" + wide + "\n    ^~~\n");
    EXPECT_EQ(quoteOf("a", wide + wide, "b"), "a" + wide + wide + "b\n ^~~~\n");
    EXPECT_EQ(quoteOf("e" + accent + "e", "x" + accent + "y", ""),
              "e" + accent + "ex" + accent + "y\n  ^~\n");
    EXPECT_EQ(quoteOf("ae", accent, "b"), "ae" + accent + "b\n ^\n");  // below the letter that it changes
    EXPECT_EQ(quoteOf("", accent, "b"), accent + "b\n^\n");
    EXPECT_EQ(quoteOf("\ta\t", "b", ""), " a b\n   ^\n");
    EXPECT_EQ(quoteOf("a", "\xE2\x80\x8B", "b"), "a?b\n ^\n");  // cannot be seen
    EXPECT_EQ(quoteOf("a", "", ""), "a\n ^\n");
}

TEST(TextReport, CutsWideLettersWhole) {
    std::string wide;
    for (int i = 0; i < 40; ++i) wide += "\xE6\xBC\xA2";
    for (const char* const before : {"", "a"}) {
        for (const char* const after : {"", "a"}) {
            const std::string quote = quoteOf(wide + before, "KEY", after + wide, 40);
            const std::string line = quote.substr(0, quote.find('\n'));
            const std::string caret = quote.substr(line.size() + 1);
            EXPECT_EQ(widthOf(line.substr(0, line.find("KEY"))), caret.find('^')) << quote;
            EXPECT_LE(widthOf(line), 32U) << quote;
            EXPECT_THAT(line, testing::AllOf(testing::StartsWith("..."), testing::EndsWith("..."))) << quote;
        }
    }
}

TEST(TextReport, LetsNoFileSteerTheTerminal) {
    TextPlace place;
    place.line = 1;
    place.quote = "\x1b[2J\xC2\x9B\xFFk\xC3\xA9";
    place.quoteMark = 7;
    place.length = 3;
    const CheckReport report = reportOf("\x1b", place);
    std::ostringstream out;
    writeCheckText(report, {}, out);
    EXPECT_THAT(out.str(), testing::HasSubstr("?:1:0: "));
    EXPECT_THAT(out.str(), testing::HasSubstr("     1 | ?[2J??k\xC3\xA9\n       |       ^~\n"));
}

}  // namespace
