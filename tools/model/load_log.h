// What a load logs, taken from the log.
#pragma once

#include <functional>
#include <string>
#include <vector>

// `text` without colour sequences and line breaks.
std::string plainText(const char* text);

struct LogMessage {
    std::string text;    // without colours and line break
    std::string format;  // as the caller gave it
    std::string function;
    int line;
    bool error;
};

// The messages that are logged while `load` runs.
std::vector<LogMessage> messagesOf(const std::function<void()>& load);
