#include "model/dump_lines.h"

#include <ka/log_sink.h>

#include <cstdio>

DumpLines dumpLines(const std::function<void()>& dump) {
    DumpLines lines;
    ka_install_log_sink([](const KaLogMessage& message,
                           void* user) { static_cast<DumpLines*>(user)->emplace_back(message.text); },
                        &lines);
    dump();
    ka_remove_log_sink();
    return lines;
}

void printLines(const DumpLines& lines) {
    for (const std::string& line : lines) std::puts(line.c_str());
}
