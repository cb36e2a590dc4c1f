#include "json_text.h"

namespace {

// What a letter after a backslash stands for; NUL when it is none.
char unescaped(char letter) {
    // clang-format off
    switch (letter) {
        case 'b': return '\b';
        case 'f': return '\f';
        case 'n': return '\n';
        case 'r': return '\r';
        case 't': return '\t';
        case '"': return '"';
        case '/': return '/';
        case '\\': return '\\';
        default: return '\0';
    }
    // clang-format on
}

bool isFirstHalf(uint32_t unit) {
    return unit >> 10 == 0xD800 >> 10;
}
bool isSecondHalf(uint32_t unit) {
    return unit >> 10 == 0xDC00 >> 10;
}

bool isTail(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

// An ASCII byte after the characters at `text`; null when they are not UTF-8 (RFC 3629).
const char* skipUtf8(const char* text) {
    const auto* at = reinterpret_cast<const unsigned char*>(text);
    for (;;) {
        const unsigned lead = at[0];
        if (lead < 0x80) {
            const bool plain = lead >= ' ' && lead != '"' && lead != '\\';
            if (!plain || at[1] < 0x80) return reinterpret_cast<const char*>(at);
            ++at;  // a single one between others that are not ASCII
            continue;
        }
        // No character is written longer than need be, none is half a pair or beyond U+10FFFF.
        const unsigned begin = lead << 8 | at[1];
        if (begin < 0xC280 || begin >> 5 == 0xEDA0 >> 5 || begin > 0xF48F || !isTail(at[1])) return nullptr;
        if (lead >= 0xE0 && (begin < 0xE0A0 || !isTail(at[2]))) return nullptr;
        if (lead >= 0xF0 && (begin < 0xF090 || !isTail(at[3]))) return nullptr;
        at += lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    }
}

bool areHexDigits(const char* at) {
    const char* const end = at + 4;
    while (at != end && (plain_text::isDigit(*at) || static_cast<unsigned char>((*at | 0x20) - 'a') < 6))
        ++at;
    return at == end;
}

// The code unit of four hexadecimal digits, all at once.
uint32_t codeUnit(const char* text) {
    const auto* const at = reinterpret_cast<const unsigned char*>(text);
    uint32_t unit = uint32_t{at[0]} << 24 | uint32_t{at[1]} << 16 | uint32_t{at[2]} << 8 | at[3];
    unit = (unit & 0x0F0F0F0F) + 9 * (unit >> 6 & 0x01010101);
    unit = (unit | unit >> 4) & 0x00FF00FF;
    return (unit | unit >> 8) & 0xFFFF;
}

char* putUtf8(char* to, uint32_t code) {
    const int tail = code < 0x80 ? 0 : code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    static constexpr uint32_t kLeads[] = {0, 0xC0, 0xE0, 0xF0};
    *to++ = static_cast<char>(kLeads[tail] | code >> 6 * tail);
    for (int i = tail - 1; i >= 0; --i) *to++ = static_cast<char>(0x80 | (code >> 6 * i & 0x3F));
    return to;
}

}  // namespace

const char* skipString(const char* at, bool* escapes) {
    for (;;) {
        at = plain_text::skipPlain(at);
        if (*at == '"') return at;
        if (*at == '\\') {
            *escapes = true;
            while (at && *at == '\\') at = skipEscape(at);
        } else {
            at = static_cast<unsigned char>(*at) < 0x80 ? nullptr : skipUtf8(at);
        }
        if (!at) return nullptr;
    }
}

const char* skipEscape(const char* at) {
    if (at[1] != 'u') return unescaped(at[1]) != '\0' ? at + 2 : nullptr;
    if (!areHexDigits(at + 2) || isSecondHalf(codeUnit(at + 2))) return nullptr;
    if (!isFirstHalf(codeUnit(at + 2))) return at + 6;
    const bool pair = at[6] == '\\' && at[7] == 'u' && areHexDigits(at + 8) && isSecondHalf(codeUnit(at + 8));
    return pair ? at + 12 : nullptr;
}

const char* skipNumber(const char* at) {
    const auto skipDigits = [&at] {
        const char* const begin = at;
        while (plain_text::isDigit(*at)) ++at;
        return at - begin;
    };
    if (*at == '-') ++at;
    const bool zero = *at == '0';
    const ptrdiff_t whole = skipDigits();
    if (whole == 0 || (zero && whole != 1)) return nullptr;
    if (*at == '.' && (++at, skipDigits() == 0)) return nullptr;
    if ((*at | 0x20) != 'e') return at;
    ++at;
    if (*at == '+' || *at == '-') ++at;
    return skipDigits() == 0 ? nullptr : at;
}

uint32_t decode(char* text, uint32_t length) {
    const char* from = text;
    const char* const end = text + length;
    char* to = text;
    while (from != end) {
        if (*from != '\\') {
            *to++ = *from++;
        } else if (from[1] != 'u') {
            *to++ = unescaped(from[1]);
            from += 2;
        } else {
            uint32_t code = codeUnit(from + 2);
            from += 6;
            if (isFirstHalf(code)) {
                code = 0x10000 + (code - 0xD800) * 0x400 + (codeUnit(from + 2) - 0xDC00);
                from += 6;
            }
            to = putUtf8(to, code);
        }
    }
    return static_cast<uint32_t>(to - text);
}
