#include <link.h>
#include <locale.h>
#include <strings.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "ka/framework.h"

namespace {

// Called once per executable or library in memory; non-zero ends the walk: the address lies in this one.
int holdsAddress(dl_phdr_info* image, size_t, void* address) {
    for (int i = 0; i < image->dlpi_phnum; ++i) {
        const auto& segment = image->dlpi_phdr[i];
        const uintptr_t begin = image->dlpi_addr + segment.p_vaddr;
        const uintptr_t distance = reinterpret_cast<uintptr_t>(address) - begin;
        if (segment.p_type == PT_LOAD && distance < segment.p_memsz) return 1;
    }
    return 0;
}

// A record may point at a table of the library itself, which is not to be released. Not by dladdr, which
// knows nothing in a program that is linked with -static.
bool isStatic(void* memory) {
    return dl_iterate_phdr(holdsAddress, memory) != 0;
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
