// Patterns of paths, as a shell has them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

using PathParts = std::vector<std::string>;

// What stands between the slashes, without empty parts and ".".
PathParts partsOfPath(std::string_view path);

bool isGlob(std::string_view text);

// "*", "?" and "[...]" stand for characters of one part, "**" for any number of parts.
bool matchesGlob(const PathParts& pattern, const PathParts& path);
