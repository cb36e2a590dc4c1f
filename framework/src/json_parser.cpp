#include <cstdlib>
#include <cstring>

#include "file_buffer.h"
#include "json_entry.h"
#include "json_load.h"
#include "repeated_keys.h"

namespace {

constexpr unsigned kChannel = 0;
constexpr int kErrorLevel = 2;
constexpr char kTag[] = "KAJsonParser";

// The last of the entries from `index` up to `end`, all children of one object, that has this name.
const KaJsonEntry* findLast(const char* text, const KaJsonEntry* entries, uint32_t index, uint32_t end,
                            const char* name) {
    const size_t length = strlen(name);
    const KaJsonEntry* found = nullptr;
    while (index < end) {
        const KaJsonEntry& entry = entries[index];
        if (entry.isCalled(name, length, text)) found = &entry;
        index = entry.kind() == KaJsonKind::kObject ? entry.extent() : index + 1;
    }
    return found;
}

}  // namespace

KAJsonParser::~KAJsonParser() {
    close();
}

void KAJsonParser::close() {
    free(entries_);
    free(text_);
    entries_ = nullptr;
    text_ = nullptr;
    count_ = 0;
}

void KAJsonParser::report(const char* path) const {
    if (!path) path = "(null)";
    if (error_errno_ != 0) {
        ka_err(kChannel, kErrorLevel, kTag, "%s: %s: %s", "parseFile", __LINE__, path, error_,
               strerror(error_errno_));
    } else if (error_line_ != 0) {
        ka_err(kChannel, kErrorLevel, kTag, "%s:%u:%u: %s", "parseFile", __LINE__, path, error_line_,
               error_column_, error_);
    } else {
        ka_err(kChannel, kErrorLevel, kTag, "%s: %s", "parseFile", __LINE__, path, error_);
    }
}

int KAJsonParser::parseFile(const char* path) {
    close();
    error_errno_ = 0;
    error_line_ = error_column_ = 0;
    FileBuffer file;
    JsonLoad load;
    error_ = readFile(path, &file, &error_errno_);
    if (!error_ && !loadJson(&file, &load)) {
        error_ = load.reason;
        if (load.located) {
            const KaTextPosition position = ka_text_position(file.text, load.offset);
            error_line_ = position.line;
            error_column_ = position.column;
        }
    }
    closeFile(&file);
    text_ = file.text;
    entries_ = load.entries;
    count_ = load.count;
    if (!error_) return 1;
    close();
    report(path);
    return 0;
}

int KAJsonParser::getOptions(const char* root, const char* section, KaMetaData* out) {
    if (!out) return 0;
    out->text_ = text_;
    out->begin_ = out->end_ = out->next_ = nullptr;
    out->repeats_ = false;
    if (!root || !section) return 0;

    const KaJsonEntry* const parent = findLast(text_, entries_, 0, count_, root);
    if (!parent || parent->kind() != KaJsonKind::kObject) return 0;
    const uint32_t first = static_cast<uint32_t>(parent - entries_) + 1;
    const KaJsonEntry* const found = findLast(text_, entries_, first, parent->extent(), section);
    if (!found || found->kind() != KaJsonKind::kObject) return 0;
    out->begin_ = out->next_ = found + 1;
    out->end_ = entries_ + found->extent();
    out->repeats_ = mayRepeatKeys(text_, out->begin_, out->end_);
    return 1;
}
