#include <cstdlib>
#include <cstring>

#include "file_buffer.h"
#include "json_entry.h"
#include "json_load.h"

namespace {

constexpr unsigned kChannel = 0;
constexpr int kErrorLevel = 2;
constexpr char kTag[] = "KAJsonParser";

// The last of the entries `index` up to `end`, all of one parent, that is called `name`; null when there is none.
const KaJsonEntry* findLast(const char* text, const KaJsonEntry* entries, uint32_t index, uint32_t end,
                            const char* name) {
    const size_t length = strlen(name);
    const KaJsonEntry* found = nullptr;
    while (index < end) {
        const KaJsonEntry& entry = entries[index];
        if (entry.name_length == length && memcmp(text + entry.name, name, length) == 0) found = &entry;
        index = entry.kind() == KaJsonKind::kObject ? entry.extent() : index + 1;
    }
    return found;
}

}  // namespace

KAJsonParser::~KAJsonParser() { close(); }

void KAJsonParser::close() {
    free(entries_);
    free(text_);
    entries_ = nullptr;
    text_ = nullptr;
    count_ = 0;
}

void KAJsonParser::report(const char* path) const {
    if (error_.system_error != 0) {
        ka_err(kChannel, kErrorLevel, kTag, "%s: %s: %s", "parseFile", __LINE__, path, error_.reason,
               strerror(error_.system_error));
    } else if (error_.line != 0) {
        ka_err(kChannel, kErrorLevel, kTag, "%s:%u:%u: %s", "parseFile", __LINE__, path, error_.line,
               error_.column, error_.reason);
    } else {
        ka_err(kChannel, kErrorLevel, kTag, "%s: %s", "parseFile", __LINE__, path, error_.reason);
    }
}

int KAJsonParser::parseFile(const char* path) {
    close();
    error_ = {};
    FileBuffer file;
    JsonLoad load;
    if (!path) {
        error_.reason = "no file name";
    } else {
        error_.reason = readFile(path, &file, &error_.system_error);
    }
    if (!error_.reason && !loadJson(&file, &load)) {
        error_.reason = load.reason;
        if (load.located) {
            // The reader has decoded strings in place; count lines in the text as it is on disk.
            rereadFile(&file);
            const KaTextPosition position = ka_text_position(file.text, load.error_offset);
            error_.line = position.line;
            error_.column = position.column;
        }
    }
    closeFile(&file);
    text_ = file.text;
    entries_ = load.entries;
    count_ = load.count;
    if (!error_.reason) return 1;
    close();
    report(path ? path : "(null)");
    return 0;
}

int KAJsonParser::getOptions(const char* root, const char* section, KaMetaData* out) {
    if (!out) return 0;
    out->text_ = text_;
    out->begin_ = out->end_ = out->next_ = nullptr;
    if (!root || !section) return 0;

    const KaJsonEntry* parent = findLast(text_, entries_, 0, count_, root);
    if (!parent || parent->kind() != KaJsonKind::kObject) return 0;
    const uint32_t first = static_cast<uint32_t>(parent - entries_) + 1;
    const KaJsonEntry* found = findLast(text_, entries_, first, parent->extent(), section);
    if (!found || found->kind() != KaJsonKind::kObject) return 0;
    out->begin_ = out->next_ = found + 1;
    out->end_ = entries_ + found->extent();
    return 1;
}
