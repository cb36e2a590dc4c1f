#include "calls.h"

#include <fcntl.h>
#include <malloc.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>

thread_local Calls calls;

namespace {

bool interrupted(int* times) {
    if (*times == 0) return false;
    --*times;
    errno = EINTR;
    return true;
}

bool refused() {
    ++calls.allocations;
    if (calls.fail_allocation < 0) return false;
    if (calls.fail_allocation > 0) {
        --calls.fail_allocation;
        return false;
    }
    if (!calls.fail_later_too) calls.fail_allocation = -1;
    return true;
}

void* holding(void* block) {
    calls.held += static_cast<ptrdiff_t>(malloc_usable_size(block));
    calls.peak = std::max(calls.peak, calls.held);
    return block;
}

void releasing(void* block) {
    calls.held -= static_cast<ptrdiff_t>(malloc_usable_size(block));
}

}  // namespace

extern "C" {

void* __real_malloc(size_t);
void* __real_calloc(size_t, size_t);
void* __real_realloc(void*, size_t);
void __real_free(void*);
int __real_open(const char*, int, ...);
int __real_fstat(int, struct stat*);
ssize_t __real_read(int, void*, size_t);
int __real_close(int);
ssize_t __real_write(int, const void*, size_t);

void* __wrap_malloc(size_t size) {
    return refused() ? nullptr : holding(__real_malloc(size));
}

void* __wrap_calloc(size_t count, size_t size) {
    return refused() ? nullptr : holding(__real_calloc(count, size));
}

void* __wrap_realloc(void* block, size_t size) {
    if (refused()) return nullptr;
    releasing(block);
    return holding(__real_realloc(block, size));
}

void __wrap_free(void* block) {
    releasing(block);
    __real_free(block);
}

int __wrap_open(const char* path, int flags, ...) {
    if (interrupted(&calls.open_interrupts)) return -1;
    va_list arguments;
    va_start(arguments, flags);
    const int mode = (flags & O_CREAT) ? va_arg(arguments, int) : 0;
    va_end(arguments);
    const int fd = __real_open(path, flags, mode);
    calls.open += fd >= 0;
    calls.open_flags = flags;
    return fd;
}

int __wrap_fstat(int fd, struct stat* status) {
    ++calls.fstat;
    if (calls.fstat_errno != 0) {
        errno = calls.fstat_errno;
        return -1;
    }
    return __real_fstat(fd, status);
}

ssize_t __wrap_read(int fd, void* to, size_t size) {
    ++calls.read;
    if (interrupted(&calls.interrupts)) return -1;
    if (calls.read_errno != 0) {
        errno = calls.read_errno;
        return -1;
    }
    if (calls.reads_to_end >= 0 && calls.read > calls.reads_to_end) return 0;
    return __real_read(fd, to, calls.read_limit > 0 ? std::min(size, calls.read_limit) : size);
}

int __wrap_close(int fd) {
    ++calls.close;
    return __real_close(fd);
}

ssize_t __wrap_write(int fd, const void* from, size_t size) {
    ++calls.write;
    if (interrupted(&calls.write_interrupts)) return -1;
    return __real_write(fd, from, size);
}

}  // extern "C"
