// Braces that the indentation shows to be missing, or too many.
#pragma once

#include <optional>
#include <string_view>

#include "check/syntax/mend.h"

// The first one. Nothing when the braces are balanced, or the text is not indented.
std::optional<SyntaxMend> findBraceFault(std::string_view text);
