#include <cstdlib>
#include <cstring>

#include "ka/framework.h"
#include "pool.h"

void* ka_memset(void* memory, int value, size_t size) {
    return memory != nullptr ? std::memset(memory, value, size) : nullptr;
}

void* ka_mem_malloc(size_t size, const char*) {
    return ka_memset(std::malloc(size), 0, size);
}

// The pools leave static storage alone.
void ka_mem_safe_free(void** pointer, const char*) {
    if (pointer == nullptr) return;
    releaseBlock(*pointer);
    *pointer = nullptr;
}
