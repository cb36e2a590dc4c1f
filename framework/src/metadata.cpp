#include <locale.h>

#include <charconv>
#include <cstdlib>
#include <cstring>

#include "short_digits.h"
#include "siblings.h"

namespace {

// What most integers are: up to eight digits. False for any other number.
bool shortInteger(const char* at, const char* end, int* out) {
    const bool negative = *at == '-';
    if (negative) ++at;
    uint32_t value;
    if (end - at > kShortNumber || !allDigits(at, end, &value)) return false;
    *out = static_cast<int>(negative ? 0 - value : value);
    return true;
}

[[gnu::noinline]] bool anyInteger(const char* begin, const char* end, int* out) {
    int value;
    const std::from_chars_result result = std::from_chars(begin, end, value);
    if (result.ec != std::errc{} || result.ptr != end) return false;
    *out = value;
    return true;
}

// What most numbers are: up to eight digits, or up to seven and a point, no exponent. With a point the digits and the
// power of ten are exact floats, so their quotient is the nearest float. False for any other number.
bool shortDecimal(const char* at, const char* end, float* out) {
    static constexpr float kPowers[] = {1.0F, 1e1F, 1e2F, 1e3F, 1e4F, 1e5F, 1e6F, 1e7F};
    const bool negative = *at == '-';
    if (negative) ++at;
    uint32_t value;
    uint32_t decimals;
    if (end - at > kShortNumber || !decimalDigits(at, end, &value, &decimals)) return false;
    const float magnitude = static_cast<float>(value) / kPowers[decimals];
    *out = negative ? -magnitude : magnitude;
    return true;
}

// The nearest float to any JSON number.
[[gnu::noinline]] float anyNumber(const char* begin, const char* end) {
    float value;
    if (std::from_chars(begin, end, value).ec != std::errc{}) {
        // Infinity or zero: from_chars does not say which. The byte behind the number ends it.
        const locale_t c_locale = newlocale(LC_ALL_MASK, "C", nullptr);
        value = strtof_l(begin, nullptr, c_locale);
        freelocale(c_locale);
    }
    return value;
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
    return shortInteger(begin, end, out) || anyInteger(begin, end, out);
}

bool KaMetaData::findFloat(const char* key, float* out) const {
    const KaJsonEntry* const entry = find(&section_, key, KaJsonKind::kNumber);
    if (!entry) return false;
    const char* const begin = section_.text + entry->value;
    const char* const end = begin + entry->extent();
    if (!shortDecimal(begin, end, out)) *out = anyNumber(begin, end);
    return true;
}

bool KaMetaData::findCString(const char* key, const char** out) const {
    const KaJsonEntry* entry = find(&section_, key, KaJsonKind::kString);
    if (!entry) return false;
    *out = section_.text + entry->value;
    return true;
}
