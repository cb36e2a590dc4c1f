// A text of the log.
#pragma once

#include <cstdarg>
#include <cstdlib>

// Formatted as printf does in the C locale: a short text on the stack, a long one on the heap, cut off where
// there is no memory for it.
class LogText {
public:
    LogText() = default;
    ~LogText() { free(heap_); }
    LogText(const LogText&) = delete;
    LogText& operator=(const LogText&) = delete;

    // Once.
    void format(const char* format, ...) __attribute__((format(printf, 2, 3)));
    void formatList(const char* format, va_list arguments) __attribute__((format(printf, 2, 0)));
    char* get() { return heap_ ? heap_ : stack_; }

private:
    bool formatPlain(const char* format, va_list arguments);
    void formatAny(const char* format, va_list arguments) __attribute__((format(printf, 2, 0)));

    char stack_[640];
    char* heap_ = nullptr;
};
