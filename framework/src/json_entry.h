// The flat table of an opened document: its roots, sections and keys in file order, parents before children.
#pragma once

#include <cstdint>
#include <cstring>

#include "ka/json_table.h"

struct KaJsonEntry {
    uint32_t name;         // offset of the decoded name in the text; after it there is room for a NUL
    uint32_t name_length;  // in bytes, and kHasNul
    uint32_t
        value;  // offset of the value: of a string its decoded text, as the name; otherwise its first byte
    uint32_t packed;  // kind in the low three bits, above them `extent`

    static constexpr uint32_t kHasNul = 1U << 31;  // \u0000 in the name: no C string is equal to it

    uint32_t nameLength() const { return name_length & ~kHasNul; }
    bool hasNul() const { return (name_length & kHasNul) != 0; }
    KaJsonKind kind() const { return static_cast<KaJsonKind>(packed & 7); }
    // Length in bytes of a scalar's text. Of an object the number of entries that it takes, its own included.
    uint32_t extent() const { return packed >> 3; }
    void set(KaJsonKind kind, uint32_t extent) { packed = extent << 3 | static_cast<uint32_t>(kind); }

    // Entries from this one to its next sibling.
    uint32_t size() const { return kind() == KaJsonKind::kObject ? extent() : 1; }
    const KaJsonEntry* sibling() const { return this + size(); }
};
static_assert(sizeof(KaJsonEntry) == 16, "the table is most of what a document takes besides its text");
