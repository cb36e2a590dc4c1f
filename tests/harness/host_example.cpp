// Over the example of another framework, which keeps the log in memory.
#include <ka/log_ring.h>

#include <csignal>
#include <cstdio>

#include "harness/host.h"
#include "harness/real_process.h"

struct Host::State {
    RealProcess process;
    uint64_t seen = 0;  // number of the last message that is not this host's or was cleared
};

namespace {

// This thread's; what the framework says about a file is not the library's.
std::vector<LogCall> linesSince(uint64_t number) {
    std::vector<LogCall> lines;
    for (const KaLogEntry& entry : ka_log_since(number)) {
        if (entry.thread != std::this_thread::get_id() || entry.tag == "KAJsonParser") continue;
        lines.push_back({entry.error, entry.channel, entry.level, entry.tag, entry.format, entry.function,
                         entry.line, entry.text});
    }
    return lines;
}

}  // namespace

Host::Host() : state_(new State) {
    clearLog();
}

Host::~Host() = default;

std::string Host::file(const std::string& text) {
    return state_->process.file(text);
}

std::vector<LogCall> Host::log() const {
    return linesSince(state_->seen);
}

void Host::clearLog() {
    state_->seen = ka_log_last();
}

// A dying process shows what it has kept.
void Host::echo() {
    static uint64_t since;
    since = state_->seen;
    std::signal(SIGABRT, [](int) {
        for (const LogCall& line : linesSince(since)) std::fprintf(stderr, "%s\n", toString(line).c_str());
    });
}

void Host::expectLeaks(int) {
    state_->process.expectLeaks();
}
