#include <algorithm>
#include <iterator>

#include "ka/recording.h"
#include "ledger.h"

namespace ka_recording {

namespace {

thread_local Recorder* t_recorder = nullptr;

std::string block(const Event& event) {
    if (event.block == 0) return "null";
    return event.block == kForeign ? "foreign" : "#" + std::to_string(event.block);
}

std::string lookup(const char* call, const Event& event) {
    return (event.found ? "" : "missing ") + std::string(call) + " " + event.name;
}

}  // namespace

Recorder::Recorder() {
    t_recorder = this;
}

Recorder::~Recorder() {
    t_recorder = nullptr;
    releaseBlocksOf(this);
}

Recorder* Recorder::current() {
    return t_recorder;
}

std::vector<Event> Recorder::only(std::initializer_list<Op> ops) const {
    std::vector<Event> found;
    std::copy_if(events.begin(), events.end(), std::back_inserter(found), [&](const Event& event) {
        return std::find(ops.begin(), ops.end(), event.op) != ops.end();
    });
    return found;
}

std::vector<int> Recorder::live() const {
    return liveBlocksOf(this);
}

std::string toString(const Event& event) {
    switch (event.op) {
        case Op::ParserMade:
            return "parser made";
        case Op::ParseFile:
            return lookup("parseFile", event);
        case Op::GetOptions:
            return lookup("getOptions", event);
        case Op::ParserGone:
            return "parser gone";
        case Op::MetaMade:
            return "meta made";
        case Op::FindInt32:
            return lookup("findInt32", event);
        case Op::FindFloat:
            return lookup("findFloat", event);
        case Op::FindCString:
            return lookup("findCString", event);
        case Op::MetaGone:
            return "meta gone";
        case Op::Malloc:
            return "malloc " + block(event) + " " + event.name;
        case Op::Strdup:
            return "strdup " + block(event) + " " + event.name;
        case Op::SafeFree:
            return "safe_free " + block(event) + " " + event.name;
        case Op::Free:
            return "free " + block(event);
        case Op::Memset:
            return "memset " + block(event) + " " + std::to_string(event.value);
        case Op::Compare:
            return "compare " + event.name;
        case Op::Log:
            return (event.line.error ? "err " : "log ") + event.line.function + " " + event.line.text;
    }
    return "?";
}

}  // namespace ka_recording
