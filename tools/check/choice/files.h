// Which files a command line means.
#pragma once

#include <functional>
#include <string>
#include <vector>

struct FoundFiles {
    std::vector<std::string> files;  // a folder that cannot be read is among them
    std::vector<std::string> empty;  // folders and patterns that stand for no file
};

// A folder stands for its *.json, and those of the folders in it, by name; a pattern that no shell has
// expanded for the files that match it. What is hidden is left out of both, and what `isExcluded` says of a
// file or folder; linked folders are not entered. What is named itself is never left out, and is found once.
FoundFiles findFiles(const std::vector<std::string>& named,
                     const std::function<bool(const std::string&)>& isExcluded);
