// What two files differ in, for programs and for reviewers.
#pragma once

#include <string>

#include "model/differences.h"

// As the report calls the two.
struct ComparedNames {
    std::string from;
    std::string to;
};

std::string comparisonJson(const ComparedNames& names, const Differences& differences);

// A table to be pasted into a merge request; a sentence when there is no difference.
std::string comparisonMarkdown(const ComparedNames& names, const Differences& differences);
