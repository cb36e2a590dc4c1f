#include "text/odd_characters.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "text/utf8.h"

namespace {

constexpr char kNothing = OddCharacter::kNothing;

// In ascending order.
// clang-format off
constexpr OddCharacter kOddCharacters[] = {
    {0x00A0, "no-break space", ' '},
    {0x00AD, "soft hyphen", kNothing},
    {0x00B4, "acute accent", '\''},
    {0x00D7, "multiplication sign", 'x'},
    {0x037E, "Greek question mark", ';'},
    {0x0391, "Greek capital alpha", 'A'},
    {0x0392, "Greek capital beta", 'B'},
    {0x0395, "Greek capital epsilon", 'E'},
    {0x039F, "Greek capital omicron", 'O'},
    {0x03BF, "Greek small omicron", 'o'},
    {0x0405, "Cyrillic capital dze", 'S'},
    {0x0406, "Cyrillic capital i", 'I'},
    {0x0408, "Cyrillic capital je", 'J'},
    {0x0410, "Cyrillic capital a", 'A'},
    {0x0412, "Cyrillic capital ve", 'B'},
    {0x0415, "Cyrillic capital ie", 'E'},
    {0x041A, "Cyrillic capital ka", 'K'},
    {0x041C, "Cyrillic capital em", 'M'},
    {0x041D, "Cyrillic capital en", 'H'},
    {0x041E, "Cyrillic capital o", 'O'},
    {0x0420, "Cyrillic capital er", 'P'},
    {0x0421, "Cyrillic capital es", 'C'},
    {0x0422, "Cyrillic capital te", 'T'},
    {0x0425, "Cyrillic capital ha", 'X'},
    {0x0430, "Cyrillic small a", 'a'},
    {0x0435, "Cyrillic small ie", 'e'},
    {0x043E, "Cyrillic small o", 'o'},
    {0x0440, "Cyrillic small er", 'p'},
    {0x0441, "Cyrillic small es", 'c'},
    {0x0443, "Cyrillic small u", 'y'},
    {0x0445, "Cyrillic small ha", 'x'},
    {0x0455, "Cyrillic small dze", 's'},
    {0x0456, "Cyrillic small i", 'i'},
    {0x0458, "Cyrillic small je", 'j'},
    {0x2002, "en space", ' '},
    {0x2003, "em space", ' '},
    {0x2007, "figure space", ' '},
    {0x2009, "thin space", ' '},
    {0x200A, "hair space", ' '},
    {0x200B, "zero-width space", kNothing},
    {0x200C, "zero-width non-joiner", kNothing},
    {0x200D, "zero-width joiner", kNothing},
    {0x200E, "left-to-right mark", kNothing},
    {0x200F, "right-to-left mark", kNothing},
    {0x2010, "hyphen", '-'},
    {0x2011, "no-break hyphen", '-'},
    {0x2012, "figure dash", '-'},
    {0x2013, "en dash", '-'},
    {0x2014, "em dash", '-'},
    {0x2018, "left single quote", '\''},
    {0x2019, "right single quote", '\''},
    {0x201A, "low single quote", '\''},
    {0x201C, "left double quote", '"'},
    {0x201D, "right double quote", '"'},
    {0x201E, "low double quote", '"'},
    {0x2028, "line separator", ' '},
    {0x2029, "paragraph separator", ' '},
    {0x202A, "left-to-right embedding", kNothing},
    {0x202B, "right-to-left embedding", kNothing},
    {0x202C, "end of a directional embedding", kNothing},
    {0x202D, "left-to-right override", kNothing},
    {0x202E, "right-to-left override", kNothing},
    {0x202F, "narrow no-break space", ' '},
    {0x2060, "word joiner", kNothing},
    {0x2066, "left-to-right isolate", kNothing},
    {0x2067, "right-to-left isolate", kNothing},
    {0x2068, "first strong isolate", kNothing},
    {0x2069, "end of a directional isolate", kNothing},
    {0x2212, "minus sign", '-'},
    {0x3000, "ideographic space", ' '},
    {0x3001, "ideographic comma", ','},
    {0xFEFF, "byte order mark", kNothing},
};
// clang-format on

}  // namespace

std::optional<OddCharacter> oddCharacter(char32_t code) {
    // The full-width forms, one for each printable character of ASCII.
    if (code >= 0xFF01 && code <= 0xFF5E)
        return {{code, "full-width form", static_cast<char>(code - 0xFEE0)}};
    const auto* found =
        std::lower_bound(std::begin(kOddCharacters), std::end(kOddCharacters), code,
                         [](const OddCharacter& odd, char32_t wanted) { return odd.code < wanted; });
    if (found == std::end(kOddCharacters) || found->code != code) return std::nullopt;
    return *found;
}

std::string nameOfCharacter(char32_t code) {
    char number[16];
    std::snprintf(number, sizeof(number), "U+%04X", static_cast<unsigned>(code));
    const std::optional<OddCharacter> odd = oddCharacter(code);
    return odd ? std::string("the ") + odd->name + " (" + number + ")"
               : std::string("the character ") + number;
}

std::string howToReplace(const OddCharacter& odd) {
    switch (odd.plain) {
        case kNothing:
            return "leave it out: it cannot be seen";
        case ' ':
            return "write a plain blank";
        case '"':
            return "use plain double quotes, not typographic ones";
        default:
            return std::string("write a plain '") + odd.plain + "'";
    }
}

std::string plainForm(std::string_view text) {
    std::string plain;
    for (size_t at = 0; at < text.size();) {
        const Utf8Character character = utf8At(text, at);
        const size_t length = std::max<size_t>(character.length, 1);
        const std::optional<OddCharacter> odd = oddCharacter(character.code);
        if (!odd) {
            plain += text.substr(at, length);
        } else if (odd->plain != kNothing) {
            plain += odd->plain;
        }
        at += length;
    }
    return plain;
}

std::optional<OddCharacter> firstOddCharacter(std::string_view text) {
    for (size_t at = 0; at < text.size();) {
        const Utf8Character character = utf8At(text, at);
        if (std::optional<OddCharacter> odd = oddCharacter(character.code)) return odd;
        at += std::max<size_t>(character.length, 1);
    }
    return std::nullopt;
}
