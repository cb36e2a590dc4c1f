#include "json_entry.h"

namespace {

constexpr uint32_t kMarks = 512;

// Equal for equal names, and different for the keys that stand together in a section of a tuning file.
uint32_t markOf(const KaJsonEntry& entry, const char* text) {
    const uint32_t length = entry.nameLength();
    if (length < 3) return 0;
    const char* const name = text + entry.name;
    uint32_t last;  // of three letters with the opening quote
    memcpy(&last, name + length - sizeof last, sizeof last);
    return (last ^ length << 24 ^ static_cast<unsigned char>(*name)) * 0xC2B2AE35u >> 23;
}

}  // namespace

// Different names may share a mark; then the search is only slower.
template <bool kKeys>
KaJsonSiblings siblingsBelow(const KaJsonEntry& parent, const char* text) {
    const KaJsonEntry* const begin = &parent + 1;
    const KaJsonEntry* const end = parent.sibling();
    uint32_t seen[kMarks / 32] = {};
    for (const KaJsonEntry* entry = begin; entry != end; entry += kKeys ? 1 : entry->size()) {
        const uint32_t mark = markOf(*entry, text);
        if ((seen[mark / 32] >> mark % 32 & 1) != 0) return {begin, end, end, true};
        seen[mark / 32] |= uint32_t{1} << mark % 32;
    }
    return {begin, end, begin, false};
}
template KaJsonSiblings siblingsBelow<false>(const KaJsonEntry& root, const char* text);
template KaJsonSiblings siblingsBelow<true>(const KaJsonEntry& section, const char* text);

bool isCalled(const KaJsonEntry& entry, const char* name, const char* text) {
    return strncmp(text + entry.name, name, entry.name_length) == 0 && name[entry.name_length] == '\0';
}

const KaJsonEntry* findAnywhere(KaJsonSiblings* siblings, const char* name, const char* text) {
    const size_t length = strlen(name);
    const auto is_called = [=](const KaJsonEntry* entry) {
        return entry->name_length == length && memcmp(text + entry->name, name, length) == 0;
    };
    const KaJsonEntry* found = siblings->next;
    if (found == siblings->end || !is_called(found)) {
        found = nullptr;
        for (const KaJsonEntry* entry = siblings->begin; entry != siblings->end; entry = entry->sibling()) {
            if (!is_called(entry)) continue;
            found = entry;
            if (!siblings->repeat) break;
        }
    }
    if (found && !siblings->repeat) siblings->next = found->sibling();
    return found;
}
