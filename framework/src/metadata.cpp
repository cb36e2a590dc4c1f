#include <charconv>
#include <cstdlib>
#include <cstring>

#include "json_entry.h"
#include "nearest_number.h"

namespace {

// The digits of what most numbers are: up to eight of them, or seven and a point, no exponent; and how many
// come after the point. False for any other number.
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

// The text of the value, where it is of that kind; null otherwise.
[[gnu::always_inline]] inline char* find(KaJsonSection* section, const char* key, KaJsonKind kind,
                                         uint32_t* length) {
    if (!key) return nullptr;
    const KaJsonEntry* const entry = findSibling<true>(&section->keys, key, section->text);
    if (!entry || entry->kind() != kind) return nullptr;
    *length = entry->extent();
    return section->text + entry->value;
}

}  // namespace

bool KaMetaData::findInt32(const char* key, int* out) const {
    uint32_t length;
    const char* const text = find(&section_, key, KaJsonKind::kNumber, &length);
    if (!text) return false;
    int value;
    ptrdiff_t places;
    if (shortNumber(text, text + length, &value, &places)) {
        if (places != 0) return false;
        *out = *text == '-' ? -value : value;
        return true;
    }
    const std::from_chars_result result = std::from_chars(text, text + length, value);
    if (result.ec != std::errc{} || result.ptr != text + length) return false;
    *out = value;
    return true;
}

bool KaMetaData::findFloat(const char* key, float* out) const {
    uint32_t length;
    const char* const text = find(&section_, key, KaJsonKind::kNumber, &length);
    if (!text) return false;
    int digits;
    ptrdiff_t places;
    if (shortNumber(text, text + length, &digits, &places)) {
        // Digits and power of ten are exact floats, so that their quotient is the nearest float.
        static constexpr float kPowers[] = {1.0F, 1e1F, 1e2F, 1e3F, 1e4F, 1e5F, 1e6F, 1e7F};
        const float magnitude = static_cast<float>(digits) / kPowers[places];
        *out = *text == '-' ? -magnitude : magnitude;
    } else {
        *out = nearestNumber(text, text + length);
    }
    return true;
}

bool KaMetaData::findCString(const char* key, const char** out) const {
    uint32_t length;
    char* const text = find(&section_, key, KaJsonKind::kString, &length);
    if (!text) return false;
    text[length] = '\0';
    *out = text;
    return true;
}
