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
    {"no-break space", 0x00A0, ' '},
    {"soft hyphen", 0x00AD, kNothing},
    {"acute accent", 0x00B4, '\''},
    {"multiplication sign", 0x00D7, 'x'},
    {"Greek question mark", 0x037E, ';'},
    {"Greek capital alpha", 0x0391, 'A'},
    {"Greek capital beta", 0x0392, 'B'},
    {"Greek capital epsilon", 0x0395, 'E'},
    {"Greek capital omicron", 0x039F, 'O'},
    {"Greek small omicron", 0x03BF, 'o'},
    {"Cyrillic capital dze", 0x0405, 'S'},
    {"Cyrillic capital i", 0x0406, 'I'},
    {"Cyrillic capital je", 0x0408, 'J'},
    {"Cyrillic capital a", 0x0410, 'A'},
    {"Cyrillic capital ve", 0x0412, 'B'},
    {"Cyrillic capital ie", 0x0415, 'E'},
    {"Cyrillic capital ka", 0x041A, 'K'},
    {"Cyrillic capital em", 0x041C, 'M'},
    {"Cyrillic capital en", 0x041D, 'H'},
    {"Cyrillic capital o", 0x041E, 'O'},
    {"Cyrillic capital er", 0x0420, 'P'},
    {"Cyrillic capital es", 0x0421, 'C'},
    {"Cyrillic capital te", 0x0422, 'T'},
    {"Cyrillic capital ha", 0x0425, 'X'},
    {"Cyrillic small a", 0x0430, 'a'},
    {"Cyrillic small ie", 0x0435, 'e'},
    {"Cyrillic small o", 0x043E, 'o'},
    {"Cyrillic small er", 0x0440, 'p'},
    {"Cyrillic small es", 0x0441, 'c'},
    {"Cyrillic small u", 0x0443, 'y'},
    {"Cyrillic small ha", 0x0445, 'x'},
    {"Cyrillic small dze", 0x0455, 's'},
    {"Cyrillic small i", 0x0456, 'i'},
    {"Cyrillic small je", 0x0458, 'j'},
    {"en space", 0x2002, ' '},
    {"em space", 0x2003, ' '},
    {"figure space", 0x2007, ' '},
    {"thin space", 0x2009, ' '},
    {"hair space", 0x200A, ' '},
    {"zero-width space", 0x200B, kNothing},
    {"zero-width non-joiner", 0x200C, kNothing},
    {"zero-width joiner", 0x200D, kNothing},
    {"left-to-right mark", 0x200E, kNothing},
    {"right-to-left mark", 0x200F, kNothing},
    {"hyphen", 0x2010, '-'},
    {"no-break hyphen", 0x2011, '-'},
    {"figure dash", 0x2012, '-'},
    {"en dash", 0x2013, '-'},
    {"em dash", 0x2014, '-'},
    {"left single quote", 0x2018, '\''},
    {"right single quote", 0x2019, '\''},
    {"low single quote", 0x201A, '\''},
    {"left double quote", 0x201C, '"'},
    {"right double quote", 0x201D, '"'},
    {"low double quote", 0x201E, '"'},
    {"line separator", 0x2028, ' '},
    {"paragraph separator", 0x2029, ' '},
    {"left-to-right embedding", 0x202A, kNothing},
    {"right-to-left embedding", 0x202B, kNothing},
    {"end of a directional embedding", 0x202C, kNothing},
    {"left-to-right override", 0x202D, kNothing},
    {"right-to-left override", 0x202E, kNothing},
    {"narrow no-break space", 0x202F, ' '},
    {"word joiner", 0x2060, kNothing},
    {"left-to-right isolate", 0x2066, kNothing},
    {"right-to-left isolate", 0x2067, kNothing},
    {"first strong isolate", 0x2068, kNothing},
    {"end of a directional isolate", 0x2069, kNothing},
    {"minus sign", 0x2212, '-'},
    {"ideographic space", 0x3000, ' '},
    {"ideographic comma", 0x3001, ','},
    {"byte order mark", 0xFEFF, kNothing},
};
// clang-format on

}  // namespace

std::optional<OddCharacter> oddCharacter(char32_t code) {
    // The full-width forms, one for each printable character of ASCII.
    if (code >= 0xFF01 && code <= 0xFF5E)
        return {{"full-width form", code, static_cast<char>(code - 0xFEE0)}};
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
