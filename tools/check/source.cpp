#include "check/source.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <utility>

#include "model/spool.h"

namespace {

// Parses the file, and gives its text when that can be read; tells in `failure` why a pipe cannot.
std::string readInto(KAJsonParser& parser, std::string& failure, const std::string& path) {
    const SpooledFile spooled(path);
    if (!spooled.error().empty()) {
        failure = spooled.error().substr(path.size() + std::strlen(": "));
        return {};
    }
    parser.parseFile(spooled.path().c_str());
    const KaJsonError error = KAJsonTable(parser).error();
    if (error.reason != nullptr && error.line == 0) return {};
    std::ifstream file(spooled.path(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The framework parses files only: this one is in memory and has no name.
void parseText(KAJsonParser& parser, const std::string& text) {
    const int file = memfd_create("eboconf", MFD_CLOEXEC);
    size_t written = 0;
    while (written < text.size()) {
        const ssize_t count = write(file, text.data() + written, text.size() - written);
        if (count <= 0) break;
        written += static_cast<size_t>(count);
    }
    parser.parseFile(("/proc/self/fd/" + std::to_string(file)).c_str());
    close(file);
}

}  // namespace

CheckSource::CheckSource(const std::string& path)
    : text_(readInto(parser_, failure_, path)), lines_(text_.original()) {
    readItems();
}

CheckSource::CheckSource(EditedText text) : text_(std::move(text)), lines_(text_.original()) {
    parseText(parser_, text_.text());
    readItems();
}

void CheckSource::readItems() {
    KAJsonTable table(parser_);
    error_ = table.error();
    if (!failure_.empty()) error_.reason = failure_.c_str();
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
    const std::string_view all = text();
    while (offset < all.size() && all[offset] != '"') offset += all[offset] == '\\' ? 2 : 1;
    return std::min(offset + 1, all.size());
}

size_t CheckSource::endOf(const KaJsonItem& item) const {
    const std::string_view all = text();
    size_t at = item.value_offset;
    switch (item.kind) {
        case KaJsonKind::kString:
            return endOfString(at);
        case KaJsonKind::kNumber:
            return at + item.value_length;
        case KaJsonKind::kNull:
            return at + 4;
        case KaJsonKind::kBool:
            return at + (at < all.size() && all[at] == 't' ? 4 : 5);
        default:
            break;
    }
    for (size_t open = 0; at < all.size();) {
        const char c = all[at];
        at = c == '"' ? endOfString(at + 1) : at + 1;
        if (c == '{' || c == '[') ++open;
        if ((c == '}' || c == ']') && --open == 0) break;
    }
    return std::min(at, all.size());
}

std::string_view CheckSource::insideArray(const KaJsonItem& item) const {
    const size_t begin = size_t{item.value_offset} + 1;
    const size_t end = text().find(']', begin);
    if (item.kind != KaJsonKind::kArray || end == std::string_view::npos) return {};
    return text().substr(begin, end - begin);
}

// The file may have changed since it was parsed, so offsets are kept within the text.
TextPlace CheckSource::place(size_t offset, size_t length) const {
    offset = std::min(offset, text().size());
    TextPlace place = lines_.place(text_.originalOffset(offset), length);
    place.isInFile = text_.isOriginal(offset);
    return place;
}

// The quotes may have been put in.
TextPlace CheckSource::nameOf(const KaJsonItem& item) const {
    const size_t begin = item.name_offset;
    TextPlace found = place(begin - 1, endOfString(begin) - begin + 1);
    found.isInFile = text_.isOriginal(std::min(begin, text().size()));
    return found;
}

TextPlace CheckSource::valueOf(const KaJsonItem& item) const {
    const size_t begin = item.value_offset;
    if (item.kind == KaJsonKind::kArray || item.kind == KaJsonKind::kObject) return place(begin, 1);
    if (item.kind != KaJsonKind::kString) return place(begin, endOf(item) - begin);
    TextPlace found = place(begin - 1, endOf(item) - begin + 1);
    found.isInFile = text_.isOriginal(std::min(begin, text().size()));
    return found;
}

TextEdit CheckSource::rename(const KaJsonItem& item, std::string name) const {
    const size_t length = endOfString(item.name_offset) - 1 - item.name_offset;
    return {text_.originalOffset(item.name_offset), length, std::move(name)};
}

size_t CheckSource::errorOffset() const {
    size_t begin = 0;
    for (uint32_t line = 1; line < error_.line; ++line) begin = text().find('\n', begin) + 1;
    return std::min(begin + error_.column - 1, text().size());
}

const KaJsonItem* lastNamed(const CheckSource::Items& items, std::string_view name) {
    const auto found = std::find_if(items.rbegin(), items.rend(), [name](const KaJsonItem* item) {
        return CheckSource::name(*item) == name;
    });
    return found == items.rend() ? nullptr : *found;
}
