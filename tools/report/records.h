// What a file loads, and what becomes of its modules, for programs.
#pragma once

#include <string>
#include <vector>

#include "model/tuning.h"

// One object: "file", and "loads", one for each of `loads` in order, with the masks and records that it
// gives.
std::string recordsJson(const std::string& file, const std::vector<Load>& loads);

// The same with a row per module in place of the records.
std::string modulesJson(const std::string& file, const Load& load);
