// A file held in memory.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr size_t kMaxFileSize = size_t{64} << 20;

// Zero bytes behind the text: the JSON reader looks ahead by up to a vector register.
constexpr size_t kFilePadding = 16;

struct FileBuffer {
    int fd = -1;
    char* text = nullptr;  // malloc'd; `size` bytes and kFilePadding zeros
    uint32_t size = 0;
};

// Opens and reads a regular file of at most kMaxFileSize bytes. Null on success, otherwise what went wrong,
// with the errno of a failed call or 0 in *system_error. Always the caller owns `text` and calls closeFile.
const char* readFile(const char* path, FileBuffer* file, int* system_error);

// Restores the text after it was changed in memory. False when the file no longer delivers it.
bool rereadFile(FileBuffer* file);

void closeFile(FileBuffer* file);
