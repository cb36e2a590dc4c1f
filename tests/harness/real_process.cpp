#include "harness/real_process.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#define EBO_LEAKS_ARE_SEEN
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define EBO_LEAKS_ARE_SEEN
#endif
#endif
#ifdef EBO_LEAKS_ARE_SEEN
#include <sanitizer/lsan_interface.h>
#endif

RealProcess::~RealProcess() {
#ifdef EBO_LEAKS_ARE_SEEN
    if (leaks_) __lsan_enable();
#endif
    for (const int file : files_) close(file);
}

std::string RealProcess::file(const std::string& text) {
    const int file = memfd_create("document.json", MFD_CLOEXEC);
    EXPECT_EQ(write(file, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    files_.push_back(file);
    return "/proc/self/fd/" + std::to_string(file);
}

void RealProcess::expectLeaks() {
#ifdef EBO_LEAKS_ARE_SEEN
    if (!leaks_) __lsan_disable();
#endif
    leaks_ = true;
}
