// The library's scanner against the C library's, over one text.
#pragma once

#include <string>

namespace model {

// All differences between what the two make of the text, taken as each kind of row; empty when there are
// none.
std::string rowDifferences(const std::string& text);

}  // namespace model
