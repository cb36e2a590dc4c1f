#include "row_scan.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace {

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
// The bit in which upper and lower case differ is set. Right for a comparison with small letters only.
int lower(char c) {
    return c | 0x20;
}
bool isHexDigit(char c) {
    return isDigit(c) || (lower(c) >= 'a' && lower(c) <= 'f');
}

// `word` is of small letters.
bool startsWith(const char* at, const char* word) {
    for (; *word != '\0'; ++at, ++word) {
        if (lower(*at) != *word) return false;
    }
    return true;
}

// Whether a number that no float can hold is too large and not too small: the place of its first digit that
// counts, moved by its exponent, lies before the point.
bool isHuge(const char* first, const char* last, bool hex) {
    ptrdiff_t place = 0;
    bool counts = false;
    bool fraction = false;
    const char* at = first;
    for (; at != last && ((hex ? isHexDigit(*at) : isDigit(*at)) || *at == '.'); ++at) {
        if (*at == '.') {
            fraction = true;
        } else {
            counts = counts || *at != '0';
            if (fraction && !counts) --place;
            if (!fraction && counts) ++place;
        }
    }
    int32_t exponent = 0;
    if (at != last && ++at != last) {
        EboScanner scanner(at);
        scanner.integer(&exponent);
    }
    return int64_t{place} * (hex ? 4 : 1) + exponent > 0;
}

// The nearest float to the number in [first, last), which has no sign.
float nearest(const char* first, const char* last, bool hex) {
    const auto format = hex ? std::chars_format::hex : std::chars_format::general;
    float value = 0.0F;
    if (std::from_chars(first, last, value, format).ec != std::errc::result_out_of_range) return value;
    if (isHuge(first, last, hex)) return std::numeric_limits<float>::infinity();
    double tiny = 0.0;  // some libraries call a float out of range that is only too small to be normal
    std::from_chars(first, last, tiny, format);
    return static_cast<float>(tiny);
}

// The end of the number at `at`, after its "0x" if it has one, as far as the C library's scanner takes it:
// an exponent counts as part of the number even without digits, and "0x." is the number 0. Null when there is
// none.
const char* endOfNumber(const char* at, bool hex) {
    const char* const first = at;
    bool digits = false;
    bool point = false;
    for (;; ++at) {
        if (hex ? isHexDigit(*at) : isDigit(*at)) {
            digits = true;
        } else if (*at == '.' && !point) {
            point = true;
        } else {
            break;
        }
    }
    if (hex ? at == first : !digits) return nullptr;
    if (digits && lower(*at) == (hex ? 'p' : 'e')) {
        ++at;
        if (*at == '+' || *at == '-') ++at;
        while (isDigit(*at)) ++at;
    }
    return at;
}

// Reads digits after those that *value holds already. Where they end.
const char* takeDigits(const char* at, uint32_t* value) {
    for (; isDigit(*at); ++at) *value = *value * 10 + static_cast<uint32_t>(*at - '0');
    return at;
}

// What most numbers are: up to seven digits, perhaps a point, no exponent. Digits and power of ten are exact
// floats, so their quotient is the nearest float. The number's end; null when it is not of that kind.
const char* shortDecimal(const char* at, float* out) {
    static constexpr float kPowers[] = {1.0F, 1e1F, 1e2F, 1e3F, 1e4F, 1e5F, 1e6F, 1e7F};
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
    if (digits == 0 || digits > 7 || lower(*end) == 'e' || lower(*end) == 'x') return nullptr;
    *out = static_cast<float>(value) / kPowers[decimals];
    return end;
}

// The integer at `at` when it has more digits than 32 bits are sure to hold: the nearest that they do hold.
[[gnu::noinline]] uint32_t nearestInteger(const char* at, bool negative) {
    constexpr uint32_t kMax = std::numeric_limits<int32_t>::max();
    uint64_t value = 0;
    for (; isDigit(*at) && value <= kMax; ++at) value = value * 10 + static_cast<uint64_t>(*at - '0');
    return static_cast<uint32_t>(std::min<uint64_t>(value, negative ? kMax + 1 : kMax));
}

// Any other number without its sign, "inf" and "nan". Its end; null when there is none.
[[gnu::noinline]] const char* anyNumber(const char* at, float* out) {
    if (startsWith(at, "nan")) {
        *out = std::numeric_limits<float>::quiet_NaN();
        return at + 3;
    }
    if (startsWith(at, "inf")) {
        *out = std::numeric_limits<float>::infinity();
        if (lower(at[3]) != 'i') return at + 3;
        return startsWith(at, "infinity") ? at + 8 : nullptr;
    }
    const bool hex = *at == '0' && lower(at[1]) == 'x';
    if (hex) at += 2;
    const char* const end = endOfNumber(at, hex);
    if (end != nullptr) *out = nearest(at, end, hex);
    return end;
}

}  // namespace

void EboScanner::skipBlanks() {
    const char* at = at_;
    while (isBlank(*at)) ++at;
    at_ = at;
}

bool EboScanner::literal(const char* word) {
    const char* at = at_;
    for (; *word != '\0'; ++at, ++word) {
        if (*at != *word) return false;
    }
    at_ = at;
    return true;
}

bool EboScanner::integer(int32_t* out) {
    skipBlanks();
    const bool negative = *at_ == '-';
    const char* const first = negative || *at_ == '+' ? at_ + 1 : at_;
    uint32_t value = 0;
    const char* last = takeDigits(first, &value);
    if (last == first) return false;
    if (last - first > 9) value = nearestInteger(first, negative);
    at_ = last;
    *out = static_cast<int32_t>(negative ? 0 - value : value);
    return true;
}

bool EboScanner::real(float* out) {
    skipBlanks();
    const bool negative = *at_ == '-';
    const char* const first = negative || *at_ == '+' ? at_ + 1 : at_;
    float value = 0.0F;
    const char* last = shortDecimal(first, &value);
    if (last == nullptr) last = anyNumber(first, &value);
    if (last == nullptr) return false;
    at_ = last;
    *out = negative ? -value : value;
    return true;
}

void eboScanIntList(EboScanner& scanner, int32_t* out, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        if (!scanner.integer(&out[i]) || !scanner.literal(",")) return;
    }
}
