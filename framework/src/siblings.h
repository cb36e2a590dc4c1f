// Looking entries up by name. Of several equal names the last one counts, so siblings are searched from where the
// last search ended only when no two of them are equal.
#pragma once

#include "json_entry.h"

KaJsonSiblings sectionsOf(const KaJsonEntry& root, const char* text);
KaJsonSiblings keysOf(const KaJsonEntry& section, const char* text);

// The one that is called `name`; null when there is none.
const KaJsonEntry* findAnywhere(KaJsonSiblings* siblings, const char* name, const char* text);

// As findAnywhere, and quicker when it is the one behind the last that was found. Keys take one entry each.
template <bool kKeys>
inline const KaJsonEntry* findSibling(KaJsonSiblings* siblings, const char* name, const char* text) {
    const KaJsonEntry* const next = siblings->next;
    if (next == siblings->end || !next->isCalled(name, text)) return findAnywhere(siblings, name, text);
    siblings->next = kKeys ? next + 1 : next->sibling();
    return next;
}
