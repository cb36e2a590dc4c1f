// A file without a disk: thousands are written.
#pragma once

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <string>

class MemoryFile {
public:
    MemoryFile() : descriptor_(memfd_create("test.json", 0)) {}
    ~MemoryFile() { close(descriptor_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }
    void write(const std::string& text) const {
        ASSERT_EQ(ftruncate(descriptor_, 0), 0);
        ASSERT_EQ(pwrite(descriptor_, text.data(), text.size(), 0), static_cast<ssize_t>(text.size()));
    }

private:
    const int descriptor_;
};
