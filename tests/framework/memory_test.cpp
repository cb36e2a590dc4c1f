#include <gtest/gtest.h>
#include <ka/framework.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "calls.h"

namespace {

short g_zeros[8];
short g_map[] = {1, 0, 3, 2};
const short kMap[] = {1, 0, 3, 2};

TEST(Memory, IsAllZeroEvenWhereOtherBlocksWere) {
    for (const size_t size : {1u, 8u, 24u, 100u, 1000u, 5000u, 200000u}) {
        std::vector<void*> blocks;
        for (int i = 0; i < 20; ++i) {
            blocks.push_back(malloc(size));
            memset(blocks.back(), 0xAA, size);
        }
        for (void* block : blocks) free(block);
        for (void*& block : blocks) {
            block = ka_mem_malloc(size, __func__);
            ASSERT_NE(nullptr, block);
            const char* bytes = static_cast<char*>(block);
            for (size_t i = 0; i < size; ++i) ASSERT_EQ(0, bytes[i]) << size;
        }
        for (void* block : blocks) free(block);
    }
}

TEST(Memory, IsNullWhenThereIsNone) {
    calls = {};
    calls.fail_allocation = 0;
    EXPECT_EQ(nullptr, ka_mem_malloc(8, __func__));
}

TEST(SafeFree, ReleasesBlocksOfEveryOriginAndSize) {
    for (const size_t size : {1u, 100u, 5000u, 5000000u}) {
        for (int origin = 0; origin < 3; ++origin) {
            calls = {};
            void* block = origin == 0   ? ka_mem_malloc(size, __func__)
                          : origin == 1 ? malloc(size)
                                        : realloc(malloc(1), size);
            ASSERT_GT(calls.held, 0);
            ka_mem_safe_free(&block, __func__);
            EXPECT_EQ(nullptr, block);
            EXPECT_EQ(0, calls.held);
        }
    }
}

TEST(SafeFree, ReleasesCopiesOfTexts) {
    void* text = strdup("hello");
    ka_mem_safe_free(&text, __func__);
    EXPECT_EQ(nullptr, text);
}

TEST(SafeFree, LeavesStaticStorageAloneButNullsThePointer) {
    static int local = 5;
    void* const places[] = {g_zeros,
                            &g_zeros[7],
                            g_map,
                            const_cast<short*>(kMap),
                            const_cast<char*>("literal"),
                            &local,
                            reinterpret_cast<void*>(&ka_mem_malloc),
                            stdout,
                            reinterpret_cast<void*>(&fputs)};
    for (void* place : places) {
        void* pointer = place;
        ka_mem_safe_free(&pointer, __func__);
        EXPECT_EQ(nullptr, pointer);
    }
    EXPECT_EQ(5, local);
    EXPECT_EQ(3, g_map[2]);
}

TEST(SafeFree, HasNothingToDoForNull) {
    void* pointer = nullptr;
    ka_mem_safe_free(&pointer, __func__);
    EXPECT_EQ(nullptr, pointer);
    ka_mem_safe_free(nullptr, __func__);
}

TEST(Memset, FillsTheBytesAskedFor) {
    unsigned char bytes[4] = {1, 2, 3, 4};
    EXPECT_EQ(bytes, ka_memset(bytes, 0x1AB, 3));
    EXPECT_EQ(0xAB, bytes[0]);
    EXPECT_EQ(0xAB, bytes[2]);
    EXPECT_EQ(4, bytes[3]);
    EXPECT_EQ(bytes, ka_memset(bytes, 0, 0));
    EXPECT_EQ(0xAB, bytes[0]);
    EXPECT_EQ(nullptr, ka_memset(nullptr, 0, 3));
}

}  // namespace
