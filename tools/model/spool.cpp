#include "model/spool.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "text/words.h"

namespace {

// One byte more than the framework takes: it says itself that the copy is too large.
constexpr size_t kLargest = (size_t{64} << 20) + 1;

// A call that a signal has interrupted is made again.
template <typename Call>
auto repeated(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

// An empty file without a name: in memory, or on the disk where the system has no such thing; negative on
// failure.
int unnamedFile() {
    const int memory = memfd_create("eboconf", MFD_CLOEXEC);
    if (memory >= 0) return memory;
    std::FILE* const file = std::tmpfile();
    if (file == nullptr) return -1;
    const int descriptor = fcntl(fileno(file), F_DUPFD_CLOEXEC, 0);
    std::fclose(file);
    return descriptor;
}

bool writeAll(int output, const char* bytes, size_t size) {
    while (size > 0) {
        const ssize_t n = repeated([&] { return write(output, bytes, size); });
        if (n < 0) return false;
        bytes += n;
        size -= static_cast<size_t>(n);
    }
    return true;
}

// Up to kLargest bytes.
bool copyAll(int input, int output) {
    std::array<char, 65536> block{};
    for (size_t left = kLargest; left > 0;) {
        const size_t wanted = left < block.size() ? left : block.size();
        const ssize_t n = repeated([&] { return read(input, block.data(), wanted); });
        if (n <= 0) return n == 0;
        if (!writeAll(output, block.data(), static_cast<size_t>(n))) return false;
        left -= static_cast<size_t>(n);
    }
    return true;
}

bool isKind(const std::string& file, mode_t kind) {
    struct stat status = {};
    return stat(file.c_str(), &status) == 0 && (status.st_mode & S_IFMT) == kind;
}

}  // namespace

SpooledFile::SpooledFile(const std::string& file, Copy copy)
    : file_(file), path_(file == "-" ? "/dev/stdin" : file) {
    const bool standardInput = file == "-";
    const bool needed = standardInput || isKind(file, S_IFIFO);
    if (!needed && (copy == Copy::WhenNeeded || !isKind(file, S_IFREG))) return;
    const int input = standardInput
                          ? STDIN_FILENO
                          : repeated([&] { return open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY); });
    if (input < 0) return;  // the framework says why
    if (!copyFrom(input) && needed) error_ = file_ + ": cannot be copied to memory: " + std::strerror(errno);
    if (!standardInput) close(input);
}

SpooledFile::~SpooledFile() {
    if (copy_ >= 0) close(copy_);
}

bool SpooledFile::copyFrom(int input) {
    copy_ = unnamedFile();
    if (copy_ < 0 || !copyAll(input, copy_)) return false;
    const std::string path = "/proc/self/fd/" + std::to_string(copy_);
    if (access(path.c_str(), R_OK) != 0) return false;
    path_ = path;
    return true;
}

std::string SpooledFile::named(std::string text) const {
    const size_t at = text.find(path_);
    return at == std::string::npos ? text : text.replace(at, path_.size(), printable(file_));
}

std::string SpooledFile::text() const {
    struct stat status = {};
    if (copy_ < 0 || fstat(copy_, &status) != 0) return "";
    std::string text(static_cast<size_t>(status.st_size), '\0');
    const ssize_t n = repeated([&] { return pread(copy_, text.data(), text.size(), 0); });
    text.resize(n > 0 ? static_cast<size_t>(n) : 0);
    return text;
}
