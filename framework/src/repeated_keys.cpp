#include "repeated_keys.h"

namespace {

constexpr size_t kMaxKeys = 64;
constexpr size_t kSlots = 2 * kMaxKeys;

// Spreads names that differ in length or in a few letters, such as row_0 and row_1.
size_t slotOf(const KaJsonEntry& entry, const char* text) {
    const size_t length = entry.name_length;
    if (length == 0) return 0;
    const auto* name = reinterpret_cast<const unsigned char*>(text + entry.name);
    return (length * 7 + name[0] * 5u + name[length / 2] * 3u + name[length - 1]) % kSlots;
}

}  // namespace

bool mayRepeatKeys(const char* text, const KaJsonEntry* begin, const KaJsonEntry* end) {
    if (static_cast<size_t>(end - begin) > kMaxKeys) return true;
    unsigned char slots[kSlots] = {};  // 0 or a key's place in the section, from 1
    for (const KaJsonEntry* entry = begin; entry != end; ++entry) {
        size_t slot = slotOf(*entry, text);
        for (; slots[slot] != 0; slot = (slot + 1) % kSlots) {
            const KaJsonEntry& other = begin[slots[slot] - 1];
            if (entry->isCalled(text + other.name, other.name_length, text)) return true;
        }
        slots[slot] = static_cast<unsigned char>(entry - begin + 1);
    }
    return false;
}
