#include "model/dump_lines.h"

#include <ka/log_sink.h>

#include <cstdio>

#include "model/load_log.h"

DumpLines dumpLines(const std::function<void()>& dump) {
    DumpLines lines;
    withLog(dump, [&lines](const KaLogMessage& message) { lines.emplace_back(message.text); });
    return lines;
}

void printLines(const DumpLines& lines) {
    for (const std::string& line : lines) std::puts(line.c_str());
}
