#include "file_buffer.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace {

const char* readOpen(int fd, FileBuffer* file, int* system_error) {
    struct stat status;
    if (fd < 0 || fstat(fd, &status) != 0) {
        *system_error = errno;
        return "cannot be opened";
    }
    if (!S_ISREG(status.st_mode)) return "not a regular file";
    if (status.st_size > static_cast<off_t>(kMaxFileSize)) return "larger than 64 MiB";
    if (status.st_size == 0) return "the file is empty";

    const size_t size = static_cast<size_t>(status.st_size);
    file->text = static_cast<char*>(malloc(size + kFilePadding));
    if (!file->text) return "out of memory";
    ssize_t n = 1;
    while (file->size < size && n != 0) {
        n = read(fd, file->text + file->size, size - file->size);
        if (n > 0) file->size += static_cast<uint32_t>(n);
        if (n >= 0 || errno == EINTR) continue;
        *system_error = errno;
        return "cannot be read";
    }
    memset(file->text + file->size, 0, kFilePadding);
    return file->size == 0 ? "the file is empty" : nullptr;
}

}  // namespace

const char* readFile(const char* path, FileBuffer* file, int* system_error) {
    *system_error = 0;
    if (!path) return "no file name";
    int fd;
    // O_NONBLOCK: opening a pipe that nobody writes must not hang.
    do {
        fd = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    } while (fd < 0 && errno == EINTR);
    const char* const error = readOpen(fd, file, system_error);
    if (fd >= 0) close(fd);
    return error;
}
