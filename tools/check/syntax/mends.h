// Mends of what makes a text no JSON.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "check/syntax/mend.h"

// Where a parser stopped, and what is around it.
struct SyntaxStop {
    std::string_view text;
    size_t offset;
    size_t last;  // the place before that is not blank; npos: there is none
    char before;  // what stands there; '\0': nothing
    char here;    // '\0' too at the end of the text

    SyntaxStop(std::string_view text, size_t offset);
    bool isSameLine() const;  // as `last`
};

// `offset` is where the parser stopped.
SyntaxMend mendSyntax(std::string_view text, size_t offset);

// Nothing when no number is at fault.
std::optional<SyntaxMend> mendNumber(const SyntaxStop& stop);
// Characters beyond ASCII, control characters, other encodings; nothing when none is at fault.
std::optional<SyntaxMend> mendCharacter(const SyntaxStop& stop);
