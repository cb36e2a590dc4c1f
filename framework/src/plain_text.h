// What the reader does with most bytes of a text, a word at a time: skipping blanks between tokens and plain
// characters in strings.
#pragma once

#include <cstddef>
#include <cstring>

#include "file_buffer.h"
#include "rapidjson_reader.h"

namespace plain_text {

using Stream = ka_rapidjson::InsituStringStream;

constexpr size_t kOnes = ~size_t{0} / 0xFF;  // times a byte: that byte all over a word
constexpr bool kLittleEndian = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__;

// Up to here the reader looks ahead, in steps of a word.
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

inline bool isPlain(char c) {
    return c >= ' ' && c != '"' && c != '\\' && static_cast<unsigned char>(c) < 0x80;
}

// Zero when all bytes of a word are plain, otherwise the high bits of those that are not, and perhaps of more
// significant ones: a borrow of one byte reaches into the next.
inline size_t special(size_t word) {
    const size_t below_blank = word - kOnes * ' ';
    const size_t quote = (word ^ kOnes * '"') - kOnes;
    const size_t backslash = (word ^ kOnes * '\\') - kOnes;
    return (word | below_blank | quote | backslash) & kOnes * 0x80;
}

// The first byte from `text` on that is not plain. A NUL is not.
inline char* skipPlain(char* text) {
    size_t found;
    while ((found = special(load(text))) == 0) text += sizeof found;
    if (kLittleEndian) return text + zeroBytesBefore(found);
    while (isPlain(*text)) ++text;
    return text;
}

// As skipPlain, for blanks. Line breaks are followed by an indentation of spaces.
inline char* skipBlanks(char* text) {
    while (*text == ' ' || *text == '\n' || *text == '\r' || *text == '\t') {
        ++text;
        const size_t other = load(text) ^ kOnes * ' ';
        text += other == 0 ? sizeof other : zeroBytesBefore(other);
    }
    return text;
}

}  // namespace plain_text

template <>
inline void ka_rapidjson::SkipWhitespace(plain_text::Stream& stream) {
    if (static_cast<unsigned char>(*stream.src_) <= ' ') stream.src_ = plain_text::skipBlanks(stream.src_);
}

// The reader's encoding: validated UTF-8, quick over plain characters.
struct PlainUtf8 : ka_rapidjson::UTF8<> {
    using ka_rapidjson::UTF8<>::Validate;

    // Called at a character of a string that is no quote, backslash or control character; must go past it.
    static bool Validate(plain_text::Stream& stream, plain_text::Stream& same) {
        // Behind an escape the text has to move, character by character.
        if (stream.src_ != stream.dst_ || !plain_text::isPlain(*stream.src_)) {
            return UTF8<>::Validate(stream, same);
        }
        stream.src_ = stream.dst_ = plain_text::skipPlain(stream.src_);
        return true;
    }
};
