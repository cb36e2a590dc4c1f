// What the reports for code hosts say alike.
#pragma once

#include <cstddef>
#include <map>
#include <string>

#include "check/report.h"

// What is wrong, what the device does and what helps, with `separator` between them.
std::string messageOf(const CheckFinding& finding, const char* separator);

// Characters that the mark of a place takes; 0 when it has none, or more than is quoted.
size_t markedCharacters(const TextPlace& place);

// Relative to the working folder where the file lies in it: code hosts know files by their path in the
// repository.
std::string pathInFolder(const std::string& file);

// Tells findings of successive runs apart: of the file, the code and what is wrong, and not of the line, so
// that a finding stays the same one while lines are put in above it.
class Fingerprints {
public:
    // 16 hexadecimal digits; findings that are all alike are counted.
    std::string of(const std::string& path, const CheckFinding& finding);

private:
    std::map<std::string, size_t> seen_;
};
