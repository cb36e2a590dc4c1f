#include "text/utf8.h"

#include <algorithm>

namespace {

struct Lead {
    size_t length;
    char32_t bits;
    char32_t lowest;  // code that needs so many bytes
};

Lead leadOf(unsigned char byte) {
    if (byte < 0x80) return {1, byte, 0};
    if (byte < 0xC0) return {0, 0, 0};
    if (byte < 0xE0) return {2, byte & 0x1FU, 0x80};
    if (byte < 0xF0) return {3, byte & 0x0FU, 0x800};
    if (byte < 0xF8) return {4, byte & 0x07U, 0x10000};
    return {0, 0, 0};
}

}  // namespace

Utf8Character utf8At(std::string_view text, size_t at) {
    const Lead lead = leadOf(static_cast<unsigned char>(text[at]));
    if (lead.length > text.size() - at) return {0, 0};
    char32_t code = lead.bits;
    for (size_t i = 1; i < lead.length; ++i) {
        if (!continuesUtf8(text[at + i])) return {0, 0};
        code = code << 6 | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
    }
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < lead.lowest || surrogate || code > 0x10FFFF) return {0, 0};
    return {code, lead.length};
}

size_t countCharacters(std::string_view text) {
    return static_cast<size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return !continuesUtf8(c); }));
}

bool steersTerminal(char32_t code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x200E || code == 0x200F ||
           (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}
