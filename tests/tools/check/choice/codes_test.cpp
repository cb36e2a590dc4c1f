// Which findings are reported, as what, and which are a failure.
#include "check/choice/codes.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "model/tuning.h"
#include "report/check_report.h"

namespace {

// "select=EBO1,EBO230 ignore=EBO2 fail-on=never max=3"
CheckChoice choiceOf(const std::string& text) {
    CheckChoice choice;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const std::string name = word.substr(0, word.find('='));
        std::istringstream values(word.substr(name.size() + 1));
        const std::map<std::string, std::vector<std::string>*> lists = {{"select", &choice.select},
                                                                        {"ignore", &choice.ignore},
                                                                        {"error", &choice.error},
                                                                        {"warn", &choice.warn}};
        for (std::string value; std::getline(values, value, ',');) {
            if (name == "fail-on") {
                choice.failOn = failOnNamed(value);
            } else if (name == "max") {
                choice.max = std::stoul(value);
            } else {
                lists.at(name)->push_back(value);
            }
        }
    }
    return choice;
}

// In the order of their places: the milder ones first.
CheckReport sample() {
    CheckReport report;
    report.file = "f";
    for (const CheckCode* code :
         {&kDisabledSettings, &kStatusWord, &kUnknownKey, &kMissingKey, &kInvalidJson}) {
        TextPlace place;
        place.offset = static_cast<uint32_t>(report.findings.size());
        report.add({code, place, "text", "device", ""});
    }
    report.left[&kUnknownKey] = 7;
    return report;
}

// "101e 104e", and what was left out: "+7x212w"
std::string chosen(const char* line, const char* file) {
    CheckReport report = sample();
    choose(report, choiceOf(line), choiceOf(file));
    std::string text;
    const auto tell = [&](const CheckCode& code) {
        return std::string(code.id + 3) + nameOf(report.levelOf(code))[0];
    };
    for (const CheckFinding& finding : report.findings)
        text += (text.empty() ? "" : " ") + tell(*finding.code);
    for (const auto& [code, count] : report.left) text += " +" + std::to_string(count) + "x" + tell(*code);
    return text;
}

TEST(Choice, TakesWhatIsLongerAndTheCommandLineFirst) {
    struct Case {
        const char* line;
        const char* file;
        const char* expected;
    };
    const Case cases[] = {
        {"", "", "232i 230w 212w 104e 101e +7x212w"},
        {"select=EBO1", "", "104e 101e"},
        {"select=EBO104", "", "104e 101e"},  // what is broken is told all the same
        {"ignore=EBO101", "", "232i 230w 212w 104e +7x212w"},
        {"select=EBO ignore=EBO101", "", "232i 230w 212w 104e +7x212w"},
        {"ignore=EBO", "", ""},
        {"ignore=EBO2,EBO1", "", ""},
        {"select=EBO,EBO230 ignore=EBO2", "", "230w 104e 101e"},
        {"select=EBO230 ignore=EBO230", "", "101e"},
        {"select=EBO2 ignore=EBO23", "", "212w 101e +7x212w"},
        {"", "select=EBO1", "104e 101e"},
        {"", "ignore=EBO2", "104e 101e"},
        {"select=EBO230", "ignore=EBO230", "230w 101e"},
        {"ignore=EBO230", "select=EBO230,EBO104", "104e 101e"},
        {"ignore=EBO104", "ignore=EBO2", "101e"},
        {"select=EBO212", "select=EBO104", "212w 101e +7x212w"},
        {"error=EBO212", "", "232i 230w 212e 104e 101e +7x212e"},
        {"error=EBO2", "", "232e 230e 212e 104e 101e +7x212e"},
        {"warn=EBO104 error=EBO1", "", "232i 230w 212w 104w 101e +7x212w"},
        {"warn=EBO230 error=EBO230", "", "232i 230e 212w 104e 101e +7x212w"},
        {"warn=EBO1", "error=EBO101,EBO230", "232i 230e 212w 104w 101w +7x212w"},
        {"max=5", "", "232i 230w 212w 104e 101e +7x212w"},
        {"max=3", "", "230w 104e 101e +8x212w +1x232i"},
        {"max=0", "", " +1x101e +1x104e +8x212w +1x230w +1x232i"},
        {"", "max=1", "104e +1x101e +8x212w +1x230w +1x232i"},
        {"max=2", "max=1", "104e 101e +8x212w +1x230w +1x232i"},
        {"max=1 error=EBO232", "", "232e +1x101e +1x104e +8x212w +1x230w"},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(chosen(one.line, one.file), one.expected) << one.line << " / " << one.file;
    }
}

TEST(Choice, SaysWhatIsAFailure) {
    struct Case {
        const char* line;
        const char* file;
        bool error, warning, info;  // a report with such a finding alone
    };
    const Case cases[] = {
        {"", "", true, false, false},
        {"fail-on=error", "fail-on=never", true, false, false},
        {"fail-on=warning", "", true, true, false},
        {"", "fail-on=warning", true, true, false},
        {"fail-on=info", "", true, true, true},
        {"fail-on=never", "fail-on=info", false, false, false},
        {"error=EBO2", "", true, true, true},
        {"warn=EBO", "", false, false, false},
        {"ignore=EBO104", "", false, false, false},
    };
    for (const Case& one : cases) {
        const auto fails = [&](const CheckCode& code) {
            CheckReport report;
            report.add({&code, {}, "text", "device", ""});
            choose(report, choiceOf(one.line), choiceOf(one.file));
            EXPECT_EQ(report.fails(), !report.findings.empty() && report.isFailure(code));
            return report.fails();
        };
        EXPECT_EQ(fails(kMissingKey), one.error) << one.line << " / " << one.file;
        EXPECT_EQ(fails(kStatusWord), one.warning) << one.line << " / " << one.file;
        EXPECT_EQ(fails(kDisabledSettings), one.info) << one.line << " / " << one.file;
    }
}

TEST(Choice, NamesTheNearestOfUnknownCodes) {
    for (const char* known : {"EBO", "EBO1", "EBO2", "EBO10", "EBO237"}) EXPECT_EQ(whyNoCode(known), "");
    EXPECT_EQ(whyNoCode("ebo104"), R"(there is no code "ebo104"; did you mean "EBO104"?)");
    EXPECT_EQ(whyNoCode("EB0230"), R"(there is no code "EB0230"; did you mean "EBO230"?)");
    EXPECT_EQ(whyNoCode("ebo2"), R"(there is no code "ebo2"; did you mean "EBO2"?)");
    for (const char* unknown : {"", "E", "EB", "104", "warning"}) {
        EXPECT_EQ(whyNoCode(unknown), "there is no code \"" + std::string(unknown) + '"');
    }
    EXPECT_NE(whyNoCode("EBO3"), "");  // the team's own
    EXPECT_NE(whyNoCode("EBO1041"), "");
}

std::string textOf(const CheckReport& report, bool summary = true) {
    std::ostringstream out;
    CheckTextStyle style;
    style.summary = summary;
    writeCheckText(report, style, out);
    return out.str();
}

std::string totalsOf(const std::vector<CheckReport>& reports) {
    std::ostringstream out;
    writeCheckTotals(reports, out);
    return out.str();
}

TEST(TextReport, TellsLeftOutFindingsByLevelAndNoSummaryWhenNoneIsWanted) {
    CheckReport report = sample();
    choose(report, choiceOf("max=0 error=EBO212"), {});
    const std::string left =
        "f: error: and 10 more [EBO101, EBO104, EBO212]\n\nf: warning: and 1 more [EBO230]\n\n"
        "f: info: and 1 more [EBO232]\n\n";
    EXPECT_EQ(textOf(report, false), left);
    EXPECT_EQ(textOf(report), left + "f: 10 errors, 1 warning, 1 info\n");
}

TEST(TextReport, SaysWhatADeviceDoesEvenIfNoFindingIsChosen) {
    CheckReport report;
    report.file = "f";
    report.loads = {{partNamed("full"), "the whole load", CheckOutcome::Fails}};
    EXPECT_EQ(textOf(report), "f: no findings of the chosen codes; the whole load fails\n");
    EXPECT_EQ(totalsOf({report, {}}), "2 files checked: no findings of the chosen codes\n");
    report.loads = {{partNamed("full"), "the whole load", CheckOutcome::Loads, {}, {"dtd"}}};
    EXPECT_EQ(textOf(report),
              "f: no findings of the chosen codes; the whole load succeeds without the record of \"dtd\"\n");
}

TEST(TextReport, AddsUpSeveralFiles) {
    CheckReport info;
    info.add({&kDisabledSettings, {}, "text", "device", ""});
    EXPECT_EQ(totalsOf({{}, {}}), "2 files checked: no problems found\n");
    EXPECT_EQ(totalsOf({info, {}, info}), "3 files checked: no problems found, 2 infos\n");
    EXPECT_EQ(totalsOf({sample(), info, sample()}),
              "3 files checked: 4 errors, 18 warnings, 3 infos; problems in 2 files\n");
}

}  // namespace
