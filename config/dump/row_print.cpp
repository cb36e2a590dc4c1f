#include "row_print.h"

#include <cstdint>
#include <cstring>

// Exact, in integers: the C library's printf goes by the locale, and the C++ library's to_chars brings tables
// of 100 kB.
namespace {

// Prints `value` with at least `digits` digits.
char* printInteger(char* end, uint32_t value, int digits) {
    for (; value > 0 || digits > 0; --digits, value /= 10) *--end = static_cast<char>('0' + value % 10);
    return end;
}

// Prints the point and four digits.
char* printDecimals(char* end, uint64_t decimals) {
    end = printInteger(end, static_cast<uint32_t>(decimals), 4);
    *--end = '.';
    return end;
}

// Prints value * 2^doublings, which has no more than 45 digits.
char* printWhole(char* end, uint32_t value, uint32_t doublings) {
    constexpr uint32_t kBase = 1000000000;  // of the words, lowest first
    uint32_t words[5] = {value};
    for (; doublings > 0; --doublings) {
        uint32_t carry = 0;
        for (uint32_t& word : words) {
            word = 2 * word + carry;
            carry = word >= kBase ? 1 : 0;
            word -= carry * kBase;
        }
    }
    int top = 4;
    while (top > 0 && words[top] == 0) --top;
    for (int i = 0; i < top; ++i) end = printInteger(end, words[i], 9);
    return printInteger(end, words[top], 1);
}

// Prints mantissa / 2^halvings, rounded to the nearest, half to even.
char* printFraction(char* end, uint64_t mantissa, uint32_t halvings) {
    if (halvings > 40) halvings = 40;  // nothing is left of it either way
    uint64_t whole = mantissa >> halvings;
    const uint64_t scaled = (mantissa - (whole << halvings)) * 10000;
    uint64_t decimals = scaled >> halvings;
    const uint64_t rest = scaled - (decimals << halvings);
    const uint64_t half = uint64_t{1} << halvings >> 1;
    if (rest > half || (rest == half && decimals % 2 != 0)) ++decimals;
    if (decimals == 10000) {
        decimals = 0;
        ++whole;
    }
    return printInteger(printDecimals(end, decimals), static_cast<uint32_t>(whole), 1);
}

}  // namespace

char* eboPrintFixed(char* end, float value) {
    uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof(bits));
    const uint32_t exponent = bits >> 23 & 0xFF;
    const uint32_t fraction = bits & 0x7FFFFF;
    // The leading one that zero and its neighbours do not have makes no difference to their text.
    const uint32_t mantissa = fraction | 0x800000;
    if (exponent == 0xFF) {
        const char* const text = fraction != 0 ? "nan" : "inf";
        for (int i = 3; i > 0;) *--end = text[--i];
    } else if (exponent < 150) {
        end = printFraction(end, mantissa, 150 - exponent);
    } else {
        end = printWhole(printDecimals(end, 0), mantissa, exponent - 150);
    }
    if (bits >> 31 != 0) *--end = '-';
    return end;
}
