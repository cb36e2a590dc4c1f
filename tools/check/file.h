// Everything that is wrong with tuning files.
#pragma once

#include <string>
#include <vector>

#include "check/report.h"
#include "model/tuning.h"

// The framework's and the readers' log goes where it always goes: a caller that does not want it there
// installs a sink. Safe to call from several threads at once.
CheckReport checkFile(const std::string& path, Part part);

// The files at once, reports in their order; `progress` is called from several threads, one at a time, with
// the number of files done so far.
std::vector<CheckReport> checkFiles(const std::vector<std::string>& paths, Part part, unsigned threads,
                                    void (*progress)(size_t done, size_t all));
