// Turns JSON text into the table of its roots, sections and keys.
#pragma once

#include "file_buffer.h"
#include "json_entry.h"

constexpr char kOutOfMemory[] = "out of memory";

struct JsonLoad {
    KaJsonEntry* entries = nullptr;  // malloc'd, the caller's to free also after a failure
    uint32_t count = 0;
    uint32_t capacity = 0;
    const char* reason = nullptr;  // of a failure, plain words, static storage
    bool located = false;          // whether the failure has a place in the text
    uint32_t offset = 0;           // that place
};

// Decodes strings in place; what the table holds keeps its offset. False when the text is not JSON (RFC 8259,
// without half surrogate pairs), and then it is as it was.
bool loadJson(FileBuffer* file, JsonLoad* load);

// What the JSON library says of a text that our own scanner, which may only accept, does not take: why it is
// wrong, and where.
void findFault(const FileBuffer& file, JsonLoad* load);
