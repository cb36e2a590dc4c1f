// Turns JSON text into the table of its roots, sections and keys.
#pragma once

#include "file_buffer.h"
#include "json_entry.h"

struct JsonLoad {
    KaJsonEntry* entries = nullptr;  // malloc'd, owned by the caller also after a failure
    uint32_t count = 0;
    const char* reason = nullptr;  // of a failure, plain words, static storage
    uint32_t error_offset = 0;     // of a failure, byte offset in the text
    bool located = false;          // whether error_offset means anything
};

// Decodes the text in place (strings become NUL-terminated UTF-8). False when it is not JSON.
bool loadJson(FileBuffer* file, JsonLoad* load);
