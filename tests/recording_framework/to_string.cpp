#include <sstream>

#include "ka/recording.h"

namespace ka_recording {

namespace {

std::string block(const Event& event) {
    if (event.block == 0) return "null";
    return event.block == kForeign ? "foreign" : "#" + std::to_string(event.block);
}

std::string lookup(const char* call, const Event& event) {
    return (event.found ? "" : "missing ") + std::string(call) + " " + event.name;
}

}  // namespace

std::string toString(const LogCall& line) {
    std::ostringstream text;
    text << '[' << (line.error ? "err" : "log") << " 0x" << std::hex << line.channel << std::dec << ' '
         << line.level << ' ' << line.tag << ' ' << line.function << ':' << line.line << "] " << line.text
         << '{' << line.format << '}';
    return text.str();
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
