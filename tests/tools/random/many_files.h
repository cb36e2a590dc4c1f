// The texts over which the tool's sentences about files are proved.
#pragma once

#include <random>
#include <string>
#include <vector>

// The examples, the faulty inputs, and roots that are missing, empty, of other types, repeated, or that only
// look like roots.
std::vector<std::string> givenTexts();

// The same and 2,000 mutations of the examples.
std::vector<std::string> manyTexts();
