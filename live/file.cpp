#include "file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

namespace ebo_live {
namespace {

// While it lives, who opens the file for writing waits: for the microseconds in which it is read.
class Lease {
public:
    explicit Lease(int fd) : fd_(fd) {
        // Of somebody who waits, the system would tell the process by a signal that ends it.
        f_owner_ex me = {F_OWNER_TID, static_cast<pid_t>(syscall(SYS_gettid))};
        if (fcntl(fd, F_SETOWN_EX, &me) != 0 || fcntl(fd, F_SETSIG, SIGURG) != 0) return;
        taken_ = fcntl(fd, F_SETLEASE, F_RDLCK) == 0;
        written_ = !taken_ && errno == EAGAIN;
    }
    ~Lease() {
        if (taken_) fcntl(fd_, F_SETLEASE, F_UNLCK);
    }
    Lease(const Lease&) = delete;
    Lease& operator=(const Lease&) = delete;

    // Somebody has the file open for writing. False also where the system gives no lease: for files of
    // another user, and in some file systems.
    bool written() const { return written_; }

private:
    const int fd_;
    bool taken_ = false;
    bool written_ = false;
};

FileRead unread(const char* what, int error) {
    return {nullptr, std::string(what) + ": " + std::strerror(error), false};
}

int openAgain(const char* path, int flags) {
    int fd = 0;
    do {
        fd = open(path, flags);
    } while (fd < 0 && errno == EINTR);
    return fd;
}

}  // namespace

Descriptor::~Descriptor() {
    if (fd_ >= 0) close(fd_);
}

FileRead readFile(const std::string& path, size_t most_bytes) {
    const Descriptor file(openAgain(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat about = {};
    if (!file.open()) return unread("cannot be opened", errno);
    if (fstat(file.get(), &about) != 0) return unread("cannot be read", errno);
    if (!S_ISREG(about.st_mode)) return {nullptr, "is not a regular file", false};
    const Lease lease(file.get());
    const std::string too_large = "is larger than " + std::to_string(most_bytes) + " bytes";
    if (static_cast<uint64_t>(about.st_size) > most_bytes) return {nullptr, too_large, lease.written()};
    auto bytes = std::make_shared<std::string>();
    bytes->resize(static_cast<size_t>(about.st_size) + 1);  // one more shows whether it has grown
    size_t filled = 0;
    for (;;) {
        const ssize_t got = read(file.get(), &(*bytes)[filled], bytes->size() - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return unread("cannot be read", errno);
        filled += static_cast<size_t>(got);
        if (filled > most_bytes) return {nullptr, too_large, lease.written()};
        if (got == 0) break;
        if (filled == bytes->size()) bytes->resize(2 * filled);
    }
    bytes->resize(filled);
    return {std::move(bytes), "", lease.written()};
}

bool writeAll(int fd, const std::string& bytes) {
    for (size_t at = 0; at < bytes.size();) {
        const ssize_t put = write(fd, bytes.data() + at, bytes.size() - at);
        if (put < 0 && errno == EINTR) continue;
        if (put <= 0) return false;
        at += static_cast<size_t>(put);
    }
    return true;
}

// FNV-1a.
Fingerprint fingerprintOf(const std::string& bytes) {
    uint64_t hash = 0xcbf29ce484222325U;
    for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
    return {bytes.size(), hash};
}

Snapshot::Snapshot(const std::string& bytes, Where where) {
    if (where == Where::Memory) makeInMemory(bytes);
    if (path_.empty()) makeInFolder(bytes);
}

Snapshot::~Snapshot() {
    if (in_folder_) unlink(path_.c_str());
    if (fd_ >= 0) close(fd_);
}

void Snapshot::makeInMemory(const std::string& bytes) {
    fd_ = memfd_create("tuning", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    if (fd_ < 0) return;
    const std::string path = "/proc/self/fd/" + std::to_string(fd_);
    const int seals = F_SEAL_SEAL | F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE;
    if (writeAll(fd_, bytes) && fcntl(fd_, F_ADD_SEALS, seals) == 0 && access(path.c_str(), R_OK) == 0) {
        path_ = path;
        return;
    }
    close(fd_);
    fd_ = -1;
}

void Snapshot::makeInFolder(const std::string& bytes) {
    const char* const folder = secure_getenv("TMPDIR");
    std::string path = std::string(folder != nullptr ? folder : "/tmp") + "/ebo_live-XXXXXX";
    fd_ = mkostemp(path.data(), O_CLOEXEC);  // of mode 0600
    if (fd_ < 0) return;
    in_folder_ = true;
    path_ = path;
    if (writeAll(fd_, bytes)) return;
    unlink(path_.c_str());
    in_folder_ = false;
    path_.clear();
}

}  // namespace ebo_live
