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

}  // namespace

void* ka_mem_malloc(size_t size, const char*) {
    return calloc(1, size);
}

void ka_mem_safe_free(void** pointer, const char*) {
    if (!pointer || !*pointer) return;
    if (dl_iterate_phdr(holdsAddress, *pointer) == 0) free(*pointer);
    *pointer = nullptr;
}

void* ka_memset(void* memory, int value, size_t size) {
    return memory ? memset(memory, value, size) : nullptr;
}
