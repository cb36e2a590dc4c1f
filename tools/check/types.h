// Types of values in words.
#pragma once

#include <parse/section.h>

#include "check/source.h"

// "a number", "true or false" ...
std::string typeOf(const KaJsonItem& item);

// "an integer", "a text" ...
std::string typeWanted(const EboKeyRow& row);

// An integer as written, too large for 32 bits.
bool isIntegerBeyond32Bits(const EboKeyRow& row, const KaJsonItem& item);

// How to mend a value of the wrong type. `array` is what stands between the brackets of one.
std::string howToMend(const EboKeyRow& row, const KaJsonItem& item, std::string_view array);

// A value to fill in, for "add it" messages.
std::string placeholder(const EboKeyRow& row);
