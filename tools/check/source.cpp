#include "check/source.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "model/spool.h"

namespace {

// Parses the file, and gives its text when that can be read.
std::string readInto(KAJsonParser& parser, KaJsonError& error, const std::string& path) {
    const SpooledFile spooled(path);
    parser.parseFile(spooled.path().c_str());
    error = KAJsonTable(parser).error();
    if (error.reason != nullptr && error.line == 0) return {};
    std::ifstream file(spooled.path(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

CheckSource::CheckSource(const std::string& path) : text_(readInto(parser_, error_, path)), lines_(text_) {
    KAJsonTable table(parser_);
    for (KaJsonItem item = {}; table.next(&item);) items_.push_back(item);
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

// After the closing quote of the string whose text starts at `offset`.
size_t CheckSource::endOfString(size_t offset) const {
    while (offset < text_.size() && text_[offset] != '"') offset += text_[offset] == '\\' ? 2 : 1;
    return offset + 1;
}

std::string_view CheckSource::insideArray(const KaJsonItem& item) const {
    const size_t begin = size_t{item.value_offset} + 1;
    const size_t end = text_.find(']', begin);
    if (item.kind != KaJsonKind::kArray || end == std::string::npos) return {};
    return text().substr(begin, end - begin);
}

TextPlace CheckSource::nameOf(const KaJsonItem& item) const {
    return lines_.place(item.name_offset - 1, endOfString(item.name_offset) - item.name_offset + 1);
}

TextPlace CheckSource::valueOf(const KaJsonItem& item) const {
    const size_t offset = item.value_offset;
    switch (item.kind) {
        case KaJsonKind::kString:
            return lines_.place(offset - 1, endOfString(offset) - offset + 1);
        case KaJsonKind::kNumber:
            return lines_.place(offset, item.value_length);
        case KaJsonKind::kNull:
            return lines_.place(offset, 4);
        case KaJsonKind::kBool:
            return lines_.place(offset, offset < text_.size() && text_[offset] == 't' ? 4 : 5);
        default:
            return lines_.place(offset, 1);
    }
}

const KaJsonItem* lastNamed(const CheckSource::Items& items, std::string_view name) {
    const auto found = std::find_if(items.rbegin(), items.rend(), [name](const KaJsonItem* item) {
        return CheckSource::name(*item) == name;
    });
    return found == items.rend() ? nullptr : *found;
}
