#include <locale.h>

#include <charconv>
#include <cstdlib>
#include <cstring>

#include "siblings.h"

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Reads digits behind those that *value holds already. Where they end.
const char* takeDigits(const char* at, uint32_t* value) {
    for (; isDigit(*at); ++at) *value = *value * 10 + static_cast<uint32_t>(*at - '0');
    return at;
}

// What most integers are: up to nine digits. False for any other number.
bool shortInteger(const char* at, const char* end, int* out) {
    const bool negative = *at == '-';
    if (negative) ++at;
    uint32_t value = 0;
    if (end - at > 9 || takeDigits(at, &value) != end) return false;
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

// What most numbers are: up to seven digits, perhaps with a point among them, no exponent. Digits and power of
// ten are exact floats, so their quotient is the nearest float. False for any other number.
bool shortDecimal(const char* at, float* out) {
    static constexpr float kPowers[] = {1.0F, 1e1F, 1e2F, 1e3F, 1e4F, 1e5F, 1e6F, 1e7F};
    const bool negative = *at == '-';
    if (negative) ++at;
    uint32_t value = 0;
    const char* end = takeDigits(at, &value);
    ptrdiff_t digits = end - at;
    ptrdiff_t decimals = 0;
    if (*end == '.') {
        const char* const fraction = end + 1;
        end = takeDigits(fraction, &value);
        decimals = end - fraction;
        digits += decimals;
    }
    if (digits > 7 || (*end | 0x20) == 'e') return false;
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

}  // namespace

[[gnu::always_inline]] inline const KaJsonEntry* KaMetaData::find(const char* key, KaJsonKind kind) const {
    if (!key) return nullptr;
    const KaJsonEntry* const entry = findSibling<true>(&keys_, key, text_);
    return entry && entry->kind() == kind ? entry : nullptr;
}

bool KaMetaData::findInt32(const char* key, int* out) const {
    const KaJsonEntry* const entry = find(key, KaJsonKind::kNumber);
    if (!entry) return false;
    const char* const begin = text_ + entry->value;
    const char* const end = begin + entry->extent();
    return shortInteger(begin, end, out) || anyInteger(begin, end, out);
}

bool KaMetaData::findFloat(const char* key, float* out) const {
    const KaJsonEntry* const entry = find(key, KaJsonKind::kNumber);
    if (!entry) return false;
    const char* const begin = text_ + entry->value;
    if (!shortDecimal(begin, out)) *out = anyNumber(begin, begin + entry->extent());
    return true;
}

bool KaMetaData::findCString(const char* key, const char** out) const {
    const KaJsonEntry* entry = find(key, KaJsonKind::kString);
    if (!entry) return false;
    *out = text_ + entry->value;
    return true;
}
