// Characters that look like others, or like nothing: what is pasted from a web page, a document or another
// keyboard.
#pragma once

#include <optional>
#include <string>
#include <string_view>

struct OddCharacter {
    const char* name;  // "zero-width space"
    char32_t code;
    char plain;  // what it was most likely meant for, in ASCII
    static constexpr char kNothing = '\0';

    bool isInvisible() const { return plain == kNothing || plain == ' '; }
};

// None for any other character.
std::optional<OddCharacter> oddCharacter(char32_t code);

// "the zero-width space (U+200B)"; of a character that is not odd "the character U+00E9".
std::string nameOfCharacter(char32_t code);

// "write a plain '-'", "leave it out: it cannot be seen"
std::string howToReplace(const OddCharacter& odd);

// The text with every odd character in its plain form.
std::string plainForm(std::string_view text);

// The first of the text, if any.
std::optional<OddCharacter> firstOddCharacter(std::string_view text);
