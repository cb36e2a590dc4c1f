#include <charconv>
#include <cstdlib>
#include <cstring>

#include "json_entry.h"
#include "nearest_number.h"

namespace {

// The digits of what most numbers are: up to eight of them, or seven and a point, no exponent; and how many come
// after the point. False for any other number.
[[gnu::always_inline]] inline bool shortNumber(const char* at, const char* end, int* digits,
                                               ptrdiff_t* places) {
    if (*at == '-') ++at;
    if (end - at > 8) return false;
    const char* fraction = end;
    int value = 0;
    for (; at != end; ++at) {
        const int digit = *at - '0';
        if (digit > 9) return false;
        if (digit >= 0) {
            value = value * 10 + digit;
        } else {
            fraction = at + 1;
        }
    }
    *digits = value;
    *places = end - fraction;
    return true;
}

[[gnu::always_inline]] inline const KaJsonEntry* find(KaJsonSection* section, const char* key,
                                                      KaJsonKind kind) {
    if (!key) return nullptr;
    const KaJsonEntry* const entry = findSibling<true>(&section->keys, key, section->text);
    return entry && entry->kind() == kind ? entry : nullptr;
}

}  // namespace

bool KaMetaData::findInt32(const char* key, int* out) const {
    const KaJsonEntry* const entry = find(&section_, key, KaJsonKind::kNumber);
    if (!entry) return false;
    const char* const begin = section_.text + entry->value;
    const char* const end = begin + entry->extent();
    int value;
    ptrdiff_t places;
    if (shortNumber(begin, end, &value, &places)) {
        if (places != 0) return false;
        *out = *begin == '-' ? -value : value;
        return true;
    }
    const std::from_chars_result result = std::from_chars(begin, end, value);
    if (result.ec != std::errc{} || result.ptr != end) return false;
    *out = value;
    return true;
}

bool KaMetaData::findFloat(const char* key, float* out) const {
    const KaJsonEntry* const entry = find(&section_, key, KaJsonKind::kNumber);
    if (!entry) return false;
    const char* const begin = section_.text + entry->value;
    const char* const end = begin + entry->extent();
    int digits;
    ptrdiff_t places;
    if (shortNumber(begin, end, &digits, &places)) {
        // Digits and power of ten are exact floats, so that their quotient is the nearest float.
        static constexpr float kPowers[] = {1.0F, 1e1F, 1e2F, 1e3F, 1e4F, 1e5F, 1e6F, 1e7F};
        const float magnitude = static_cast<float>(digits) / kPowers[places];
        *out = *begin == '-' ? -magnitude : magnitude;
    } else {
        *out = nearestNumber(begin, end);
    }
    return true;
}

bool KaMetaData::findCString(const char* key, const char** out) const {
    const KaJsonEntry* entry = find(&section_, key, KaJsonKind::kString);
    if (!entry) return false;
    char* const text = section_.text + entry->value;
    text[entry->extent()] = '\0';
    *out = text;
    return true;
}
