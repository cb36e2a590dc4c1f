#include <dlfcn.h>
#include <link.h>

#include <cstdlib>
#include <cstring>

#include "ka/framework.h"

namespace {

// Called once per loaded executable or library; non-zero ends the walk: the address lies in its image.
int holdsAddress(dl_phdr_info* info, size_t, void* address) {
    for (int i = 0; i < info->dlpi_phnum; ++i) {
        const auto& segment = info->dlpi_phdr[i];
        const uintptr_t begin = info->dlpi_addr + segment.p_vaddr;
        const uintptr_t distance = reinterpret_cast<uintptr_t>(address) - begin;
        if (segment.p_type == PT_LOAD && distance < segment.p_memsz) return 1;
    }
    return 0;
}

bool isStatic(void* address) {
#ifdef DLFO_STRUCT_HAS_EH_DBASE  // newer C libraries
    // Quick where it says no, which is nearly always; the gaps within an image are the walk's to tell.
    dl_find_object image;
    if (_dl_find_object(address, &image) != 0) return false;
#endif
    return dl_iterate_phdr(holdsAddress, address) != 0;
}

}  // namespace

// Kept out of line, or the compiler makes a calloc of the pair in ka_mem_malloc.
[[gnu::noinline]] void* ka_memset(void* memory, int value, size_t size) {
    return memory ? memset(memory, value, size) : nullptr;
}

void* ka_mem_malloc(size_t size, const char*) {
    // Not calloc, which goes past the C library's quick lists of small blocks.
    return ka_memset(malloc(size), 0, size);
}

void ka_mem_safe_free(void** pointer, const char*) {
    if (!pointer || !*pointer) return;
    if (!isStatic(*pointer)) free(*pointer);
    *pointer = nullptr;
}
