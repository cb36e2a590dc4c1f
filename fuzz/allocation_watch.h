// Counts what the library allocates and does not release.
#pragma once

#include <cstddef>

// To be called once, before the first load.
void watchAllocations();

// Releases the blocks that the library has allocated and that are still there; how many there were.
size_t releaseBlocksLeft();
