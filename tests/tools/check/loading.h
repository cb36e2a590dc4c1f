// What a loader really does with a file.
#pragma once

#include <string>
#include <vector>

#include "check/report.h"

// Takes the log while it lives.
class LogCatcher {
public:
    LogCatcher();
    ~LogCatcher();
    LogCatcher(const LogCatcher&) = delete;
    LogCatcher& operator=(const LogCatcher&) = delete;

    // The library's error messages, without colours.
    const std::vector<std::string>& errors() const { return errors_; }

private:
    std::vector<std::string> errors_;
};

struct Loading {
    CheckOutcome outcome;
    std::vector<std::string> log;  // as LogCatcher::errors()
    bool lacksRecords = false;     // a record is null that no disabled section leaves out
};

// `part` as for the check. A load that is expected to abort runs in a process of its own.
Loading loadPart(const std::string& part, const std::string& path, bool expectAbort);

// The files of a folder and its folders with this extension, or all with none, in order.
std::vector<std::string> filesIn(const std::string& folder, const std::string& extension);
std::string readText(const std::string& path);
