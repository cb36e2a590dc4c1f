// The files that are loaded: the examples, and the main example grown by roots that nobody asks for.
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

// Writes `times` times the main example into `folder`: its roots, and before them copies of them under other
// names.
TuningFile grownFile(const std::string& folder, size_t times);
