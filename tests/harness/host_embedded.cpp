#include <gtest/gtest.h>
#include <ka/log_sink.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>

#include "harness/host.h"

#if defined(__SANITIZE_ADDRESS__)
#define EBO_LEAKS_ARE_SEEN
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define EBO_LEAKS_ARE_SEEN
#endif
#endif
#ifdef EBO_LEAKS_ARE_SEEN
#include <sanitizer/lsan_interface.h>
#endif

struct Host::State {
    std::vector<int> files;
    std::vector<LogCall> log;
    bool echo = false;
    bool leaks = false;
    State* former = nullptr;
};

namespace {

thread_local Host::State* t_host = nullptr;

std::string string(const char* text) {
    return text ? text : "(null)";
}

// Each thread's lines go to its own host. What the framework says about a file is not the library's.
void collect(const KaLogMessage& message, void*) {
    const LogCall line{message.error,          message.channel,          message.level, string(message.tag),
                       string(message.format), string(message.function), message.line,  string(message.text)};
    if (line.tag == "KAJsonParser") return;
    if (!t_host || t_host->echo) std::fprintf(stderr, "%s\n", toString(line).c_str());
    if (t_host) t_host->log.push_back(line);
}

const bool g_sink_installed = [] {
    ka_install_log_sink(collect, nullptr);
    return true;
}();

}  // namespace

Host::Host() : state_(new State) {
    EXPECT_TRUE(g_sink_installed);
    state_->former = t_host;
    t_host = state_.get();
}

// Leaks are the sanitizer's to find.
Host::~Host() {
    t_host = state_->former;
#ifdef EBO_LEAKS_ARE_SEEN
    if (state_->leaks) __lsan_enable();
#endif
    for (const int file : state_->files) close(file);
}

// In memory: a death test leaves no file behind.
std::string Host::file(const std::string& text) {
    const int file = memfd_create("document.json", MFD_CLOEXEC);
    EXPECT_EQ(write(file, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    state_->files.push_back(file);
    return "/proc/self/fd/" + std::to_string(file);
}

std::vector<LogCall> Host::log() const {
    return state_->log;
}

void Host::clearLog() {
    state_->log.clear();
}

void Host::echo() {
    state_->echo = true;
}

void Host::expectLeaks(int) {
#ifdef EBO_LEAKS_ARE_SEEN
    if (!state_->leaks) __lsan_disable();
#endif
    state_->leaks = true;
}
