// Reads texts that are not JSON yet.
#pragma once

#include <cctype>
#include <cstddef>
#include <string>
#include <string_view>

inline constexpr size_t kNone = std::string_view::npos;

inline bool isAnyOf(char c, std::string_view set) {
    return set.find(c) != std::string_view::npos;
}
inline bool isDigit(char c) {
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}
inline bool isLetter(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0;
}

// After the string that opens at `at`: after its closing quote, or where its line ends without one.
size_t afterString(std::string_view text, size_t at);

// The first place from `at` on, which is inside no string, that is not blank.
// The size of the text when there is none.
size_t nextToken(std::string_view text, size_t at);

// Where the line of `at` begins, and where it ends, before its line break.
size_t lineBegin(std::string_view text, size_t at);
size_t lineEnd(std::string_view text, size_t at);

// From 1.
size_t lineNumber(std::string_view text, size_t at);

// The brackets that are open at the end of the text, the outermost first.
std::string openBrackets(std::string_view text);
// What closes them.
std::string closersOf(const std::string& brackets);
