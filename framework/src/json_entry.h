// The flat table of an opened document: every root, section and key in file order, a parent before its children.
#pragma once

#include <cstdint>

#include "ka/json_table.h"

struct KaJsonEntry {
    uint32_t name;         // offset of the decoded name in the text, NUL-terminated
    uint32_t name_length;  // in bytes
    uint32_t value;        // offset of the value: of a string its decoded text, otherwise its first byte
    uint32_t packed;       // kind in the low three bits, above it `extent`

    KaJsonKind kind() const { return static_cast<KaJsonKind>(packed & 7); }
    // Length in bytes of a scalar's text; of a root or section the index one past its last descendant.
    uint32_t extent() const { return packed >> 3; }
    void set(KaJsonKind kind, uint32_t extent) { packed = extent << 3 | static_cast<uint32_t>(kind); }
};
