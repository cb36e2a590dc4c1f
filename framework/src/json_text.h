// What a scanner does with most bytes of a text: going past names, plain characters, numbers and blanks. All
// speed that depends on the processor is here. A text ends in a NUL, which is none of these, and what follows
// is readable for kFilePadding bytes: as far as a read of this header may reach.
//
// What bounds a scanner is not the number of its instructions but a chain: where a token begins is known only
// when the one before it has been measured. So steps of measured length are taken as jumps, which the
// processor guesses.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "file_buffer.h"

// The first byte after what begins at `at`; null when it is not right. Of a string `at` is the byte after the
// opening quote, and the result is the closing one; *escapes becomes true when there is an escape in it.
const char* skipString(const char* at, bool* escapes);
const char* skipEscape(const char* at);
const char* skipNumber(const char* at);

// Decodes the escapes of a string that is right, in place. Returns its new length.
uint32_t decode(char* text, uint32_t length);

namespace plain_text {

inline bool isDigit(char c) {
    return static_cast<unsigned char>(c - '0') < 10;
}

#ifdef __SSE2__

using Bytes = signed char __attribute__((vector_size(16)));
static_assert(sizeof(Bytes) <= kFilePadding);

inline Bytes load(const char* text) {
    Bytes bytes;
    memcpy(&bytes, text, sizeof bytes);
    return bytes;
}
// The empty statement keeps the compiler from comparing the other way round and inverting the result.
inline Bytes below(Bytes bytes, signed char c) {
    Bytes limit = Bytes{} + c;
    __asm__("" : "+x"(limit));
    return bytes < limit;
}
// A bit for each byte, the first one lowest.
inline unsigned maskOf(Bytes bytes) {
    return static_cast<unsigned>(_mm_movemask_epi8(reinterpret_cast<__m128i>(bytes)));
}
inline size_t zerosBelow(unsigned mask) {
    return static_cast<size_t>(__builtin_ctz(mask));
}

// `text` + `size`, at most 16, as one jump for each size: what follows need not wait for `size` where the
// jump is guessed rightly. The empty statements keep the compiler from making a sum of the jumps.
inline const char* stepOver(const char* text, size_t size) {
    switch (size) {
        // clang-format off
#define KA_STEP(n) case n: text += n; __asm__("" : "+r"(text)); return text;
        KA_STEP(0) KA_STEP(1) KA_STEP(2) KA_STEP(3) KA_STEP(4) KA_STEP(5) KA_STEP(6) KA_STEP(7) KA_STEP(8)
        KA_STEP(9) KA_STEP(10) KA_STEP(11) KA_STEP(12) KA_STEP(13) KA_STEP(14) KA_STEP(15)
        default: text += 16; __asm__("" : "+r"(text)); return text;
        // clang-format on
#undef KA_STEP
    }
}

// The first byte from `text` on that no name in a tuning file has, at most 16 further on; the closing quote
// if the name is short.
inline const char* skipName(const char* text) {
    const Bytes bytes = load(text);
    const unsigned found = maskOf(below(bytes, '"' + 1) | (bytes == '\\'));  // and beyond ASCII
    return stepOver(text, zerosBelow(found | 0x10000));
}

// The first byte from `text` on that is not plain: quote, backslash, control character or beyond ASCII.
inline const char* skipPlain(const char* text) {
    for (;; text += sizeof(Bytes)) {
        const Bytes bytes = load(text);
        const unsigned found =
            maskOf(below(bytes, ' ') | (bytes == '"') | (bytes == '\\'));  // and beyond ASCII
        if (found != 0) return text + zerosBelow(found);
    }
}

// The first byte after the number at `text`, or within it when it is longer than a register or has an
// exponent; null when there is none.
inline const char* skipShortNumber(const char* text) {
    if (__builtin_expect(*text == '-', false)) {
        ++text;
        __asm__("" : "+r"(text));  // as in stepOver
    }
    const unsigned others = ~maskOf(below(load(text) - static_cast<signed char>('0' - 128), 10 - 128));
    const size_t whole = zerosBelow(others);
    if (whole == 0 || (*text == '0' && whole != 1)) return nullptr;
    if (text[whole] != '.') return stepOver(text, whole);
    const size_t size = zerosBelow(others & (others - 1));  // up to the second that is no digit
    return size == whole + 1 ? nullptr : stepOver(text, size);
}

inline const char* skipBlankRun(const char* text) {
    do {
        const Bytes bytes = load(text);
        const size_t size =
            zerosBelow(~maskOf((bytes == ' ') | (bytes == '\n') | (bytes == '\r') | (bytes == '\t')));
        if (size == 0) break;
        text = stepOver(text, size);
    } while (static_cast<unsigned char>(*text) <= ' ');
    return text;
}

// What stands between a value and the next key, which is mostly the same throughout a document: a comma, a
// line break, blanks and a quote.
class Joint {
public:
    bool isAt(const char* at) const { return (maskOf(load(at) == bytes_) & mask_) == mask_; }
    size_t size() const { return size_; }
    void learn(const char* at, const char* end) {
        const auto size = static_cast<size_t>(end - at);
        if (size > sizeof bytes_) return;
        bytes_ = load(at);
        size_ = size;
        mask_ = (1U << size) - 1;
    }

private:
    Bytes bytes_ = {};
    unsigned mask_ = 1;  // a NUL to begin with, at which no key follows
    size_t size_ = 0;
};

#else

// The same, a word at a time.

constexpr size_t kOnes = ~size_t{0} / 0xFF;  // times a byte: that byte all over a word

static_assert(sizeof(size_t) <= kFilePadding);

// The first byte lowest.
inline size_t load(const char* text) {
    size_t word;
    memcpy(&word, text, sizeof word);
    if (__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__) return word;
    return static_cast<size_t>(__builtin_bswap64(word) >> (64 - 8 * sizeof word));
}

// Number of bytes before the first one that is not zero; `word` itself is not zero.
inline size_t zeroBytesBefore(size_t word) {
    return static_cast<size_t>(__builtin_ctzl(word)) / 8;
}

inline const char* skipPlain(const char* text) {
    for (;; text += sizeof(size_t)) {
        const size_t word = load(text);
        // High bits of the bytes that are not plain, and perhaps of higher ones, into which a borrow reaches.
        const size_t below_blank = word - kOnes * ' ';
        const size_t quote = (word ^ kOnes * '"') - kOnes;
        const size_t backslash = (word ^ kOnes * '\\') - kOnes;
        const size_t found = (word | below_blank | quote | backslash) & kOnes * 0x80;
        if (found != 0) return text + zeroBytesBefore(found);
    }
}
constexpr auto skipName = skipPlain;
constexpr auto skipShortNumber = skipNumber;

inline const char* skipBlankRun(const char* text) {
    while (*text == ' ' || *text == '\n' || *text == '\r' || *text == '\t') {
        ++text;
        const size_t others = load(text) ^ kOnes * ' ';
        text += others == 0 ? sizeof others : zeroBytesBefore(others);
    }
    return text;
}

struct Joint {  // which processors without vector registers would gain nothing by
    static bool isAt(const char*) { return false; }
    static size_t size() { return 0; }
    void learn(const char*, const char*) {}
};

#endif

// The first byte from `text` on that is no blank.
inline const char* skipBlanks(const char* text) {
    return static_cast<unsigned char>(*text) > ' ' ? text : skipBlankRun(text);
}

}  // namespace plain_text
