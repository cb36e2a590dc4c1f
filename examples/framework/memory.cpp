#include <dlfcn.h>
#include <locale.h>
#include <strings.h>

#include <cstdlib>
#include <cstring>

#include "ka/framework.h"

namespace {

// A record may point at a table of the library itself, which is not to be released.
bool isStatic(const void* memory) {
    Dl_info image;
    return dladdr(memory, &image) != 0;
}

}  // namespace

// The library releases some of its blocks with free(): the standard allocator it must be.
void* ka_mem_malloc(size_t size, const char*) {
    return std::calloc(1, size);
}

void ka_mem_safe_free(void** pointer, const char*) {
    if (pointer == nullptr) return;
    if (!isStatic(*pointer)) std::free(*pointer);
    *pointer = nullptr;
}

void* ka_memset(void* memory, int value, size_t size) {
    return memory != nullptr ? std::memset(memory, value, size) : nullptr;
}

int util_strcasecmp(const char* a, const char* b) {
    if (a == nullptr || b == nullptr) return (a != nullptr) - (b != nullptr);
    static const locale_t c = newlocale(LC_ALL_MASK, "C", nullptr);
    return strcasecmp_l(a, b, c);
}
