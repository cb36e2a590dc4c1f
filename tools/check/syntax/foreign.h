// Texts that are no tuning files at all, and what a version control system leaves in one.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "check/syntax/mend.h"

// What the text is instead of JSON; nothing when that cannot be told. Without edits nothing of it can be
// read.
std::optional<SyntaxMend> recogniseForeign(std::string_view text);

// The conflicts of a merge, both sides of each; the edits keep the first.
std::vector<SyntaxMend> findConflicts(std::string_view text);
