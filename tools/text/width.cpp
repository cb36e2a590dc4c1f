#include "text/width.h"

#include <clocale>
#include <cwchar>

#include "text/utf8.h"

namespace {

// The C library knows it, in a locale of UTF-8; the user's may be another. Without that locale, as for what
// is not printable, a column.
size_t widthOf(char32_t code) {
    static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    const locale_t before = uselocale(utf8);
    const int width = wcwidth(static_cast<wchar_t>(code));
    uselocale(before);
    return width < 0 ? 1 : static_cast<size_t>(width);
}

struct Step {
    size_t bytes;
    size_t width;
};

// A byte that belongs to no character takes a column.
Step stepAt(std::string_view text, size_t at) {
    const Utf8Character character = utf8At(text, at);
    if (character.length == 0) return {1, 1};
    return {character.length, widthOf(character.code)};
}

}  // namespace

size_t widthOf(std::string_view text) {
    size_t width = 0;
    for (size_t at = 0; at < text.size();) {
        const Step step = stepAt(text, at);
        at += step.bytes;
        width += step.width;
    }
    return width;
}

std::string shortened(const std::string& text, size_t width) {
    constexpr std::string_view kDots = "...";
    if (widthOf(text) <= width) return text;
    size_t at = 0;
    for (size_t room = width - kDots.size(); at < text.size();) {
        const Step step = stepAt(text, at);
        if (step.width > room) break;
        at += step.bytes;
        room -= step.width;
    }
    return text.substr(0, at) + std::string(kDots);
}
