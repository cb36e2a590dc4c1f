// What the schema says of the value of a key: the form of texts, and what an editor offers.
#pragma once

#include <string>
#include <vector>

#include "model/places.h"

// "enable" and "disable" in any case, as a device takes them, and "enable" alone: regular expressions for all
// of a text.
std::string statusPattern();
std::string enablePattern();

// The same for a row, a list or a map; empty for a key of any other kind.
std::string textPattern(const EboKeyRow& row);
// Its form in words, with an example: for who has mistyped it.
std::string textForm(const EboKeyRow& row);

// A value that an editor offers, and what it means.
struct Choice {
    std::string value;  // as JSON
    const char* meaning;
};
// Of a status, a flag, a mode; empty when there is no list of what is meant.
std::vector<Choice> choicesOf(const SectionPlace& place, const EboKeyRow& row);
// Whether an enabled module complains of any other value.
bool takesChoicesOnly(const SectionPlace& place, const EboKeyRow& row);
