#include "check/source.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "model/spool.h"

namespace {

constexpr size_t kQuoteReach = 200;  // bytes quoted on each side of a mark
constexpr size_t kBlock = 1024;      // bytes between two counts of characters

bool continuesCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

}  // namespace

CheckSource::CheckSource(const std::string& path) {
    const SpooledFile spooled(path);
    parser_.parseFile(spooled.path().c_str());
    KAJsonTable table(parser_);
    error_ = table.error();
    for (KaJsonItem item = {}; table.next(&item);) items_.push_back(item);
    if (error_.reason != nullptr && error_.line == 0) return;

    std::ifstream file(spooled.path(), std::ios::binary);
    text_.assign(std::istreambuf_iterator<char>(file), {});
    lines_.push_back(0);
    for (size_t i = 0; i < text_.size(); ++i) {
        if (text_[i] == '\n') lines_.push_back(i + 1);
    }
    characters_.push_back(0);
    for (size_t i = kBlock; i <= text_.size(); i += kBlock) characters_.push_back(charactersBefore(i));
}

CheckSource::Items CheckSource::roots() const {
    Items found;
    for (const KaJsonItem& item : items_) {
        if (item.level == 1) found.push_back(&item);
    }
    return found;
}

CheckSource::Items CheckSource::children(const KaJsonItem& parent) const {
    Items found;
    for (size_t i = parent.index + 1; i < items_.size() && items_[i].level > parent.level; ++i) {
        if (items_[i].level == parent.level + 1) found.push_back(&items_[i]);
    }
    return found;
}

bool CheckSource::section(const char* root, const char* section, KaMetaData* keys) {
    return parser_.getOptions(root, section, keys) != 0;
}

// Of the string whose text starts at `offset`: behind its closing quote.
size_t CheckSource::endOfString(size_t offset) const {
    while (offset < text_.size() && text_[offset] != '"') offset += text_[offset] == '\\' ? 2 : 1;
    return offset + 1;
}

size_t CheckSource::charactersBefore(size_t offset) const {
    const size_t block = std::min(offset / kBlock, characters_.size() - 1);
    const auto from = text_.begin() + static_cast<std::ptrdiff_t>(block * kBlock);
    const auto to = text_.begin() + static_cast<std::ptrdiff_t>(offset);
    return characters_[block] +
           static_cast<size_t>(std::count_if(from, to, [](char c) { return !continuesCharacter(c); }));
}

std::string_view CheckSource::insideArray(const KaJsonItem& item) const {
    const size_t begin = size_t{item.value_offset} + 1;
    const size_t end = text_.find(']', begin);
    if (item.kind != KaJsonKind::kArray || end == std::string::npos) return {};
    return text().substr(begin, end - begin);
}

CheckPlace CheckSource::nameOf(const KaJsonItem& item) const {
    return place(item.name_offset - 1, endOfString(item.name_offset) - item.name_offset + 1);
}

CheckPlace CheckSource::valueOf(const KaJsonItem& item) const {
    const size_t offset = item.value_offset;
    switch (item.kind) {
        case KaJsonKind::kString:
            return place(offset - 1, endOfString(offset) - offset + 1);
        case KaJsonKind::kNumber:
            return place(offset, item.value_length);
        case KaJsonKind::kNull:
            return place(offset, 4);
        case KaJsonKind::kBool:
            return place(offset, offset < text_.size() && text_[offset] == 't' ? 4 : 5);
        default:
            return place(offset, 1);
    }
}

// The file may have changed since it was parsed, so offsets are kept within the text.
CheckPlace CheckSource::place(size_t offset, size_t length) const {
    offset = std::min(offset, text_.size());
    const auto next = std::upper_bound(lines_.begin(), lines_.end(), offset);
    const size_t begin = *(next - 1);
    size_t end = next == lines_.end() ? text_.size() : *next - 1;
    if (end > begin && text_[end - 1] == '\r') --end;

    CheckPlace result;
    result.line = static_cast<uint32_t>(next - lines_.begin());
    result.column = static_cast<uint32_t>(offset - begin + 1);
    result.offset = static_cast<uint32_t>(offset);
    result.length = static_cast<uint32_t>(offset < end ? std::min(length, end - offset) : 0);
    result.characters = static_cast<uint32_t>(charactersBefore(offset) - charactersBefore(begin) + 1);

    size_t from = offset - begin > kQuoteReach ? offset - kQuoteReach : begin;
    while (from > begin && continuesCharacter(text_[from])) --from;
    size_t to = end > offset + kQuoteReach ? offset + kQuoteReach : end;
    while (to < end && continuesCharacter(text_[to])) ++to;
    result.quote = text_.substr(from, to > from ? to - from : 0);
    result.quoteMark = static_cast<uint32_t>(offset - from);
    result.cutBefore = from > begin;
    result.cutBehind = to < end;
    return result;
}

size_t CheckSource::offsetOf(uint32_t line, uint32_t column) const {
    if (line == 0 || line > lines_.size()) return 0;
    return std::min(lines_[line - 1] + column - 1, text_.size());
}

const KaJsonItem* lastNamed(const CheckSource::Items& items, std::string_view name) {
    const auto found = std::find_if(items.rbegin(), items.rend(), [name](const KaJsonItem* item) {
        return CheckSource::name(*item) == name;
    });
    return found == items.rend() ? nullptr : *found;
}
