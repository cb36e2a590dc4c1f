#include "log_line.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// Length of the colour sequence (ESC [ numbers m) at `text`, 0 if there is none.
size_t colourLength(const char* text) {
    if (text[0] != '\x1b' || text[1] != '[') return 0;
    const size_t length = 2 + strspn(text + 2, "0123456789;");
    return text[length] == 'm' ? length + 1 : 0;
}

// Copies the text as one line: newlines at its end go, even those before a last colour sequence, others become
// blanks; colours go unless wanted. Stops at `end`. Returns where the copy ends.
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
    const char* level = digits;
    switch (message.level) {
        case 2: level = "E"; break;
        case 4: level = "N"; break;
        case 5: level = "I"; break;
        default: snprintf(digits, sizeof digits, "%d", message.level);
    }
    const char* const tag = message.tag ? message.tag : "-";
    const char* const function = message.function ? message.function : "-";
    const size_t size = strlen(tag) + strlen(function) + strlen(message.text) + 32;
    char stack[640];
    char* const heap = size > sizeof stack ? static_cast<char*>(malloc(size)) : nullptr;
    char* const line = heap ? heap : stack;
    const char* const end = line + (heap ? size : sizeof stack) - 1;

    const bool colours = strchr(message.text, '\x1b') && isatty(STDERR_FILENO);
    int head = snprintf(line, static_cast<size_t>(end - line), "%s %s %s:%d: ", level, tag, function, message.line);
    if (head < 0) head = 0;
    if (head > end - line) head = static_cast<int>(end - line);
    char* to = copyLine(line + head, end, message.text, colours);
    *to++ = '\n';
    writeAll(line, static_cast<size_t>(to - line));
    free(heap);
}
