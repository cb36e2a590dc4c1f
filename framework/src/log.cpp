#include <locale.h>
#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "ka/log_sink.h"

namespace {

std::atomic<int> g_level{INT_MAX};  // of the messages that are let through
pthread_rwlock_t g_sink_lock = PTHREAD_RWLOCK_INITIALIZER;
KaLogSink g_sink = nullptr;
void* g_sink_user = nullptr;

// A text formatted as printf does in the C locale, whatever the process has set: a short one on the stack, a
// long one on the heap, cut off where there is no memory for it.
class Text {
public:
    Text() = default;
    ~Text() { free(heap_); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;

    char* get() { return heap_ ? heap_ : stack_; }

    // Once.
    __attribute__((format(printf, 2, 0))) void formatList(const char* format, va_list arguments) {
        va_list again;
        va_copy(again, arguments);
        if (!formatPlain(format, arguments)) formatAny(format, again);
        va_end(again);
    }
    __attribute__((format(printf, 2, 3))) void format(const char* format, ...) {
        va_list arguments;
        va_start(arguments, format);
        formatList(format, arguments);
        va_end(arguments);
    }

private:
    bool append(const char* text, size_t length) {
        if (length >= sizeof stack_ - length_) return false;
        memcpy(stack_ + length_, text, length);
        length_ += length;
        return true;
    }

    // A short text of no conversions but %s and %d, as most are. The C library's own way takes many pages of
    // code and tables, for which the first message of a process would have to wait.
    bool formatPlain(const char* format, va_list arguments) {
        for (;; format += 2) {
            const size_t length = strcspn(format, "%");
            if (!append(format, length)) return false;
            format += length;
            stack_[length_] = '\0';
            if (*format == '\0') return true;
            char digits[12];
            const char* text = digits;
            if (format[1] == 's') {
                text = va_arg(arguments, const char*);
            } else if (format[1] == 'd') {
                *std::to_chars(digits, digits + sizeof digits, va_arg(arguments, int)).ptr = '\0';
            } else {
                return false;
            }
            if (!text || !append(text, strlen(text))) return false;
        }
    }

    __attribute__((format(printf, 2, 0))) void formatAny(const char* format, va_list arguments) {
        const locale_t c_locale = newlocale(LC_ALL_MASK, "C", nullptr);
        const locale_t former = uselocale(c_locale);
        va_list again;
        va_copy(again, arguments);
        const int length = vsnprintf(stack_, sizeof stack_, format, arguments);
        const size_t size = static_cast<size_t>(length) + 1;
        if (length < 0) stack_[0] = '\0';
        if (size > sizeof stack_) heap_ = static_cast<char*>(malloc(size));
        if (heap_) vsnprintf(heap_, size, format, again);
        va_end(again);
        uselocale(former);
        freelocale(c_locale);
    }

    char stack_[640];
    size_t length_ = 0;
    char* heap_ = nullptr;
};

// Length of the colour sequence (ESC [ numbers m) at `text`, 0 if there is none.
size_t colourLength(const char* text) {
    if (text[0] != '\x1b' || text[1] != '[') return 0;
    const size_t length = 2 + strspn(text + 2, "0123456789;");
    return text[length] == 'm' ? length + 1 : 0;
}

// Makes one line of the text: newlines at its end go, also those before a last colour sequence, others become
// blanks; colours go unless wanted. Returns its length with the newline, which takes the place of the final
// NUL.
size_t makeLine(char* text, bool colours) {
    char* to = text;
    size_t newlines = 0;  // seen and not yet written
    for (const char* from = text; *from != '\0';) {
        const size_t colour = colourLength(from);
        if (colour > 0) {
            if (colours) {
                memmove(to, from, colour);
                to += colour;
            }
            from += colour;
        } else if (*from == '\n' || *from == '\r') {
            ++newlines;
            ++from;
        } else {
            for (; newlines > 0; --newlines) *to++ = ' ';
            *to++ = *from++;
        }
    }
    *to++ = '\n';
    return static_cast<size_t>(to - text);
}

// Writes "LEVEL TAG function:line: text" and one newline with a single call of the system, so that lines of
// several threads do not mix. Colours reach a terminal only.
void writeLine(const KaLogMessage& message) {
    char digits[12];
    *std::to_chars(digits, digits + sizeof digits, message.level).ptr = '\0';
    const char* const level = message.level == 2   ? "E"
                              : message.level == 4 ? "N"
                              : message.level == 5 ? "I"
                                                   : digits;
    Text text;
    text.format("%s %s %s:%d: %s", level, message.tag ? message.tag : "-",
                message.function ? message.function : "-", message.line, message.text);
    const char* line = text.get();
    size_t length = makeLine(text.get(), strchr(message.text, '\x1b') && isatty(STDERR_FILENO));
    while (length > 0) {
        const ssize_t n = write(STDERR_FILENO, line, length);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return;
        line += n;
        length -= static_cast<size_t>(n);
    }
}

__attribute__((format(printf, 5, 0))) void deliver(bool error, unsigned int channel, int level,
                                                   const char* tag, const char* format, const char* function,
                                                   int line, va_list arguments) {
    if (level > g_level.load(std::memory_order_relaxed)) return;
    const int former_errno = errno;
    Text text;
    text.formatList(format, arguments);
    const KaLogMessage message = {channel, level, tag, function, line, format, text.get(), error};
    pthread_rwlock_rdlock(&g_sink_lock);
    if (g_sink) {
        g_sink(message, g_sink_user);
    } else {
        writeLine(message);
    }
    pthread_rwlock_unlock(&g_sink_lock);
    errno = former_errno;
}

}  // namespace

void ka_install_log_sink(KaLogSink sink, void* user) {
    pthread_rwlock_wrlock(&g_sink_lock);
    g_sink = sink;
    g_sink_user = user;
    pthread_rwlock_unlock(&g_sink_lock);
}

void ka_remove_log_sink() {
    ka_install_log_sink(nullptr, nullptr);
}

void ka_set_log_level(int level) {
    g_level.store(level, std::memory_order_relaxed);
}

void ka_err(unsigned int channel, int level, const char* tag, const char* format, const char* function,
            int line, ...) {
    va_list arguments;
    va_start(arguments, line);
    deliver(true, channel, level, tag, format, function, line, arguments);
    va_end(arguments);
}

void ka_log(unsigned int channel, int level, const char* tag, const char* format, const char* function,
            int line, ...) {
    va_list arguments;
    va_start(arguments, line);
    deliver(false, channel, level, tag, format, function, line, arguments);
    va_end(arguments);
}
