// What is wrong with a text at a place, and how to mend it.
#pragma once

#include <string>
#include <vector>

#include "text/edited_text.h"

struct SyntaxMend {
    std::string help;             // what to do; empty: there is no mend
    std::vector<TextEdit> edits;  // that do it, in ascending order; may be empty
    bool isGuess = false;         // they let reading go on, but only the author knows what was meant
    std::string text = {};        // what is wrong; empty: what the parser says
    size_t offset = 0;            // of the fault, with `text`
    size_t length = 1;
};
