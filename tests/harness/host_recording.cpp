#include <gtest/gtest.h>

#include "harness/host.h"

using ka_recording::Event;
using ka_recording::Op;

struct Host::State {
    ka_recording::Recorder recorder;
    size_t cleared = 0;  // log lines that were asked to be forgotten
    size_t leaks = 0;
};

Host::Host() : state_(new State) {}

Host::~Host() {
    const ka_recording::Recorder& seen = state_->recorder;
    EXPECT_EQ(seen.live().size(), state_->leaks) << "blocks left over";
    EXPECT_EQ(seen.live_parsers, 0) << "parsers left over";
    EXPECT_EQ(seen.live_metas, 0) << "key/value records left over";
}

std::string Host::file(const std::string& text) {
    auto& documents = state_->recorder.documents;
    const std::string path = "document-" + std::to_string(documents.size()) + ".json";
    documents[path] = text;
    return path;
}

std::vector<LogCall> Host::log() const {
    std::vector<LogCall> lines;
    for (const Event& event : state_->recorder.log()) lines.push_back(event.line);
    return {lines.begin() + static_cast<std::ptrdiff_t>(state_->cleared), lines.end()};
}

void Host::clearLog() {
    state_->cleared = state_->recorder.log().size();
}

void Host::echo() {
    state_->recorder.echo = true;
}

void Host::expectLeaks(int blocks) {
    state_->leaks += static_cast<size_t>(blocks);
}

ka_recording::Recorder& Host::recorder() {
    return state_->recorder;
}
