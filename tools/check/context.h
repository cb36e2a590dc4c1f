// What the steps of a check share.
#pragma once

#include <algorithm>
#include <string>
#include <utility>

#include "check/plan.h"
#include "check/report.h"
#include "check/source.h"

struct CheckContext {
    CheckSource& source;
    CheckReport& report;
    bool loadEnded = false;  // by a failure; nothing is logged any more

    void add(const CheckCode& code, CheckPlace place, std::string text, std::string device,
             std::string help) {
        report.findings.push_back(
            {&code, std::move(place), std::move(text), std::move(device), std::move(help)});
    }

    // An error message of the load. Of other loaders that may read the file nothing is recorded.
    void logs(const CheckPass& pass, const std::string& message) {
        if (pass.chosen && !loadEnded) report.log.push_back(message);
    }
    void endLoad(CheckOutcome outcome) {
        if (!loadEnded) report.outcome = outcome;
        loadEnded = true;
    }
};
