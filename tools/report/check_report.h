// The findings of eboconf check as texts.
#pragma once

#include <ostream>
#include <vector>

#include "check/report.h"

struct CheckTextStyle {
    bool colours = false;
    size_t width = 100;   // of a line, in columns: quoted lines are cut to it
    bool summary = true;  // the last line
};

// Whether one of them does.
bool failsRun(const std::vector<CheckReport>& reports);

void writeCheckText(const CheckReport& report, const CheckTextStyle& style, std::ostream& out);
// One line for several files.
void writeCheckTotals(const std::vector<CheckReport>& reports, std::ostream& out);
void writeCheckJson(const std::vector<CheckReport>& reports, std::ostream& out);
// SARIF 2.1.0
void writeCheckSarif(const std::vector<CheckReport>& reports, std::ostream& out);
// Annotations of GitHub Actions.
void writeCheckGithub(const std::vector<CheckReport>& reports, std::ostream& out);
// GitLab's Code Quality.
void writeCheckGitlab(const std::vector<CheckReport>& reports, std::ostream& out);
// JUnit's XML; what does not fail the run is a case that passes.
void writeCheckJunit(const std::vector<CheckReport>& reports, std::ostream& out);

// By the name of the form, one of checkFormats().
const std::vector<std::string>& checkFormats();
void writeCheck(const std::string& format, const std::vector<CheckReport>& reports,
                const CheckTextStyle& style, std::ostream& out);

// What a finding means, in lines of `width` columns.
void writeExplanation(const CheckCode& code, size_t width, std::ostream& out);
// A line for each code.
void writeCodes(std::ostream& out);
