#include <cstdarg>
#include <cstdio>

#include "ka/framework.h"
#include "ledger.h"

namespace ka_recording {

void record(Event event) {
    if (Recorder* const recorder = Recorder::current()) recorder->events.push_back(std::move(event));
}

namespace {

__attribute__((format(printf, 1, 0))) std::string fill(const char* format, va_list arguments) {
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, again);
    va_end(again);
    std::string text(static_cast<size_t>(length) + 1, '\0');
    std::vsnprintf(text.data(), text.size(), format, arguments);
    text.pop_back();
    return text;
}

void log(LogCall line) {
    const Recorder* const recorder = Recorder::current();
    if (!recorder || recorder->echo) std::fprintf(stderr, "%s\n", toString(line).c_str());
    Event event{Op::Log};
    event.line = std::move(line);
    record(std::move(event));
}

}  // namespace

}  // namespace ka_recording

using namespace ka_recording;

void ka_err(unsigned int channel, int level, const char* tag, const char* format, const char* function,
            int line, ...) {
    va_list arguments;
    va_start(arguments, line);
    log({true, channel, level, tag, format, function, line, fill(format, arguments)});
    va_end(arguments);
}

void ka_log(unsigned int channel, int level, const char* tag, const char* format, const char* function,
            int line, ...) {
    va_list arguments;
    va_start(arguments, line);
    log({false, channel, level, tag, format, function, line, fill(format, arguments)});
    va_end(arguments);
}
