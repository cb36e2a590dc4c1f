// Types of values in words.
#pragma once

#include <parse/section.h>

#include <string>
#include <string_view>

#include "check/source.h"

// "a number", "a boolean" ...
std::string typeOf(const KaJsonItem& item);

// An integer as written, too large for 32 bits.
bool isIntegerBeyond32Bits(const EboKeyRow& row, const KaJsonItem& item);

// How to mend a status that is neither "enable" nor "disable".
std::string helpWithStatus(std::string_view status);

// How to mend a value of the wrong type. `array` is what is between the brackets of one.
std::string howToMend(const EboKeyRow& row, const KaJsonItem& item, std::string_view array);
