#include <gtest/gtest.h>
#include <ka/log_sink.h>

#include <cstdio>

#include "harness/host.h"
#include "harness/real_process.h"

struct Host::State {
    RealProcess process;
    std::vector<LogCall> log;
    bool echo = false;
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

Host::~Host() {
    t_host = state_->former;
}

std::string Host::file(const std::string& text) {
    return state_->process.file(text);
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
    state_->process.expectLeaks();
}
