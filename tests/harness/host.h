// One test's host, the same for both builds of a test: over the recording framework (kRecords), and over the
// embedded default, where documents are real files and the log lines come through the sink.
//
//     Host host;
//     KAEboParam* ebo = parseEboConfigs(host.file(text).c_str());
//     expectLog(host, {error("parseEboDtdConfigs", "find dtd status failed")});
//     if constexpr (Host::kRecords) { EXPECT_EQ(host.recorder().blocks, 22); }
#pragma once

#include <ka/framework.h>

#include <memory>
#include <string>
#include <vector>

#include "recording_framework/ka/recording.h"

using ka_recording::LogCall;

//
// Each thread has hosts of its own. Of several in one thread the last one made is told what happens; they end
// in reverse order.
class Host {
public:
    struct State;
    static constexpr bool kRecords = EBO_HOST_RECORDS;

    Host();
    // Fails the test when a parser, a key/value record or a block is left over.
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    // The path of a document with this text, to be handed to a loader; valid as long as the host.
    std::string file(const std::string& text);

    // What the library has logged on this thread so far.
    std::vector<LogCall> log() const;
    void clearLog();

    // From now on each line also goes to standard error: call it in the statement of a death test.
    void echo();

    // This many blocks are left over on purpose, by calls from now on.
    void expectLeaks(int blocks);

    // Only inside `if constexpr (Host::kRecords)`.
    ka_recording::Recorder& recorder();

private:
    std::unique_ptr<State> state_;
};

// An open document, as the section readers take it.
class Document {
public:
    Document(Host& host, const std::string& text) {
        accepted_ = parser_.parseFile(host.file(text).c_str()) != 0;
    }
    KAJsonParser* parser() { return &parser_; }
    bool accepted() const { return accepted_; }

private:
    KAJsonParser parser_;
    bool accepted_;
};
