#include "text/width.h"

#include <algorithm>
#include <iterator>

#include "text/utf8.h"

namespace {

struct Range {
    char32_t first;
    char32_t last;
    size_t width;
};

// Whole blocks: a few characters in them are of another width. All others take one column.
constexpr Range kRanges[] = {{0x0300, 0x036F, 0},  {0x1100, 0x115F, 2}, {0x200B, 0x200F, 0},
                             {0x20D0, 0x20FF, 0},  {0x2E80, 0xA4CF, 2}, {0xAC00, 0xD7A3, 2},
                             {0xF900, 0xFAFF, 2},  {0xFE00, 0xFE0F, 0}, {0xFE30, 0xFE6F, 2},
                             {0xFF00, 0xFF60, 2},  {0xFFE0, 0xFFE6, 2}, {0x1F300, 0x1FAFF, 2},
                             {0x20000, 0x3FFFD, 2}};

struct Step {
    size_t bytes;
    size_t width;
};

// A byte that belongs to no character takes a column.
Step stepAt(std::string_view text, size_t at) {
    const Utf8Character character = utf8At(text, at);
    if (character.length == 0) return {1, 1};
    const auto* const range = std::find_if(std::begin(kRanges), std::end(kRanges), [&](const Range& one) {
        return character.code >= one.first && character.code <= one.last;
    });
    return {character.length, range != std::end(kRanges) ? range->width : 1};
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
