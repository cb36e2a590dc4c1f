#include <cstdlib>
#include <cstring>

#include "json_load.h"

namespace {

constexpr int kErrorLevel = 2;
constexpr char kTag[] = "KAJsonParser";

void report(const KaJsonError& error, const char* path) {
    if (!path) path = "(null)";
    if (error.system_error != 0) {
        ka_err(0, kErrorLevel, kTag, "%s: %s: %s", "parseFile", __LINE__, path, error.reason,
               strerror(error.system_error));
    } else if (error.line != 0) {
        ka_err(0, kErrorLevel, kTag, "%s:%u:%u: %s", "parseFile", __LINE__, path,
               static_cast<unsigned>(error.line), static_cast<unsigned>(error.column), error.reason);
    } else {
        ka_err(0, kErrorLevel, kTag, "%s: %s", "parseFile", __LINE__, path, error.reason);
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
    if (!document->root ||
        !(isCalledAtOnce(*document->root, root, text) || isCalled(*document->root, root, text))) {
        const KaJsonEntry* const end = document->entries + document->count;
        KaJsonSiblings roots = {document->entries, end, end, true};
        document->root = findAnywhere(&roots, root, text);
        if (!document->root || document->root->kind() != KaJsonKind::kObject) return document->root = nullptr;
        document->sections = siblingsBelow<false>(*document->root, text);
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
    document_.error.reason = readFile(path, &file, &document_.error.system_error);
    document_.text = file.text;
    if (!document_.error.reason && loadJson(file, &document_)) return 1;
    const KaJsonError error = document_.error;
    close(&document_);
    report(document_.error = error, path);
    return 0;
}

int KAJsonParser::getOptions(const char* root, const char* section, KaMetaData* out) {
    if (!out) return 0;
    const KaJsonEntry* const found = findSection(&document_, root, section);
    out->section_.text = document_.text;
    out->section_.keys = found ? siblingsBelow<true>(*found, document_.text) : KaJsonSiblings();
    return found ? 1 : 0;
}
