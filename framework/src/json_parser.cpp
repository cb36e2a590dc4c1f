#include <cstdlib>
#include <cstring>

#include "file_buffer.h"
#include "json_entry.h"
#include "json_load.h"
#include "siblings.h"

namespace {

constexpr unsigned kChannel = 0;
constexpr int kErrorLevel = 2;
constexpr char kTag[] = "KAJsonParser";

}  // namespace

KAJsonParser::KAJsonParser() = default;

KAJsonParser::~KAJsonParser() {
    close();
}

void KAJsonParser::close() {
    free(entries_);
    free(text_);
    entries_ = nullptr;
    text_ = nullptr;
    count_ = 0;
    root_ = nullptr;
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
    const KaJsonEntry* const found = findSection(root, section);
    out->keys_ = found ? keysOf(*found, text_) : KaJsonSiblings();
    return found ? 1 : 0;
}

const KaJsonEntry* KAJsonParser::findSection(const char* root, const char* section) {
    if (!root || !section) return nullptr;

    // Loaders ask for many sections of one root.
    if (!root_ || !root_->isCalled(root, text_)) {
        const KaJsonEntry* const end = entries_ + count_;
        KaJsonSiblings roots = {entries_, end, end, true};
        root_ = findAnywhere(&roots, root, text_);
        if (!root_ || root_->kind() != KaJsonKind::kObject) {
            return root_ = nullptr;
        }
        sections_ = sectionsOf(*root_, text_);
    }
    const KaJsonEntry* const found = findSibling<false>(&sections_, section, text_);
    return found && found->kind() == KaJsonKind::kObject ? found : nullptr;
}
