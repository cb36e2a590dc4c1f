// All memory that is asked for at run time comes from two arrays of fixed size.
#pragma once

#include <cstddef>

// Blocks that are released in any order. All zero: an empty pool.
class Pool {
public:
    constexpr Pool(char* memory, size_t size) : memory_(memory), size_(size) {}

    // Aligned to eight bytes; null when there is no room.
    void* allocate(size_t size);
    void release(void* block);
    bool holds(const void* block) const;
    static size_t sizeOf(const void* block);  // at least what was asked for
    // The most bytes that it has had to have, gaps and headers included.
    size_t peak() const { return peak_; }

private:
    struct Header {
        size_t size;  // in bytes, this header included
        size_t used;
    };
    Header* at(size_t place) const { return reinterpret_cast<Header*>(memory_ + place); }

    char* const memory_;
    const size_t size_;
    size_t end_ = 0;  // after the last block that is in use
    size_t peak_ = 0;
};

extern Pool g_records;  // what stays
extern Pool
    g_documents;  // blocks from 1 KiB on: text and table of an open document, which go when it is closed

// Null, and what is of neither pool, is left alone.
void releaseBlock(void* block);
