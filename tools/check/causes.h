// One cause of many findings: root objects and sections that are in the file, but not where a device looks
// for them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "check/report.h"
#include "check/source.h"

struct CheckCause {
    TextPlace place;
    std::string text;
    std::string help;
    std::vector<TextEdit> edits;  // of the source's text: they put right what is in the wrong place
    std::vector<RelatedPlace> related = {};
};

// Everything that may be one, the likeliest first; whether a mend helps is seen by checking the mended text.
std::vector<CheckCause> findCauses(const CheckSource& source);
