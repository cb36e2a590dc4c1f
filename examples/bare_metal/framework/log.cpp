// The log goes to the board's console, one line each.
#include <cstdarg>
#include <cstdio>

#include "board.h"
#include "ka/framework.h"

namespace {

__attribute__((format(printf, 5, 0))) void write(char kind, const char* tag, const char* function, int line,
                                                 const char* format, va_list arguments) {
    static char text[256];  // one thread; a longer message is cut off
    const int head = std::snprintf(text, sizeof(text), "%c %s %s:%d: ", kind, tag, function, line);
    const size_t length =
        head > 0 && static_cast<size_t>(head) < sizeof(text) ? static_cast<size_t>(head) : 0;
    std::vsnprintf(text + length, sizeof(text) - length, format, arguments);
    boardWrite(text);
    boardWrite("\n");
}

}  // namespace

void ka_err(unsigned int, int, const char* tag, const char* format, const char* function, int line, ...) {
    va_list arguments;
    va_start(arguments, line);
    write('E', tag, function, line, format, arguments);
    va_end(arguments);
}

void ka_log(unsigned int, int, const char* tag, const char* format, const char* function, int line, ...) {
    va_list arguments;
    va_start(arguments, line);
    write('I', tag, function, line, format, arguments);
    va_end(arguments);
}

// The C library's brings all of its messages.
extern "C" char* strerror(int) {
    static char text[] = "error";
    return text;
}
