// The findings of eboconf check as texts.
#pragma once

#include <ostream>
#include <vector>

#include "check/report.h"

struct CheckTextStyle {
    bool colours = false;
    size_t width = 100;  // of a line, in columns: quoted lines are cut to it
};

void writeCheckText(const CheckReport& report, const CheckTextStyle& style, std::ostream& out);
void writeCheckJson(const std::vector<CheckReport>& reports, std::ostream& out);
// SARIF 2.1.0
void writeCheckSarif(const std::vector<CheckReport>& reports, std::ostream& out);
