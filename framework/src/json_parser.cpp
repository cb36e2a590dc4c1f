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

void report(const KaJsonDocument& document, const char* path) {
    if (!path) path = "(null)";
    if (document.error_errno != 0) {
        ka_err(kChannel, kErrorLevel, kTag, "%s: %s: %s", "parseFile", __LINE__, path, document.error,
               strerror(document.error_errno));
    } else if (document.error_line != 0) {
        ka_err(kChannel, kErrorLevel, kTag, "%s:%u:%u: %s", "parseFile", __LINE__, path,
               static_cast<unsigned>(document.error_line), static_cast<unsigned>(document.error_column),
               document.error);
    } else {
        ka_err(kChannel, kErrorLevel, kTag, "%s: %s", "parseFile", __LINE__, path, document.error);
    }
}

void close(KaJsonDocument* document) {
    free(document->entries);
    free(document->text);
    *document = KaJsonDocument();
}

const KaJsonEntry* findSection(KaJsonDocument* document, const char* root, const char* section) {
    if (!root || !section) return nullptr;

    // Loaders ask for many sections of one root.
    const char* const text = document->text;
    if (!document->root || !isCalled(*document->root, root, text)) {
        const KaJsonEntry* const end = document->entries + document->count;
        KaJsonSiblings roots = {document->entries, end, end, true};
        document->root = findAnywhere(&roots, root, text);
        if (!document->root || document->root->kind() != KaJsonKind::kObject) {
            return document->root = nullptr;
        }
        document->sections = sectionsOf(*document->root, text);
    }
    const KaJsonEntry* const found = findSibling<false>(&document->sections, section, text);
    return found && found->kind() == KaJsonKind::kObject ? found : nullptr;
}

}  // namespace

KAJsonParser::KAJsonParser() = default;

KAJsonParser::~KAJsonParser() {
    close(&document_);
}

int KAJsonParser::parseFile(const char* path) {
    close(&document_);
    FileBuffer file;
    JsonLoad load;
    const char* error = readFile(path, &file, &document_.error_errno);
    if (!error && !loadJson(&file, &load)) {
        error = load.reason;
        if (load.located) {
            const KaTextPosition position = ka_text_position(file.text, load.offset);
            document_.error_line = position.line;
            document_.error_column = position.column;
        }
    }
    if (!error) {
        document_.text = file.text;
        document_.entries = load.entries;
        document_.count = load.count;
        return 1;
    }
    free(load.entries);
    free(file.text);
    document_.error = error;
    report(document_, path);
    return 0;
}

int KAJsonParser::getOptions(const char* root, const char* section, KaMetaData* out) {
    if (!out) return 0;
    const KaJsonEntry* const found = findSection(&document_, root, section);
    out->section_.text = document_.text;
    out->section_.keys = found ? keysOf(*found, document_.text) : KaJsonSiblings();
    return found ? 1 : 0;
}
