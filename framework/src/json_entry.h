// The flat table of an opened document: its roots, sections and keys in file order, parents before children.
#pragma once

#include <cstdint>
#include <cstring>

#include "ka/json_table.h"

struct KaJsonEntry {
    uint32_t name;         // offset of the decoded name in the text
    uint32_t name_length;  // in bytes
    uint32_t value;        // offset of the value: of a string its decoded text, otherwise its first byte
    uint32_t packed;       // kind in the low three bits, above it `extent`

    KaJsonKind kind() const { return static_cast<KaJsonKind>(packed & 7); }
    // Length in bytes of a scalar's text. Of a root or section that is an object the index one past its last
    // descendant; 0 of all other objects and arrays.
    uint32_t extent() const { return packed >> 3; }
    void set(KaJsonKind kind, uint32_t extent) { packed = extent << 3 | static_cast<uint32_t>(kind); }

    bool isCalled(const char* other, size_t length, const char* text) const {
        return name_length == length && memcmp(text + name, other, length) == 0;
    }
};
static_assert(sizeof(KaJsonEntry) == 16, "the table is most of what a document takes besides its text");
