#include "log_text.h"

#include <langinfo.h>
#include <locale.h>

#include <charconv>
#include <cstdio>
#include <cstring>

namespace {

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

}  // namespace

void LogText::format(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    formatList(format, arguments);
    va_end(arguments);
}

void LogText::formatList(const char* format, va_list arguments) {
    va_list again;
    va_copy(again, arguments);
    const bool plain = formatPlain(format, again);
    va_end(again);
    if (!plain) formatAny(format, arguments);
}

// A short text of no conversions but %s and %d, as most are. The C library's own way takes many pages of code
// and tables, for which the first message of a process would have to wait.
bool LogText::formatPlain(const char* format, va_list arguments) {
    char* to = stack_;
    char* const end = stack_ + sizeof stack_ - 1;
    const auto append = [&to, end](const char* text, size_t length) {
        if (length > static_cast<size_t>(end - to)) return false;
        memcpy(to, text, length);
        to += length;
        return true;
    };
    for (;; format += 2) {
        const size_t length = strcspn(format, "%");
        if (!append(format, length)) return false;
        format += length;
        if (*format == '\0') break;
        if (format[1] == 's') {
            const char* const text = va_arg(arguments, const char*);
            if (!text || !append(text, strlen(text))) return false;
        } else if (format[1] == 'd') {
            char digits[12];
            const char* const last =
                std::to_chars(digits, digits + sizeof digits, va_arg(arguments, int)).ptr;
            if (!append(digits, static_cast<size_t>(last - digits))) return false;
        } else {
            return false;
        }
    }
    *to = '\0';
    return true;
}

void LogText::formatAny(const char* format, va_list arguments) {
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
