// What the reader does with most bytes of a text: skipping plain characters in strings and blanks between tokens.
// A text ends in a NUL, which is neither, and may be read up to kFilePadding bytes beyond it.
#pragma once

#include <cstddef>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "file_buffer.h"

namespace plain_text {

#ifdef __SSE2__

static_assert(sizeof(__m128i) <= kFilePadding);

inline __m128i load(const char* text) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
}
inline __m128i equal(__m128i bytes, char c) {
    return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(c));
}
inline unsigned maskOf(__m128i bytes) {
    return static_cast<unsigned>(_mm_movemask_epi8(bytes));
}
inline unsigned zerosBelow(unsigned mask) {
    return static_cast<unsigned>(__builtin_ctz(mask));
}

// The first byte from `text` on that is not plain: quote, backslash, control character or beyond ASCII.
inline char* skipPlain(char* text) {
    for (;; text += sizeof(__m128i)) {
        const __m128i bytes = load(text);
        // Bytes beyond ASCII are negative.
        const __m128i below_blank = _mm_cmplt_epi8(bytes, _mm_set1_epi8(' '));
        const __m128i special = _mm_or_si128(equal(bytes, '"'), equal(bytes, '\\'));
        const unsigned found = maskOf(_mm_or_si128(below_blank, special));
        if (found != 0) return text + zerosBelow(found);
    }
}

// Spaces at `text`, counted up to the size of a register.
inline size_t spaces(const char* text) {
    return zerosBelow(~maskOf(equal(load(text), ' ')));
}

#else

// The same, a word at a time.

constexpr size_t kOnes = ~size_t{0} / 0xFF;  // times a byte: that byte all over a word
constexpr bool kLittleEndian = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__;

static_assert(sizeof(size_t) <= kFilePadding);

inline size_t load(const char* text) {
    size_t word;
    memcpy(&word, text, sizeof word);
    return word;
}

// Number of bytes, in memory order, before the first one that is not zero; `word` itself is not zero.
inline size_t zeroBytesBefore(size_t word) {
    return static_cast<size_t>(kLittleEndian ? __builtin_ctzl(word) : __builtin_clzl(word)) / 8;
}

// Zero when all bytes of a word are plain, otherwise the high bits of those that are not, and perhaps of more
// significant ones: a borrow of one byte reaches into the next.
inline size_t special(size_t word) {
    const size_t below_blank = word - kOnes * ' ';
    const size_t quote = (word ^ kOnes * '"') - kOnes;
    const size_t backslash = (word ^ kOnes * '\\') - kOnes;
    return (word | below_blank | quote | backslash) & kOnes * 0x80;
}

inline bool isPlain(char c) {
    return c >= ' ' && c != '"' && c != '\\' && static_cast<unsigned char>(c) < 0x80;
}

inline char* skipPlain(char* text) {
    size_t found;
    while ((found = special(load(text))) == 0) text += sizeof found;
    if (kLittleEndian) return text + zeroBytesBefore(found);
    while (isPlain(*text)) ++text;
    return text;
}

inline size_t spaces(const char* text) {
    const size_t other = load(text) ^ kOnes * ' ';
    return other == 0 ? sizeof other : zeroBytesBefore(other);
}

#endif

inline char* skipDigits(char* text) {
    while (static_cast<unsigned char>(*text - '0') < 10) ++text;
    return text;
}

// The first byte behind the number at `text`; null when it is none, or has an exponent.
inline char* skipNumber(char* text) {
    char* const digits = *text == '-' ? text + 1 : text;
    char* end = skipDigits(digits);
    if (end == digits || (*digits == '0' && end != digits + 1)) return nullptr;
    if (*end == '.') {
        char* const fraction = end + 1;
        end = skipDigits(fraction);
        if (end == fraction) return nullptr;
    }
    return (*end | 0x20) == 'e' ? nullptr : end;
}

// The first byte from `text` on that is no blank. Most blanks are a line break and as many spaces as behind the last
// one, which *indent keeps: where the guess is right, the processor need not wait for the count to go on.
inline char* skipBlanks(char* text, size_t* indent) {
    char c = *text;
    while (c == '\n' || c == ' ' || c == '\r' || c == '\t') {
        ++text;
        const size_t count = spaces(text);
        size_t step = *indent;
        size_t guess = step;
        __asm__("" : "+r"(guess));  // or the compiler takes the count, since it is the step in either case
        if (__builtin_expect(count != guess, false)) *indent = step = count;
        text += step;
        c = *text;
        if (static_cast<unsigned char>(c) > ' ') break;
    }
    return text;
}

}  // namespace plain_text
