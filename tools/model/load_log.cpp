#include "model/load_log.h"

#include <ka/log_sink.h>

namespace {

std::string textOf(const char* text) {
    return text != nullptr ? text : "";
}

void keep(const KaLogMessage& message, void* user) {
    static_cast<std::vector<LogMessage>*>(user)->push_back({plainText(message.text), textOf(message.format),
                                                            textOf(message.function), message.line,
                                                            message.error});
}

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

std::vector<LogMessage> messagesOf(const std::function<void()>& load) {
    std::vector<LogMessage> messages;
    ka_install_log_sink(keep, &messages);
    load();
    ka_remove_log_sink();
    return messages;
}
