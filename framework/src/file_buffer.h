// A file held in memory.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr size_t kMaxFileSize = size_t{64} << 20;

// Zero bytes after the text: the scanner reads up to a vector register at once, and the JSON library goes by
// up to three bytes beyond a text that ends within a character.
constexpr size_t kFilePadding = 16;

struct FileBuffer {
    char* text = nullptr;  // malloc'd, the caller's to free; `size` bytes and kFilePadding zeros
    uint32_t size = 0;
};

// Reads a regular file of at most kMaxFileSize bytes. Null on success, otherwise what went wrong, with the
// errno of a failed call or 0 in *system_error.
const char* readFile(const char* path, FileBuffer* file, int* system_error);
