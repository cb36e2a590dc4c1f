// A file that exists in memory alone.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace model {

class MemoryFile {
public:
    explicit MemoryFile(const std::string& bytes) : fd_(memfd_create("tuning", MFD_CLOEXEC)) {
        if (fd_ < 0 || write(fd_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
            std::perror("memfd");
            std::abort();
        }
        path_ = "/proc/self/fd/" + std::to_string(fd_);
    }
    ~MemoryFile() { close(fd_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    const char* path() const { return path_.c_str(); }

private:
    const int fd_;
    std::string path_;
};

}  // namespace model
