// Turns JSON text into the table of its roots, sections and keys.
#pragma once

#include "file_buffer.h"
#include "json_entry.h"

struct JsonLoad {
    KaJsonEntry* entries = nullptr;  // malloc'd, the caller's to free also after a failure
    uint32_t count = 0;
    uint32_t capacity = 0;
    const char* reason = nullptr;  // of a failure, plain words, static storage
    bool located = false;          // whether the failure has a place in the text
    uint32_t offset = 0;           // that place
};

// Decodes the text in place: strings end in NUL, all keeps its offset. False when the text is not JSON.
bool loadJson(FileBuffer* file, JsonLoad* load);
