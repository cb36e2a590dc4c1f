// The files that are loaded: the examples, the main example written otherwise, the main example grown by
// roots that nobody asks for, and large texts of one shape each.
#pragma once

#include <string>
#include <vector>

struct TuningFile {
    std::string name;
    std::string path;
    size_t size;      // bytes
    size_t channels;  // of its channel map
};

std::vector<TuningFile> exampleFiles();

// The main example as other editors and programs would write it: line breaks of two characters, no blanks at
// all, the keys of each section in another order than the library's tables.
std::vector<TuningFile> writtenOtherwise(const std::string& folder);

// Texts of `size` bytes or a little more below one root, each of one shape; no tuning.
std::vector<TuningFile> shapes(const std::string& folder, size_t size);

// Writes `times` times the main example into `folder`: its roots, and before them copies of them under other
// names.
TuningFile grownFile(const std::string& folder, size_t times);
