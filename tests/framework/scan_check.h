// Holds the scanner against the JSON library, which reads the same text as its documentation shows.
#pragma once

#include <string>
#include <string_view>

// What differs in accepting, table, offsets or decoded texts, or what the scanner did to a text that it does
// not take; "" when all is right.
std::string scanDifference(std::string_view text);

bool loads(std::string_view text);
