// The digits of a short number: a JSON number of at most kShortNumber characters without its sign, whose end is
// at least as many bytes behind the beginning of the document. That holds for every value of a key.
#pragma once

#include <cstdint>
#include <cstring>

constexpr int kShortNumber = 8;

#if defined(__LP64__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__

// All digits at once, and no branch that depends on their number: the processor cannot foresee it.

constexpr uint64_t kBytes = ~uint64_t{0} / 0xFF;  // times a byte: that byte all over a word

// The characters, the last one in the most significant byte, and zeros below the first.
inline uint64_t charactersOf(const char* begin, const char* end) {
    uint64_t characters;
    memcpy(&characters, end - kShortNumber, sizeof characters);
    const auto others = static_cast<unsigned>(64 - 8 * (end - begin));
    return characters >> others << others;
}

// What the digits stand for: two, then four, then eight are put together at once.
inline uint32_t valueOf(uint64_t digits) {
    constexpr uint64_t kPairs = 0x000000FF000000FF;
    digits &= kBytes * 0x0F;
    digits = digits * 10 + (digits >> 8);
    const uint64_t first = (digits & kPairs) * (100 + (uint64_t{1000000} << 32));
    const uint64_t second = (digits >> 16 & kPairs) * (1 + (uint64_t{10000} << 32));
    return static_cast<uint32_t>((first + second) >> 32);
}

// The bit of each character that in a number only digits have.
inline uint64_t digitBits(const char* begin, const char* end) {
    return kBytes * 0x10 << (64 - 8 * (end - begin));
}

// False when there is more than digits.
inline bool allDigits(const char* begin, const char* end, uint32_t* value) {
    const uint64_t characters = charactersOf(begin, end);
    *value = valueOf(characters);
    return (characters & kBytes * 0x10) == digitBits(begin, end);
}

// The digits without the point, and how many there are behind it. False when there is an exponent.
inline bool decimalDigits(const char* begin, const char* end, uint32_t* value, uint32_t* decimals) {
    uint64_t characters = charactersOf(begin, end);
    if ((characters & kBytes * 0x40) != 0) return false;  // the bit of the exponent's letter
    const uint64_t point = ~characters & digitBits(begin, end);
    *decimals = 0;
    if (point != 0) {
        const uint64_t place = point >> 4;  // the lowest bit of the point's byte
        const uint64_t before = characters & (place - 1);
        const uint64_t behind = characters & (0 - (place << 8));
        characters = before << 8 | behind;
        *decimals = static_cast<uint32_t>(__builtin_clzll(point)) / 8;
    }
    *value = valueOf(characters);
    return true;
}

#else

inline const char* takeDigits(const char* at, const char* end, uint32_t* value) {
    for (; at != end && *at >= '0' && *at <= '9'; ++at)
        *value = *value * 10 + static_cast<uint32_t>(*at - '0');
    return at;
}

inline bool allDigits(const char* begin, const char* end, uint32_t* value) {
    *value = 0;
    return takeDigits(begin, end, value) == end;
}

inline bool decimalDigits(const char* begin, const char* end, uint32_t* value, uint32_t* decimals) {
    *value = *decimals = 0;
    const char* at = takeDigits(begin, end, value);
    if (at != end && *at == '.') {
        *decimals = static_cast<uint32_t>(end - at - 1);
        at = takeDigits(at + 1, end, value);
    }
    return at == end;
}

#endif
