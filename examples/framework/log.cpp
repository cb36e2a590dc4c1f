#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <deque>
#include <mutex>

#include "ka/log_ring.h"

namespace {

constexpr size_t kKept = 4096;

struct Ring {
    std::mutex mutex;
    std::deque<KaLogEntry> entries;
    uint64_t last = 0;
};

// Never destroyed: messages may come after the end of main().
Ring& ring() {
    static Ring* const instance = new Ring;
    return *instance;
}

std::string string(const char* text) {
    return text != nullptr ? text : "";
}

__attribute__((format(printf, 1, 0))) std::string fill(const char* format, va_list arguments) {
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, again);
    va_end(again);
    if (length < 0) return format;
    std::string text(static_cast<size_t>(length), '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, arguments);
    return text;
}

void keep(KaLogEntry entry) {
    const std::lock_guard<std::mutex> lock(ring().mutex);
    entry.number = ++ring().last;
    ring().entries.push_back(std::move(entry));
    if (ring().entries.size() > kKept) ring().entries.pop_front();
}

}  // namespace

uint64_t ka_log_last() {
    const std::lock_guard<std::mutex> lock(ring().mutex);
    return ring().last;
}

std::vector<KaLogEntry> ka_log_since(uint64_t number) {
    const std::lock_guard<std::mutex> lock(ring().mutex);
    const std::deque<KaLogEntry>& entries = ring().entries;
    const uint64_t wanted = number < ring().last ? ring().last - number : 0;
    const auto count = static_cast<std::ptrdiff_t>(std::min<uint64_t>(wanted, entries.size()));
    return {entries.end() - count, entries.end()};
}

void ka_err(unsigned int channel, int level, const char* tag, const char* format, const char* function,
            int line, ...) {
    va_list arguments;
    va_start(arguments, line);
    keep({0, std::this_thread::get_id(), true, channel, level, string(tag), string(function), line, format,
          fill(format, arguments)});
    va_end(arguments);
}

void ka_log(unsigned int channel, int level, const char* tag, const char* format, const char* function,
            int line, ...) {
    va_list arguments;
    va_start(arguments, line);
    keep({0, std::this_thread::get_id(), false, channel, level, string(tag), string(function), line, format,
          fill(format, arguments)});
    va_end(arguments);
}
