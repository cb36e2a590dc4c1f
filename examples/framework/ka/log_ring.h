// The log of this framework: the newest messages, kept in memory for whoever asks.
#pragma once

#include <ka/framework.h>

#include <cstdint>
#include <string>
#include <thread>
#include <vector>

#pragma GCC visibility push(default)

struct KaLogEntry {
    uint64_t number;  // counted from 1, over all threads
    std::thread::id thread;
    bool error;  // sent by ka_err, not by ka_log
    unsigned int channel;
    int level;
    std::string tag;
    std::string function;
    int line;
    std::string format;
    std::string text;  // formatted; colour sequences and newlines are still in it
};

// The number of the newest message, 0 before the first.
uint64_t ka_log_last();

// The kept messages with a number above `number`, oldest first. Messages beyond the newest 4096 are gone.
std::vector<KaLogEntry> ka_log_since(uint64_t number);

#pragma GCC visibility pop
