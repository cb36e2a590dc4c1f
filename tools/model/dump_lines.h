// What the dump functions log, taken from the log.
#pragma once

#include <functional>
#include <string>
#include <vector>

using DumpLines = std::vector<std::string>;

// The lines that `dump` logs while it runs, each as logged, without a newline of its own.
DumpLines dumpLines(const std::function<void()>& dump);

// To standard output, one line each.
void printLines(const DumpLines& lines);
