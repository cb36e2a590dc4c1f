#include "log_line.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

const char* levelName(int level, char (&digits)[12]) {
    if (level == 2) return "E";
    if (level == 4) return "N";
    if (level == 5) return "I";
    snprintf(digits, sizeof digits, "%d", level);
    return digits;
}

// Length of the colour sequence (ESC [ numbers m) at `text`, 0 if there is none.
size_t colourLength(const char* text) {
    if (text[0] != '\x1b' || text[1] != '[') return 0;
    const size_t length = 2 + strspn(text + 2, "0123456789;");
    return text[length] == 'm' ? length + 1 : 0;
}

// Copies the text as one line: newlines at its end go, also those before a last colour sequence, others
// become blanks; colours go unless wanted. Stops at `end`. Returns where the copy ends.
char* copyLine(char* to, const char* end, const char* text, bool colours) {
    size_t newlines = 0;  // seen and not yet written
    while (*text != '\0') {
        const size_t colour = colourLength(text);
        if (colour > 0) {
            if (colours && colour <= static_cast<size_t>(end - to)) {
                memcpy(to, text, colour);
                to += colour;
            }
            text += colour;
        } else if (*text == '\n' || *text == '\r') {
            ++newlines;
            ++text;
        } else {
            for (; newlines > 0 && to < end; --newlines) *to++ = ' ';
            if (to < end) *to++ = *text;
            ++text;
        }
    }
    return to;
}

void writeAll(const char* line, size_t length) {
    while (length > 0) {
        const ssize_t n = write(STDERR_FILENO, line, length);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return;
        line += n;
        length -= static_cast<size_t>(n);
    }
}

}  // namespace

void writeLogLine(const KaLogMessage& message) {
    char digits[12];
    const char* const level = levelName(message.level, digits);
    const char* const tag = message.tag ? message.tag : "-";
    const char* const function = message.function ? message.function : "-";
    const size_t size = strlen(tag) + strlen(function) + strlen(message.text) + 32;
    char stack[640];
    char* const heap = size > sizeof stack ? static_cast<char*>(malloc(size)) : nullptr;
    char* const line = heap ? heap : stack;
    const size_t capacity = heap ? size : sizeof stack;
    const char* const end = line + capacity - 1;  // room for the newline

    const bool colours = strchr(message.text, '\x1b') && isatty(STDERR_FILENO);
    const int length = snprintf(line, capacity, "%s %s %s:%d: ", level, tag, function, message.line);
    const ptrdiff_t head = std::clamp<ptrdiff_t>(length, 0, end - line);
    char* to = copyLine(line + head, end, message.text, colours);
    *to++ = '\n';
    writeAll(line, static_cast<size_t>(to - line));
    free(heap);
}
