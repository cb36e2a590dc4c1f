#include "row_scan.h"

#include <charconv>
#include <cstring>
#include <limits>

namespace {

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}
bool isHexDigit(char c) {
    return isDigit(c) || (lower(c) >= 'a' && lower(c) <= 'f');
}

bool startsWith(const char* at, const char* end, const char* word) {
    for (; *word != '\0'; ++at, ++word) {
        if (at == end || lower(*at) != *word) return false;
    }
    return true;
}

// Whether a number that no float can hold is too large and not too small: the place of its first digit that
// counts, moved by its exponent, lies before the point.
bool isHuge(const char* first, const char* last, bool hex) {
    int64_t place = 0;
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
    return place * (hex ? 4 : 1) + exponent > 0;
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

// The end of the number at `at`, behind its "0x" if it has one, as far as the C library's scanner takes it:
// an exponent counts as part of the number even without digits, and "0x." is the number 0. Null when there is
// none.
const char* endOfNumber(const char* at, const char* end, bool hex) {
    const char* const first = at;
    bool digits = false;
    bool point = false;
    for (; at != end; ++at) {
        if (hex ? isHexDigit(*at) : isDigit(*at)) {
            digits = true;
        } else if (*at == '.' && !point) {
            point = true;
        } else {
            break;
        }
    }
    if (hex ? at == first : !digits) return nullptr;
    if (digits && at != end && lower(*at) == (hex ? 'p' : 'e')) {
        ++at;
        if (at != end && (*at == '+' || *at == '-')) ++at;
        while (at != end && isDigit(*at)) ++at;
    }
    return at;
}

}  // namespace

EboScanner::EboScanner(const char* text) : at_(text), end_(text + std::strlen(text)) {}

void EboScanner::skipBlanks() {
    while (at_ != end_ && isBlank(*at_)) ++at_;
}

bool EboScanner::literal(const char* word) {
    const size_t length = std::strlen(word);
    if (static_cast<size_t>(end_ - at_) < length || std::memcmp(at_, word, length) != 0) return false;
    at_ += length;
    return true;
}

bool EboScanner::integer(int32_t* out) {
    skipBlanks();
    const char* first = at_;
    if (first != end_ && *first == '+') ++first;
    if (first != at_ && first != end_ && *first == '-') return false;
    int32_t value = 0;
    const auto [last, error] = std::from_chars(first, end_, value);
    if (error == std::errc::invalid_argument) return false;
    if (error == std::errc::result_out_of_range) {
        value = *first == '-' ? std::numeric_limits<int32_t>::min() : std::numeric_limits<int32_t>::max();
    }
    at_ = last;
    *out = value;
    return true;
}

bool EboScanner::real(float* out) {
    skipBlanks();
    const char* first = at_;
    const bool negative = first != end_ && *first == '-';
    if (first != end_ && (*first == '-' || *first == '+')) ++first;

    float value = 0.0F;
    const char* last = nullptr;
    if (startsWith(first, end_, "nan")) {
        value = std::numeric_limits<float>::quiet_NaN();
        last = first + 3;
    } else if (startsWith(first, end_, "inf")) {
        value = std::numeric_limits<float>::infinity();
        last = first + 3;
        if (startsWith(last, end_, "i")) {
            if (!startsWith(last, end_, "inity")) return false;
            last += 5;
        }
    } else {
        const bool hex = startsWith(first, end_, "0x");
        if (hex) first += 2;
        last = endOfNumber(first, end_, hex);
        if (last == nullptr) return false;
        value = nearest(first, last, hex);
    }
    at_ = last;
    *out = negative ? -value : value;
    return true;
}

void eboScanIntList(EboScanner& scanner, int32_t* out, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        if (!scanner.integer(&out[i]) || !scanner.literal(",")) return;
    }
}
