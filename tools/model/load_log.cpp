#include "model/load_log.h"

#include <ka/framework.h>
#include <ka/log_sink.h>

#include <cstring>
#include <exception>

namespace {

void (*g_beforeAssertion)() = nullptr;

std::string textOf(const char* text) {
    return text != nullptr ? text : "";
}

struct Log {
    const std::function<void(const KaLogMessage&)>& keep;
    std::exception_ptr failure;
};

void take(const KaLogMessage& message, void* user) {
    const bool assertion =
        message.format != nullptr && std::strstr(message.format, "Assertion %s failed") != nullptr;
    if (assertion && g_beforeAssertion != nullptr) g_beforeAssertion();
    Log& log = *static_cast<Log*>(user);
    if (log.failure) return;
    try {
        log.keep(message);
    } catch (...) {
        log.failure = std::current_exception();
    }
}

class Sink {
public:
    explicit Sink(Log& log) { ka_install_log_sink(take, &log); }
    ~Sink() { ka_remove_log_sink(); }
    Sink(const Sink&) = delete;
    Sink& operator=(const Sink&) = delete;
};

}  // namespace

// Colour sequences run from ESC to the letter 'm'.
std::string plainText(const char* text) {
    std::string result;
    for (; *text != '\0'; ++text) {
        if (*text == '\x1b') {
            while (text[1] != '\0' && *text != 'm') ++text;
        } else if (*text != '\n') {
            result += *text;
        }
    }
    return result;
}

void withLog(const std::function<void()>& run, const std::function<void(const KaLogMessage&)>& keep) {
    Log log = {keep, {}};
    {
        const Sink sink(log);
        run();
    }
    if (log.failure) std::rethrow_exception(log.failure);
}

std::vector<LogMessage> messagesOf(const std::function<void()>& load) {
    std::vector<LogMessage> messages;
    withLog(load, [&messages](const KaLogMessage& message) {
        messages.push_back({plainText(message.text), textOf(message.format), textOf(message.function),
                            message.line, message.error, message.text, message.channel, message.level,
                            textOf(message.tag)});
    });
    return messages;
}

void logAgain(const std::vector<LogMessage>& messages) {
    for (const LogMessage& message : messages) {
        const auto log = message.error ? ka_err : ka_log;
        log(message.channel, message.level, message.tag.c_str(), "%s", message.function.c_str(), message.line,
            message.logged.c_str());
    }
}

void beforeAssertion(void (*end)()) {
    g_beforeAssertion = end;
}
