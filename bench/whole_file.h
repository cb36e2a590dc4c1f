// For the JSON libraries that have no function of their own to read a file.
#pragma once

#include <string>

// The file's text; empty when it cannot be read.
std::string wholeFile(const char* path);
