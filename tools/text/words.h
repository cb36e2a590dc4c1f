// Words for messages: names in quotes, numbers as they are stored, the nearest of several names.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// In double quotes as JSON writes it: quotes, backslashes and what a terminal does not show as it is as
// escapes.
std::string inQuotes(std::string_view text);

// What is no character or would steer the terminal as '?'.
std::string printable(std::string_view text);

// "0x1f"
std::string hexText(int32_t bits);

// Whether a decimal number is 0 as it is written, and not because it is too small to be stored.
bool isZeroAsWritten(std::string_view number);

// "3 numbers", "1 number"
std::string countOf(size_t count, const char* noun);

// The candidate that `name` is most likely a slip of: same letters in other case, or a few letters wrong,
// missing, surplus or exchanged. Empty when none is near.
std::string nearestName(std::string_view name, const std::vector<std::string>& candidates);
