// The reports for code hosts: what they write, one finding at a time.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>

#include "report/check_report.h"
#include "report/finding_words.h"

namespace {

using nlohmann::json;
using testing::HasSubstr;

TextPlace placeOf(uint32_t line, const std::string& quote, uint32_t mark, uint32_t length) {
    TextPlace place;
    place.line = line;
    place.column = place.characters = mark + 1;
    place.offset = 100;
    place.length = length;
    place.quote = quote;
    place.quoteMark = mark;
    return place;
}

CheckReport reportOf(const std::string& file, const CheckFinding& finding) {
    CheckReport report;
    report.file = file;
    report.add(finding);
    return report;
}

const CheckFinding kFinding = {&kUnknownKey, placeOf(7, "  \"keys\": 1", 2, 6), "100%\r\n", "a:b,c", "h"};

template <typename Write>
std::string written(Write write) {
    std::ostringstream out;
    write(out);
    return out.str();
}

std::string github(const std::vector<CheckReport>& reports) {
    return written([&](std::ostream& out) { writeCheckGithub(reports, out); });
}

json gitlab(const std::vector<CheckReport>& reports) {
    return json::parse(written([&](std::ostream& out) { writeCheckGitlab(reports, out); }));
}

std::vector<CheckReport> failing(std::vector<CheckReport> reports, FailOn failOn) {
    for (CheckReport& report : reports) report.failOn = failOn;
    return reports;
}

std::string junit(const std::vector<CheckReport>& reports, FailOn failOn) {
    return written([&](std::ostream& out) { writeCheckJunit(failing(reports, failOn), out); });
}

json sarif(const std::vector<CheckReport>& reports, FailOn failOn = FailOn::Error) {
    return json::parse(
        written([&](std::ostream& out) { writeCheckSarif(failing(reports, failOn), out); }))["runs"][0];
}

TEST(GithubReport, EscapesWhatTheRunnerReadsAsItsOwn) {
    EXPECT_EQ(github({reportOf("a%b:c,d\n.json", kFinding)}),
              "::warning file=a%25b%3Ac%2Cd%0A.json,line=7,col=3,endColumn=8,title=EBO212%3A unknown key"
              "::100%25%0D%0A%0ADevice: a:b,c%0AHelp: h\n");
    EXPECT_THAT(github({reportOf("\x1b.json", kFinding)}), HasSubstr("file=?.json,"));
}

TEST(GithubReport, NamesTheLevelsAsTheRunnerDoes) {
    CheckFinding finding = kFinding;
    finding.code = &kDisabledSettings;
    EXPECT_THAT(github({reportOf("f", finding)}), HasSubstr("::notice file=f"));
    finding.code = &kMissingKey;
    EXPECT_THAT(github({reportOf("f", finding)}), HasSubstr("::error file=f"));
}

TEST(GithubReport, LeavesOutAPlaceThatThereIsNot) {
    CheckFinding finding = kFinding;
    finding.place = {};
    EXPECT_THAT(github({reportOf("f", finding)}), HasSubstr("::warning file=f,title="));
    finding.place = placeOf(1, "x", 1, 0);
    EXPECT_THAT(github({reportOf("f", finding)}), HasSubstr(",line=1,col=2,title="));
    finding.place = placeOf(1, "x", 0, 1);
    EXPECT_THAT(github({reportOf("f", finding)}), HasSubstr(",line=1,col=1,endColumn=1,title="));
    finding.place = placeOf(1, "the quote ends before the mark", 5, 500);
    EXPECT_THAT(github({reportOf("f", finding)}), HasSubstr(",line=1,col=6,title="));
}

TEST(GitlabReport, HasAnEntryPerFinding) {
    CheckFinding whole = kFinding;
    whole.place = {};
    whole.code = &kMissingKey;
    CheckReport report = reportOf("./dir/../a.json", kFinding);
    report.add(whole);
    whole.code = &kDisabledSettings;
    report.add(whole);
    const json list = gitlab({report});
    ASSERT_EQ(list.size(), 3U);
    EXPECT_EQ(list[0]["description"], "100%\r\n. Device: a:b,c. Help: h");
    EXPECT_EQ(list[0]["check_name"], "EBO212");
    EXPECT_EQ(list[0]["severity"], "minor");
    EXPECT_EQ(list[0]["location"], json::parse(R"({"path": "a.json", "lines": {"begin": 7}})"));
    EXPECT_EQ(list[1]["severity"], "major");
    EXPECT_EQ(list[1]["location"]["lines"]["begin"], 1);
    EXPECT_EQ(list[2]["severity"], "info");
}

TEST(Fingerprints, StayWhereLinesMoveAndDifferWhereFindingsDo) {
    CheckFinding moved = kFinding;
    moved.place = placeOf(70, "\"keys\": 1", 0, 6);
    EXPECT_EQ(Fingerprints().of("f", kFinding), Fingerprints().of("f", moved));
    EXPECT_EQ(Fingerprints().of("f", kFinding), "166f54566a2539df");

    CheckFinding here = kFinding;
    CheckFinding there = kFinding;
    here.text = "duplicate key \"a\", also on line 44; lines 1 to 3";
    there.text = "duplicate key \"a\", also on line 145; lines 11 to 13";
    EXPECT_EQ(Fingerprints().of("f", here), Fingerprints().of("f", there));

    Fingerprints fingerprints;
    CheckFinding other = kFinding;
    other.text = "101%\r\n";
    CheckFinding coded = kFinding;
    coded.code = &kUnknownSection;
    const std::set<std::string> all = {fingerprints.of("f", kFinding), fingerprints.of("f", kFinding),
                                       fingerprints.of("g", kFinding), fingerprints.of("f", other),
                                       fingerprints.of("f", coded)};
    EXPECT_EQ(all.size(), 5U);
}

TEST(Paths, AreThoseOfTheRepository) {
    const std::string here = std::filesystem::current_path().string();
    EXPECT_EQ(pathInFolder(here + "/dir/a.json"), "dir/a.json");
    EXPECT_EQ(pathInFolder(here + "/../a.json"), std::filesystem::path(here).parent_path() / "a.json");
    EXPECT_EQ(pathInFolder("../a.json"), "../a.json");
    EXPECT_EQ(pathInFolder("./dir//a.json"), "dir/a.json");
    EXPECT_EQ(pathInFolder("-"), "-");
}

TEST(JunitReport, FailsWithWhatFailsTheRun) {
    CheckReport report = reportOf("f", kFinding);
    CheckFinding error = kFinding;
    error.code = &kMissingKey;
    report.add(error);
    EXPECT_THAT(junit({report}, FailOn::Error),
                HasSubstr("<testsuite name=\"f\" tests=\"2\" failures=\"1\""));
    EXPECT_THAT(junit({report, report}, FailOn::Warning),
                HasSubstr("<testsuites name=\"eboconf check\" tests=\"4\" failures=\"4\" errors=\"0\">"));
    EXPECT_THAT(junit({report}, FailOn::Never), HasSubstr("tests=\"2\" failures=\"0\""));
    EXPECT_THAT(junit({reportOf("clean", kFinding), CheckReport()}, FailOn::Error),
                HasSubstr("<testcase classname=\"\" name=\"no problems found\"/>"));
}

TEST(JunitReport, HoldsNothingThatXmlDoesNot) {
    CheckFinding finding = kFinding;
    finding.text = "<&>\"\x01\xFF\x7F\xC2\x85\xEF\xBF\xBE\xEF\xBF\xBF\xC3\xA9";
    EXPECT_THAT(
        junit({reportOf("f", finding)}, FailOn::Warning),
        HasSubstr("><failure type=\"EBO212\" message=\"&lt;&amp;&gt;&quot;??????\xC3\xA9\">f:7:3: "
                  "&lt;&amp;&gt;&quot;??????\xC3\xA9&#10;Device: a:b,c&#10;Help: h</failure></testcase>"));
}

TEST(SarifReport, MendsTheFileAndShowsOtherPlaces) {
    CheckFinding finding = kFinding;
    finding.edits = {{5, 2, "x"}, {9, 1, ""}};
    finding.related = {{placeOf(9, "abc", 1, 2), "the other one"}};
    const json result = sarif({reportOf("f", finding)})["results"][0];
    EXPECT_EQ(result["fixes"], json::parse(R"([{"description": {"text": "h"}, "artifactChanges": [{
        "artifactLocation": {"uri": "f", "index": 0}, "replacements": [
            {"deletedRegion": {"byteOffset": 5, "byteLength": 2}, "insertedContent": {"text": "x"}},
            {"deletedRegion": {"byteOffset": 9, "byteLength": 1}}]}]}])"));
    EXPECT_EQ(result["relatedLocations"], json::parse(R"([{"id": 0, "message": {"text": "the other one"},
        "physicalLocation": {"artifactLocation": {"uri": "f", "index": 0}, "region": {"startLine": 9,
            "startColumn": 2, "byteOffset": 100, "byteLength": 2, "endColumn": 4}}}])"));
    EXPECT_EQ(result["partialFingerprints"]["fileCodeAndText/v1"], Fingerprints().of("f", finding));
    finding.isGuess = true;
    EXPECT_EQ(sarif({reportOf("f", finding)})["results"][0]["fixes"][0]["description"]["text"], "a guess: h");
    EXPECT_FALSE(sarif({reportOf("f", kFinding)})["results"][0].contains("fixes"));
}

TEST(SarifReport, TellsFilesAndExitStatus) {
    const std::vector<CheckReport> reports = {CheckReport(), reportOf("dir/a b.json", kFinding)};
    const json run = sarif(reports);
    EXPECT_EQ(run["artifacts"][1]["location"], json::parse(R"({"uri": "dir/a%20b.json", "index": 1})"));
    EXPECT_EQ(run["results"][0]["locations"][0]["physicalLocation"]["artifactLocation"]["index"], 1);
    EXPECT_EQ(run["invocations"][0]["exitCode"], 0);
    EXPECT_EQ(run["invocations"][0]["executionSuccessful"], true);
    EXPECT_EQ(sarif(reports, FailOn::Warning)["invocations"][0]["exitCode"], 1);
    for (const json& rule : run["tool"]["driver"]["rules"]) {
        EXPECT_THAT(rule["helpUri"].get<std::string>(), testing::MatchesRegex("[a-z]+://.*/check.md#codes"));
    }
}

// More findings of a code than a report holds.
TEST(Reports, TellHowManyWereLeftOut) {
    CheckReport report = reportOf("f", kFinding);
    for (int i = 0; i < 52; ++i) report.add(kFinding);
    EXPECT_THAT(github({report}), HasSubstr("\n::warning file=f,title=EBO212%3A unknown key::and 3 more\n"));
    EXPECT_EQ(gitlab({report})[50]["description"], "unknown key: and 3 more");
    EXPECT_THAT(
        junit({report}, FailOn::Warning),
        HasSubstr(
            "name=\"EBO212: and 3 more\"><failure type=\"EBO212\" message=\"and 3 more\">unknown key<"));
    EXPECT_THAT(junit({report}, FailOn::Warning), HasSubstr("failures=\"51\""));
    EXPECT_EQ(sarif({report})["results"][50]["message"]["text"], "and 3 more: unknown key");
}

TEST(Runs, FailFromALevelOn) {
    CheckFinding finding = kFinding;
    finding.code = &kDisabledSettings;
    const std::vector<CheckReport> infos = {CheckReport(), reportOf("f", finding)};
    EXPECT_FALSE(failsRun(failing(infos, FailOn::Warning)));
    EXPECT_TRUE(failsRun(failing(infos, FailOn::Info)));
    EXPECT_TRUE(failsRun(failing({reportOf("f", kFinding)}, FailOn::Warning)));
    EXPECT_FALSE(failsRun(failing({reportOf("f", kFinding)}, FailOn::Error)));
    EXPECT_FALSE(failsRun(failing({reportOf("f", kFinding)}, FailOn::Never)));
}

}  // namespace
