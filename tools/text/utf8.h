// UTF-8: where characters begin and end, and which they are.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

struct Utf8Character {
    char32_t code;
    size_t length;  // in bytes; 0: no character begins there
};

// The character that begins at `at`, which lies inside the text. Overlong forms and halves of surrogate pairs
// are none.
Utf8Character utf8At(std::string_view text, size_t at);

inline bool continuesUtf8(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// Characters of a text; a byte that belongs to none counts as one, unless it continues one.
size_t countCharacters(std::string_view text);

// C0 and C1 control characters, and those that change the direction of the text.
bool steersTerminal(char32_t code);
