// The framework's log while an EboLive runs, where the framework lets itself be listened to.
#pragma once

#include <string>

#include "ebo_live.h"

namespace ebo_live {

using OnLog = std::function<void(const EboLiveMessage&)>;

// Without colours and final newlines; newlines inside become blanks.
std::string plainText(const char* text);

// Takes the log for as long as it lives.
class LogTaken {
public:
    explicit LogTaken(const OnLog& on_log);
    ~LogTaken();
    LogTaken(const LogTaken&) = delete;
    LogTaken& operator=(const LogTaken&) = delete;

    const OnLog& onLog() const { return on_log_; }

private:
    const OnLog& on_log_;
};

// Remembers the first error that this thread sends while it lives. One at a time.
class Listening {
public:
    explicit Listening(const OnLog& on_log);
    ~Listening();
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;

    void hear(const EboLiveMessage& message);
    const std::string& firstError() const { return first_error_; }

private:
    const OnLog& on_log_;
    std::string first_error_;
};

// From now on this process, a child, drops messages unseen: a lock of its parent's may never be released
// here.
void fallSilent();

}  // namespace ebo_live
