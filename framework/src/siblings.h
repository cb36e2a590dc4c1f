// Looking entries up by name. Of several equal names the last one counts, so siblings are searched from where
// the last search ended only when no two of them are equal.
#pragma once

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "json_entry.h"

// Below a root, and below a section, whose keys take one entry each.
KaJsonSiblings sectionsOf(const KaJsonEntry& root, const char* text);
KaJsonSiblings keysOf(const KaJsonEntry& section, const char* text);

// The one that is called `name`; null when there is none.
const KaJsonEntry* findAnywhere(KaJsonSiblings* siblings, const char* name, const char* text);

// With a vector register a short name is compared at once. Nobody knows how long `name` is: the read may go
// beyond its end, but stays within its page, and so never fails; what it reads there counts for nothing.
__attribute__((no_sanitize("address"))) inline bool isCalled(const KaJsonEntry& entry, const char* name,
                                                             const char* text) {
    const char* const own = text + entry.name;
#ifdef __SSE2__
    constexpr uintptr_t kPage = 4096;
    if (entry.name_length < 16 && (reinterpret_cast<uintptr_t>(name) & (kPage - 1)) <= kPage - 16) {
        const __m128i same = _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(own)),
                                            _mm_loadu_si128(reinterpret_cast<const __m128i*>(name)));
        const auto different = ~static_cast<unsigned>(_mm_movemask_epi8(same));
        return (different & ((1U << entry.name_length) - 1)) == 0 && name[entry.name_length] == '\0';
    }
#endif
    return !entry.hasNul() && strncmp(own, name, entry.name_length) == 0 && name[entry.name_length] == '\0';
}

// As findAnywhere, and quicker when it is the one after the last that was found.
template <bool kKeys>
inline const KaJsonEntry* findSibling(KaJsonSiblings* siblings, const char* name, const char* text) {
    const KaJsonEntry* const next = siblings->next;
    if (next == siblings->end || !isCalled(*next, name, text)) return findAnywhere(siblings, name, text);
    siblings->next = kKeys ? next + 1 : next->sibling();
    return next;
}
