#include "ka/json_table.h"

#include "json_entry.h"

bool KAJsonTable::next(KaJsonItem* item) {
    if (index_ == parser_.document_.count) return false;
    const KaJsonEntry& entry = parser_.document_.entries[index_];
    const uint32_t end = index_ + entry.size();
    const uint32_t level = index_ >= root_end_ ? 1 : index_ >= section_end_ ? 2 : 3;
    if (level == 1) root_end_ = end;
    if (level == 2) section_end_ = end;
    const bool has_text = entry.kind() == KaJsonKind::kString || entry.kind() == KaJsonKind::kNumber;
    char* const name = parser_.document_.text + entry.name;
    char* const value = parser_.document_.text + entry.value;
    name[entry.nameLength()] = '\0';
    if (entry.kind() == KaJsonKind::kString) value[entry.extent()] = '\0';
    *item = {name,
             entry.nameLength(),
             entry.name,
             entry.kind(),
             has_text ? value : nullptr,
             has_text ? entry.extent() : 0,
             entry.value,
             index_++,
             level};
    return true;
}

KaJsonError KAJsonTable::error() const {
    return parser_.document_.error;
}

KaTextPosition ka_text_position(const char* text, size_t offset) {
    KaTextPosition position = {1, 1};
    for (size_t i = 0; i < offset; ++i) {
        position.line += text[i] == '\n';
        position.column = text[i] == '\n' ? 1 : position.column + 1;
    }
    return position;
}
