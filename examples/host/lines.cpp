#include "lines.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <utility>

namespace {
constexpr size_t kMostLines = 1000;
}

Lines::Lines() : waiting_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

Lines::~Lines() {
    close(waiting_);
}

void Lines::add(FILE* to, std::string line) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (lines_.size() < kMostLines) {
        lines_.push_back({to, std::move(line)});
    } else {
        ++dropped_;
    }
    eventfd_write(waiting_, 1);
}

void Lines::print() {
    eventfd_t count = 0;
    eventfd_read(waiting_, &count);
    std::deque<Line> lines;
    unsigned dropped = 0;
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        lines = std::exchange(lines_, {});
        dropped = std::exchange(dropped_, 0);
    }
    for (const Line& line : lines) std::fprintf(line.to, "%s\n", line.text.c_str());
    if (dropped > 0) std::fprintf(stderr, "component: %u lines dropped\n", dropped);
}
