// Bytes of files: read whole, or not at all; handed to loaders as a path that nobody else writes to.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace ebo_live {

using Bytes = std::shared_ptr<const std::string>;

// A descriptor, closed with the object.
class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor();
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return fd_; }
    bool open() const { return fd_ >= 0; }

private:
    const int fd_;
};

struct FileRead {
    Bytes bytes;           // null: not read
    std::string reason;    // why
    bool written = false;  // somebody has it open for writing: it may be half of one content, half of another
};
// Once from front to end, in which time nobody writes to it where the system can see to that.
FileRead readFile(const std::string& path, size_t most_bytes);

bool writeAll(int fd, const std::string& bytes);

// What a content is known by: its length, and a number of 64 bits that no two contents share by chance.
struct Fingerprint {
    uint64_t length = 0;
    uint64_t hash = 0;
    bool operator==(const Fingerprint& other) const { return length == other.length && hash == other.hash; }
};
Fingerprint fingerprintOf(const std::string& bytes);

// The bytes as a file for the framework: in memory, sealed; or, where the system has no such files, a private
// one of mode 0600 in the folder for temporary files. Gone with the object.
class Snapshot {
public:
    enum class Where { Memory, Folder };
    explicit Snapshot(const std::string& bytes, Where where = Where::Memory);
    ~Snapshot();
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

    // Empty when there is no room for it.
    const std::string& path() const { return path_; }

private:
    void makeInMemory(const std::string& bytes);
    void makeInFolder(const std::string& bytes);

    int fd_ = -1;
    std::string path_;
    bool in_folder_ = false;
};

}  // namespace ebo_live
