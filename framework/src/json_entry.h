// The flat table of an opened document: its roots, sections and keys in file order, parents before children.
#pragma once

#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "ka/json_table.h"

struct KaJsonEntry {
    uint32_t name;         // offset of the decoded name in the text; after it there is room for a NUL
    uint32_t name_length;  // in bytes, and kHasNul
    uint32_t value;        // offset of the value: of a string its decoded text, otherwise its first byte
    uint32_t packed;       // kind in the low three bits, above them `extent`

    static constexpr uint32_t kHasNul = 1U << 31;  // \u0000 in the name: no C string is equal to it

    uint32_t nameLength() const { return name_length & ~kHasNul; }
    bool hasNul() const { return (name_length & kHasNul) != 0; }
    KaJsonKind kind() const { return static_cast<KaJsonKind>(packed & 7); }
    // Length in bytes of a value's text. Of an object the number of entries that it takes, its own included.
    uint32_t extent() const { return packed >> 3; }
    void set(KaJsonKind kind, uint32_t extent) { packed = extent << 3 | static_cast<uint32_t>(kind); }

    // Entries from this one to its next sibling.
    uint32_t size() const { return kind() == KaJsonKind::kObject ? extent() : 1; }
    const KaJsonEntry* sibling() const { return this + size(); }
};
static_assert(sizeof(KaJsonEntry) == 16, "the table is most of what a document takes besides its text");

// Looking entries up by name. Of several equal names the last one counts, so siblings are searched from where
// the last search ended only when no two of them are equal. kKeys: below a section, one entry each.
template <bool kKeys>
KaJsonSiblings siblingsBelow(const KaJsonEntry& parent, const char* text);

// For an entry whose own name holds no NUL.
bool isCalled(const KaJsonEntry& entry, const char* name, const char* text);

// The one that is called `name`; null when there is none.
const KaJsonEntry* findAnywhere(KaJsonSiblings* siblings, const char* name, const char* text);

// As isCalled, or false where that takes more than one comparison of a vector register. Nobody knows how long
// `name` is: the read may go beyond its end, but stays within its page, and so never fails; what it reads
// there counts for nothing.
__attribute__((no_sanitize("address"))) inline bool isCalledAtOnce(const KaJsonEntry& entry, const char* name,
                                                                   const char* text) {
#ifdef __SSE2__
    constexpr uintptr_t kPage = 4096;
    if (entry.name_length > 16 || (reinterpret_cast<uintptr_t>(name) & (kPage - 1)) > kPage - 16)
        return false;
    const __m128i same = _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(text + entry.name)),
                                        _mm_loadu_si128(reinterpret_cast<const __m128i*>(name)));
    const auto different = ~static_cast<unsigned>(_mm_movemask_epi8(same));
    return (different & ((1U << entry.name_length) - 1)) == 0 && name[entry.name_length] == '\0';
#else
    return !entry.hasNul() && isCalled(entry, name, text);
#endif
}

// As findAnywhere, and quicker when it is the one after the last that was found.
template <bool kKeys>
inline const KaJsonEntry* findSibling(KaJsonSiblings* siblings, const char* name, const char* text) {
    const KaJsonEntry* const next = siblings->next;
    if (next == siblings->end || !isCalledAtOnce(*next, name, text))
        return findAnywhere(siblings, name, text);
    siblings->next = kKeys ? next + 1 : next->sibling();
    return next;
}
