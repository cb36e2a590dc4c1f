// malloc() and its like, in place of the C library's. Weak, so that a framework may bring its own.
#include <cstdlib>
#include <cstring>

#include "kit.h"

#if defined(__GLIBC__) && !defined(KIT_SANITIZED)

#include <malloc.h>

#include <atomic>
#include <cerrno>

namespace {

std::atomic<long> g_live{0};
thread_local bool g_refuse = false;

}  // namespace

extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
void __libc_free(void* block);

[[gnu::weak]] void* malloc(size_t size) noexcept {
    void* const block = g_refuse ? nullptr : __libc_malloc(size);
    if (!block) {
        errno = ENOMEM;
        return nullptr;
    }
    ++g_live;
    return memset(block, 0xA5, malloc_usable_size(block));
}

[[gnu::weak]] void* calloc(size_t count, size_t size) noexcept {
    void* const block = g_refuse ? nullptr : __libc_calloc(count, size);
    if (block) ++g_live;
    return block;
}

[[gnu::weak]] void free(void* block) noexcept {
    if (!block) return;
    --g_live;
    memset(block, 0xDD, malloc_usable_size(block));
    __libc_free(block);
}

[[gnu::weak]] void* realloc(void* block, size_t size) noexcept {
    if (block && size == 0) {
        free(block);
        return nullptr;
    }
    void* const copy = malloc(size);
    if (!copy || !block) return copy;
    const size_t held = malloc_usable_size(block);
    memcpy(copy, block, held < size ? held : size);
    free(block);
    return copy;
}

[[gnu::weak]] void* memalign(size_t alignment, size_t size) noexcept {
    void* const block = g_refuse ? nullptr : __libc_memalign(alignment, size);
    if (block) ++g_live;
    return block;
}

[[gnu::weak]] void* aligned_alloc(size_t alignment, size_t size) noexcept {
    return memalign(alignment, size);
}

[[gnu::weak]] int posix_memalign(void** out, size_t alignment, size_t size) noexcept {
    void* const block = memalign(alignment, size);
    if (!block) return ENOMEM;
    *out = block;
    return 0;
}
}

namespace kit::allocator {

bool isWatched() {
    const long before = g_live;
    void* volatile block = malloc(1);
    const bool watched = g_live == before + 1;
    free(block);
    return watched;
}

long liveBlocks() {
    return g_live;
}

void refuse(bool on) {
    g_refuse = on;
}

}  // namespace kit::allocator

#else

namespace kit::allocator {

bool isWatched() {
    return false;
}
long liveBlocks() {
    return 0;
}
void refuse(bool) {}

}  // namespace kit::allocator

#endif
