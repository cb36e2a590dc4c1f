#include "text/lines.h"

#include <algorithm>

#include "text/utf8.h"

namespace {

constexpr size_t kQuoteReach = 200;  // bytes quoted on each side of a mark
constexpr size_t kBlock = 1024;      // bytes between two counts of characters

}  // namespace

TextLines::TextLines(std::string_view text) : text_(text) {
    lines_.push_back(0);
    for (size_t i = 0; i < text_.size(); ++i) {
        if (text_[i] == '\n') lines_.push_back(i + 1);
    }
    characters_.push_back(0);
    for (size_t i = kBlock; i <= text_.size(); i += kBlock) characters_.push_back(charactersBefore(i));
}

size_t TextLines::charactersBefore(size_t offset) const {
    const size_t block = std::min(offset / kBlock, characters_.size() - 1);
    return characters_[block] + countCharacters(text_.substr(block * kBlock, offset - block * kBlock));
}

TextPlace TextLines::place(size_t offset, size_t length) const {
    offset = std::min(offset, text_.size());
    const auto next = std::upper_bound(lines_.begin(), lines_.end(), offset);
    const size_t begin = *(next - 1);
    size_t end = next == lines_.end() ? text_.size() : *next - 1;
    if (end > begin && text_[end - 1] == '\r') --end;

    TextPlace result;
    result.line = static_cast<uint32_t>(next - lines_.begin());
    result.column = static_cast<uint32_t>(offset - begin + 1);
    result.offset = static_cast<uint32_t>(offset);
    result.length = static_cast<uint32_t>(offset < end ? std::min(length, end - offset) : 0);
    result.characters = static_cast<uint32_t>(charactersBefore(offset) - charactersBefore(begin) + 1);

    const size_t mark = std::min(offset, end);  // the line's end may itself be marked
    size_t from = mark - begin > kQuoteReach ? mark - kQuoteReach : begin;
    while (from > begin && continuesUtf8(text_[from])) --from;
    size_t to = end - mark > kQuoteReach ? mark + kQuoteReach : end;
    while (to < end && continuesUtf8(text_[to])) ++to;
    result.quote = text_.substr(from, to - from);
    result.quoteMark = static_cast<uint32_t>(mark - from);
    result.cutBefore = from > begin;
    result.cutAfter = to < end;
    return result;
}
