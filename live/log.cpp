#include "log.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <vector>

#if __has_include(<ka/log_sink.h>)
#include <ka/log_sink.h>
#define EBO_LIVE_TAKES_LOG 1
#else
#define EBO_LIVE_TAKES_LOG 0
#endif

namespace ebo_live {

std::string plainText(const char* text) {
    std::string plain;
    size_t newlines = 0;  // seen, and not yet in it
    while (*text != '\0') {
        if (text[0] == '\x1b' && text[1] == '[') {
            const size_t length = 2 + std::strspn(text + 2, "0123456789;");
            if (text[length] == 'm') {
                text += length + 1;
                continue;
            }
        }
        if (*text == '\n' || *text == '\r') {
            ++newlines;
        } else {
            plain.append(newlines, ' ') += *text;
            newlines = 0;
        }
        ++text;
    }
    return plain;
}

namespace {

thread_local Listening* t_listening = nullptr;

#if EBO_LIVE_TAKES_LOG
thread_local bool t_silent = false;

std::mutex g_install_mutex;  // never taken by a sink, which an installation waits for

// Those that have the log, the first of them first. A callback may log itself.
std::recursive_mutex g_takers_mutex;
std::vector<const LogTaken*>& takers() {
    static auto* const all = new std::vector<const LogTaken*>;  // outlives every thread
    return *all;
}

void sink(const KaLogMessage& message, void* /*user*/) {
    if (t_silent) return;
    const std::string text = plainText(message.text);
    const EboLiveMessage plain = {message.level,    message.error, message.tag,
                                  message.function, message.line,  text.c_str()};
    if (t_listening != nullptr) return t_listening->hear(plain);
    const std::lock_guard<std::recursive_mutex> lock(g_takers_mutex);
    if (!takers().empty() && takers().front()->onLog()) takers().front()->onLog()(plain);
}
#endif

}  // namespace

#if EBO_LIVE_TAKES_LOG
LogTaken::LogTaken(const OnLog& on_log) : on_log_(on_log) {
    const std::lock_guard<std::mutex> installing(g_install_mutex);
    std::unique_lock<std::recursive_mutex> lock(g_takers_mutex);
    takers().push_back(this);
    const bool first = takers().size() == 1;
    lock.unlock();
    if (first) ka_install_log_sink(sink, nullptr);
}

LogTaken::~LogTaken() {
    const std::lock_guard<std::mutex> installing(g_install_mutex);
    std::unique_lock<std::recursive_mutex> lock(g_takers_mutex);
    takers().erase(std::find(takers().begin(), takers().end(), this));
    const bool last = takers().empty();
    lock.unlock();
    if (last) ka_remove_log_sink();
}

void fallSilent() {
    t_silent = true;
}
#else
LogTaken::LogTaken(const OnLog& on_log) : on_log_(on_log) {}
LogTaken::~LogTaken() = default;
void fallSilent() {}
#endif

Listening::Listening(const OnLog& on_log) : on_log_(on_log) {
    t_listening = this;
}

Listening::~Listening() {
    t_listening = nullptr;
}

void Listening::hear(const EboLiveMessage& message) {
    if (message.error && first_error_.empty()) first_error_ = message.text;
    if (on_log_) on_log_(message);
}

}  // namespace ebo_live
