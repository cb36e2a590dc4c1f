#include "pool.h"

#include <reent.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

namespace {

constexpr size_t kLarge = 1024;
#ifndef POOL_FACTOR  // a test on a desk has more to keep
#define POOL_FACTOR 1
#endif
alignas(8) char g_recordsMemory[2048 * POOL_FACTOR];
alignas(8) char g_documentsMemory[10240 * POOL_FACTOR];

Pool& poolFor(size_t size) {
    return size < kLarge ? g_records : g_documents;
}

}  // namespace

Pool g_records(g_recordsMemory, sizeof(g_recordsMemory));
Pool g_documents(g_documentsMemory, sizeof(g_documentsMemory));

void releaseBlock(void* block) {
    for (Pool* pool : {&g_records, &g_documents}) {
        if (pool->holds(block)) pool->release(block);
    }
}

bool Pool::holds(const void* block) const {
    const auto* const at = static_cast<const char*>(block);
    return at >= memory_ && at < memory_ + size_;
}

void* Pool::allocate(size_t size) {
    if (size > size_) return nullptr;
    const size_t needed = (size + sizeof(Header) + 7) & ~size_t{7};
    size_t place = 0;
    while (place < end_) {
        Header* const block = at(place);
        if (!block->used) {
            // Free neighbours are one.
            while (place + block->size < end_ && !at(place + block->size)->used)
                block->size += at(place + block->size)->size;
            if (block->size >= needed) {
                if (block->size >= needed + sizeof(Header)) {
                    *at(place + needed) = {block->size - needed, 0};
                    block->size = needed;
                }
                block->used = 1;
                return block + 1;
            }
        }
        place += block->size;
    }
    if (needed > size_ - end_) return nullptr;
    *at(end_) = {needed, 1};
    end_ += needed;
    if (end_ > peak_) peak_ = end_;
    return at(place) + 1;
}

size_t Pool::sizeOf(const void* block) {
    return (static_cast<const Header*>(block) - 1)->size - sizeof(Header);
}

void Pool::release(void* block) {
    (static_cast<Header*>(block) - 1)->used = 0;
    // What is free at the end is room again.
    size_t used_end = 0;
    for (size_t place = 0; place < end_; place += at(place)->size) {
        if (at(place)->used) used_end = place + at(place)->size;
    }
    end_ = used_end;
}

// malloc() and its like, which the C library brings down to these.
extern "C" {
void* _malloc_r(_reent*, size_t size) {
    return poolFor(size).allocate(size);
}
void* _calloc_r(_reent*, size_t count, size_t size) {
    if (size != 0 && count > SIZE_MAX / size) return nullptr;
    void* const block = std::malloc(count * size);
    return block != nullptr ? std::memset(block, 0, count * size) : nullptr;
}
void* _realloc_r(_reent*, void* block, size_t size) {
    void* const copy = std::malloc(size);
    if (copy == nullptr || block == nullptr) return copy;
    std::memcpy(copy, block, std::min(size, Pool::sizeOf(block)));
    releaseBlock(block);
    return copy;
}
void _free_r(_reent*, void* block) {
    releaseBlock(block);
}
}
