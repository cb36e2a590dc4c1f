// ka_mem_malloc, ka_mem_safe_free, ka_memset.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "kit.h"

using kit::explain;

namespace {

// So that the compiler does not warn of the size.
size_t hidden(size_t value) {
    volatile size_t copy = value;
    return copy;
}

TEST(Memory, IsAsMuchAsAskedFor) {
    explain("ka_mem_malloc hands out at least as many bytes as asked for, and no two blocks overlap",
            "one record overwrites the end of another, or the allocator's own data");
    struct Block {
        void* memory;
        size_t size;
    };
    std::vector<Block> blocks;
    for (size_t size = 1; size < 1500; size += 13) {
        blocks.push_back({ka_mem_malloc(size, __func__), size});
        ASSERT_NE(blocks.back().memory, nullptr);
        memset(blocks.back().memory, static_cast<int>(size % 251), size);
    }
    for (Block& block : blocks) {
        const auto* const bytes = static_cast<const unsigned char*>(block.memory);
        for (size_t i = 0; i < block.size; ++i) ASSERT_EQ(bytes[i], block.size % 251);
        ka_mem_safe_free(&block.memory, __func__);
    }
}

TEST(Memory, IsAllZero) {
    explain("ka_mem_malloc hands out zero bytes, also where other blocks were",
            "the create functions write only what has a default: a default record is full of what was there "
            "before");
    for (const size_t size : {1u, 8u, 24u, 68u, 100u, 256u, 700u, 1000u, 5000u, 60000u}) {
        std::vector<void*> blocks;
        for (int i = 0; i < 8; ++i) {
            blocks.push_back(ka_mem_malloc(size, __func__));
            ASSERT_NE(blocks.back(), nullptr) << size;
            memset(blocks.back(), 0xAA, size);
        }
        for (void*& block : blocks) ka_mem_safe_free(&block, __func__);
        for (void*& block : blocks) {
            block = ka_mem_malloc(size, __func__);
            ASSERT_NE(block, nullptr) << size;
            const auto* const bytes = static_cast<const char*>(block);
            for (size_t i = 0; i < size; ++i) ASSERT_EQ(bytes[i], 0) << "byte " << i << " of " << size;
        }
        for (void*& block : blocks) ka_mem_safe_free(&block, __func__);
    }
}

TEST(Memory, IsAligned) {
    explain("ka_mem_malloc aligns its blocks for pointers, integers and floats",
            "a processor that traps on an odd address crashes at the first record");
    for (size_t size = 1; size < 200; ++size) {
        void* block = ka_mem_malloc(size, __func__);
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(block) % (size < alignof(void*) ? 4 : alignof(void*)), 0u)
            << size;
        ka_mem_safe_free(&block, __func__);
    }
}

TEST(Memory, IsNullWhenThereIsNotAsMuch) {
    explain("ka_mem_malloc gives null when there is not as much memory, and returns",
            "a size close to the end of the address space yields a small block, or ends the process");
    for (const size_t size : {SIZE_MAX / 2 + 1, SIZE_MAX - 4096, SIZE_MAX - 16, SIZE_MAX - 7, SIZE_MAX}) {
        EXPECT_EQ(ka_mem_malloc(hidden(size), __func__), nullptr) << size;
    }
}

TEST(Memory, IsNullWhenTheAllocatorFails) {
    explain(
        "ka_mem_malloc gives null when the allocator does: the library itself decides what to do then",
        "the product ends, or writes to address 0, without the message that says which record had no memory");
    if (!kit::allocator::isWatched()) KIT_SKIP(KIT_UNWATCHED "what happens when an allocation fails");
    for (const size_t size : {1u, 68u, 5000u}) {
        kit::allocator::refuse(true);
        void* const block = ka_mem_malloc(size, __func__);
        kit::allocator::refuse(false);
        EXPECT_EQ(block, nullptr);
    }
    void* block = ka_mem_malloc(68, __func__);
    EXPECT_NE(block, nullptr) << "after a failure";
    ka_mem_safe_free(&block, __func__);
}

TEST(Memory, MayBeReleasedWithFree) {
    explain("a block of ka_mem_malloc may be released with free()",
            "section readers and failed loads release so: the first missing key ends the process");
    for (const size_t size : {1u, 68u, 700u, 5000u}) {
        for (int i = 0; i < 50; ++i) free(ka_mem_malloc(size, __func__));
    }
}

enum Origin { kFramework, kMalloc, kStrdup };

void* make(Origin origin, size_t size) {
    if (origin == kFramework) return ka_mem_malloc(size, __func__);
    if (origin == kMalloc) return malloc(size);
    return strdup(std::string(size, 'x').c_str());
}

TEST(SafeFree, ReleasesBlocksOfEveryOrigin) {
    explain("ka_mem_safe_free releases blocks of ka_mem_malloc, malloc and strdup",
            "wake-up words and model paths, copied with strdup, leak with every tree or end the process");
    for (const Origin origin : {kFramework, kMalloc, kStrdup}) {
        for (const size_t size : {1u, 68u, 700u, 5000u}) {
            void* block = make(origin, size);
            ka_mem_safe_free(&block, __func__);
            const long before = kit::allocator::liveBlocks();
            for (int i = 0; i < 200; ++i) {
                block = make(origin, size);
                ASSERT_NE(block, nullptr)
                    << "no memory after " << i << " blocks of " << size << " that were released";
                ka_mem_safe_free(&block, __func__);
            }
            EXPECT_LT(kit::allocator::liveBlocks() - before, 100)
                << "blocks of " << size << " bytes are kept";
        }
    }
}

TEST(SafeFree, HasNothingToDoForNull) {
    explain("ka_mem_safe_free takes the address of a null pointer, and a null address",
            "destroying a record with a module that was never loaded crashes");
    void* pointer = nullptr;
    ka_mem_safe_free(&pointer, __func__);
    EXPECT_EQ(pointer, nullptr);
    ka_mem_safe_free(nullptr, __func__);
}

TEST(SafeFree, LeavesThePointerNull) {
    explain("ka_mem_safe_free leaves null in the pointer",
            "a record that is destroyed twice is released twice, and so is each module that two roots name");
    for (void* place : {ka_mem_malloc(68, __func__), static_cast<void*>(strdup("text"))}) {
        void* pointer = place;
        ka_mem_safe_free(&pointer, __func__);
        EXPECT_EQ(pointer, nullptr);
        ka_mem_safe_free(&pointer, __func__);
        EXPECT_EQ(pointer, nullptr);
    }
}

short g_zeros[8];
short g_numbers[8] = {1, 0, 3, 2, 5, 4, 6, 7};
const short kNumbers[8] = {1, 0, 3, 2, 5, 4, 6, 7};

TEST(SafeFree, LeavesStaticStorageAlone) {
    explain(
        "ka_mem_safe_free leaves the address of static storage alone",
        "a default record points at the shared default channel map: its destroy function ends the process");
    static short local[8] = {1, 2};
    const char* const literal = "a literal of some length";
    for (void* place : {static_cast<void*>(g_zeros), static_cast<void*>(g_numbers),
                        static_cast<void*>(g_numbers + 3), static_cast<void*>(const_cast<short*>(kNumbers)),
                        static_cast<void*>(local), static_cast<void*>(const_cast<char*>(literal))}) {
        for (int i = 0; i < 3; ++i) {
            void* pointer = place;
            ka_mem_safe_free(&pointer, __func__);
            EXPECT_EQ(pointer, nullptr);
        }
    }
    EXPECT_EQ(g_zeros[0], 0);
    EXPECT_EQ(g_numbers[3], 2);
    EXPECT_EQ(kNumbers[7], 7);
    EXPECT_EQ(local[1], 2);
    EXPECT_STREQ(literal, "a literal of some length");
}

TEST(Memset, SetsTheBytesAskedFor) {
    explain("ka_memset sets `size` bytes to the low byte of `value`, as memset does, and returns the memory",
            "a fresh record is not clear, and a key that is left out has the value of chance");
    unsigned char bytes[6] = {1, 2, 3, 4, 5, 6};
    EXPECT_EQ(ka_memset(bytes + 1, 0x1AB, 3), bytes + 1);
    EXPECT_EQ(bytes[0], 1);
    for (int i = 1; i < 4; ++i) EXPECT_EQ(bytes[i], 0xAB);
    EXPECT_EQ(bytes[4], 5);
    EXPECT_EQ(ka_memset(bytes, 0, 0), bytes);
    EXPECT_EQ(bytes[0], 1);
    EXPECT_EQ(ka_memset(bytes, 0, sizeof bytes), bytes);
    for (const unsigned char byte : bytes) EXPECT_EQ(byte, 0);
}

TEST(Memset, TakesNull) {
    explain("ka_memset of null does nothing and returns null",
            "a host without memory crashes before the library can say so");
    EXPECT_EQ(ka_memset(nullptr, 0, 16), nullptr);
}

}  // namespace
