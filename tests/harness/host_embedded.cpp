#include <gtest/gtest.h>
#include <ka/log_sink.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

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
    std::filesystem::path folder;
    int files = 0;
    std::vector<LogCall> log;
    bool echo = false;
    bool leaks = false;
};

namespace {

thread_local std::vector<LogCall>* t_log = nullptr;
thread_local const bool* t_echo = nullptr;

std::string string(const char* text) {
    return text ? text : "(null)";
}

// Each thread's lines go to its own host. What the framework says about a file is not the library's.
void collect(const KaLogMessage& message, void*) {
    const LogCall line{message.error,          message.channel,          message.level, string(message.tag),
                       string(message.format), string(message.function), message.line,  string(message.text)};
    if (line.tag == "KAJsonParser") return;
    if (!t_log || *t_echo) std::fprintf(stderr, "%s\n", toString(line).c_str());
    if (t_log) t_log->push_back(line);
}

const bool g_sink_installed = [] {
    ka_install_log_sink(collect, nullptr);
    return true;
}();

}  // namespace

Host::Host() : state_(new State) {
    EXPECT_TRUE(g_sink_installed);
    std::string name = (std::filesystem::temp_directory_path() / "ebo-test-XXXXXX").string();
    EXPECT_NE(mkdtemp(name.data()), nullptr);
    state_->folder = name;
    t_log = &state_->log;
    t_echo = &state_->echo;
}

// Leaks are the sanitizer's to find.
Host::~Host() {
    t_log = nullptr;
    t_echo = nullptr;
#ifdef EBO_LEAKS_ARE_SEEN
    if (state_->leaks) __lsan_enable();
#endif
    std::error_code ignored;
    std::filesystem::remove_all(state_->folder, ignored);
}

std::string Host::file(const std::string& text) {
    const std::filesystem::path path =
        state_->folder / ("document-" + std::to_string(state_->files++) + ".json");
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
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
