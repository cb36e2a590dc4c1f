// What a load logs, taken from the log.
#pragma once

#include <functional>
#include <string>
#include <vector>

struct KaLogMessage;

// `text` without colour sequences and line breaks.
std::string plainText(const char* text);

struct LogMessage {
    std::string text;    // without colours and line break
    std::string format;  // as the caller gave it
    std::string function;
    int line;
    bool error;
    std::string logged;  // the text as it was
    unsigned int channel;
    int level;
    std::string tag;
};

// Hands `keep` each message that is logged while `run` runs, in place of the log. When `keep` throws, the
// exception goes on once `run` is through: the framework, which calls it, knows no exceptions.
void withLog(const std::function<void()>& run, const std::function<void(const KaLogMessage&)>& keep);

// The messages that are logged while `load` runs.
std::vector<LogMessage> messagesOf(const std::function<void()>& load);
// Logs them again as they were.
void logAgain(const std::vector<LogMessage>& messages);

// The library asserts its allocations, and aborts. `end` is called before it does so within withLog(); null:
// nothing.
void beforeAssertion(void (*end)());
