#include "ka/json_table.h"

#include "json_entry.h"

bool KAJsonTable::next(KaJsonItem* item) {
    if (index_ == parser_.document_.count) return false;
    const KaJsonEntry& entry = parser_.document_.entries[index_];
    const uint32_t end = static_cast<uint32_t>(entry.sibling() - parser_.document_.entries);
    if (index_ >= root_end_) {
        item->level = 1;
        root_end_ = end;
    } else if (index_ >= section_end_) {
        item->level = 2;
        section_end_ = end;
    } else {
        item->level = 3;
    }
    const bool has_text = entry.kind() == KaJsonKind::kString || entry.kind() == KaJsonKind::kNumber;
    char* const name = parser_.document_.text + entry.name;
    char* const value = parser_.document_.text + entry.value;
    name[entry.nameLength()] = '\0';
    if (entry.kind() == KaJsonKind::kString) value[entry.extent()] = '\0';
    item->name = name;
    item->name_length = entry.nameLength();
    item->name_offset = entry.name;
    item->kind = entry.kind();
    item->value = has_text ? value : nullptr;
    item->value_length = has_text ? entry.extent() : 0;
    item->value_offset = entry.value;
    item->index = index_++;
    return true;
}

KaJsonError KAJsonTable::error() const {
    const KaJsonDocument& document = parser_.document_;
    return {document.error, document.error_errno, document.error_line, document.error_column};
}

KaTextPosition ka_text_position(const char* text, size_t offset) {
    KaTextPosition position = {1, 1};
    for (size_t i = 0; i < offset; ++i) {
        ++position.column;
        if (text[i] == '\n') {
            ++position.line;
            position.column = 1;
        }
    }
    return position;
}
