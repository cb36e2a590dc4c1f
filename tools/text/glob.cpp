#include "text/glob.h"

#include <fnmatch.h>

#include <sstream>

namespace {

constexpr char kAnyParts[] = "**";

// After a "**", which may stand for nothing, the next part of a pattern is reached as well.
void passAnyParts(const PathParts& pattern, std::vector<bool>& reached) {
    for (size_t i = 0; i < pattern.size(); ++i) {
        if (reached[i] && pattern[i] == kAnyParts) reached[i + 1] = true;
    }
}

}  // namespace

PathParts partsOfPath(std::string_view path) {
    PathParts parts;
    std::istringstream all{std::string(path)};
    all.exceptions(std::ios::badbit);  // which is all that a stream says of failing memory
    for (std::string part; std::getline(all, part, '/');) {
        if (!part.empty() && part != ".") parts.push_back(part);
    }
    return parts;
}

bool isGlob(std::string_view text) {
    return text.find_first_of("*?[") != std::string_view::npos;
}

bool matchesGlob(const PathParts& pattern, const PathParts& path) {
    // How many parts of the pattern may stand for the path so far.
    std::vector<bool> reached(pattern.size() + 1);
    reached[0] = true;
    passAnyParts(pattern, reached);
    for (const std::string& part : path) {
        std::vector<bool> next(pattern.size() + 1);
        for (size_t i = 0; i < pattern.size(); ++i) {
            if (!reached[i]) continue;
            const bool any = pattern[i] == kAnyParts;
            if (any) next[i] = true;
            if (!any && fnmatch(pattern[i].c_str(), part.c_str(), 0) == 0) next[i + 1] = true;
        }
        reached.swap(next);
        passAnyParts(pattern, reached);
    }
    return reached[pattern.size()];
}
