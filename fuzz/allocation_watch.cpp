#include "allocation_watch.h"

#include <sanitizer/allocator_interface.h>

#include <algorithm>
#include <array>
#include <cstdlib>

#include "model/observation.h"

namespace {

// A load has some twenty blocks at a time.
std::array<const volatile void*, 1024> g_blocks;
size_t g_count = 0;

void allocated(const volatile void* block, size_t) {
    if (!model::g_inside_library) return;
    if (g_count == g_blocks.size()) std::abort();
    g_blocks[g_count++] = block;
}

void released(const volatile void* block) {
    const auto end = g_blocks.begin() + static_cast<std::ptrdiff_t>(g_count);
    const auto found = std::find(g_blocks.begin(), end, block);
    if (found != end) *found = g_blocks[--g_count];
}

}  // namespace

void watchAllocations() {
    if (__sanitizer_install_malloc_and_free_hooks(allocated, released) == 0) std::abort();
}

size_t releaseBlocksLeft() {
    const size_t count = g_count;
    while (g_count > 0) std::free(const_cast<void*>(g_blocks[g_count - 1]));
    return count;
}
