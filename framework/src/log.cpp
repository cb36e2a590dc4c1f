#include <langinfo.h>
#include <locale.h>
#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "ka/log_sink.h"
#include "log_line.h"

namespace {

std::atomic<int> g_level{INT_MAX};  // of the messages that are let through
pthread_rwlock_t g_sink_lock = PTHREAD_RWLOCK_INITIALIZER;
KaLogSink g_sink = nullptr;
void* g_sink_user = nullptr;

// The locale's point is all that the formats of this library's messages depend on.
bool printsNumbersAsInC() {
    return strcmp(nl_langinfo(RADIXCHAR), ".") == 0;
}

// While it lives this thread prints numbers as in C, whatever the process has set.
class NumbersInC {
public:
    NumbersInC() : c_(printsNumbersAsInC() ? locale_t{} : newlocale(LC_ALL_MASK, "C", nullptr)) {
        if (c_) former_ = uselocale(c_);
    }
    ~NumbersInC() {
        if (!c_) return;
        uselocale(former_);
        freelocale(c_);
    }
    NumbersInC(const NumbersInC&) = delete;
    NumbersInC& operator=(const NumbersInC&) = delete;

private:
    const locale_t c_;  // null where the locale need not change
    locale_t former_{};
};

// A formatted message: short ones on the stack, long ones on the heap, cut off when there is no memory.
class Text {
public:
    __attribute__((format(printf, 2, 0))) Text(const char* format, va_list arguments) {
        const NumbersInC numbers;
        va_list again;
        va_copy(again, arguments);
        const int length = vsnprintf(stack_, sizeof stack_, format, arguments);
        if (length < 0) {
            stack_[0] = '\0';
        } else if (static_cast<size_t>(length) >= sizeof stack_) {
            const size_t size = static_cast<size_t>(length) + 1;
            heap_ = static_cast<char*>(malloc(size));
            if (heap_) vsnprintf(heap_, size, format, again);
        }
        va_end(again);
    }
    ~Text() { free(heap_); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;

    const char* get() const { return heap_ ? heap_ : stack_; }

private:
    char stack_[512];
    char* heap_ = nullptr;
};

__attribute__((format(printf, 5, 0))) void deliver(bool error, unsigned int channel, int level,
                                                   const char* tag, const char* format, const char* function,
                                                   int line, va_list arguments) {
    if (level > g_level.load(std::memory_order_relaxed)) return;
    const int former_errno = errno;
    const Text text(format, arguments);
    const KaLogMessage message = {channel, level, tag, function, line, format, text.get(), error};
    pthread_rwlock_rdlock(&g_sink_lock);
    if (g_sink) {
        g_sink(message, g_sink_user);
    } else {
        writeLogLine(message);
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
