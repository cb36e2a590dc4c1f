// Not for users: the private parts of the embedded framework's KaMetaData and KAJsonParser.
#pragma once

#include <cstdint>

struct KaJsonEntry;  // a root, section or key of an opened document

// Entries of a document side by side, and how to look them up.
struct KaJsonSiblings {
    const KaJsonEntry* begin = nullptr;
    const KaJsonEntry* end = nullptr;
    const KaJsonEntry* next = nullptr;  // after the last one found: names mostly come in file order
    bool repeat = false;                // two of them may have the same name; `next` stays at `end` then
};

// The keys of a section: a view into its document.
struct KaJsonSection {
    char* text = nullptr;
    KaJsonSiblings keys;
};

struct KaJsonDocument {
    char* text =
        nullptr;  // the file; strings are decoded in place, and end in NUL once somebody has asked for them
    KaJsonEntry* entries = nullptr;     // roots, sections and keys
    uint32_t count = 0;                 // of entries
    const KaJsonEntry* root = nullptr;  // the one that was asked for last, and its sections
    KaJsonSiblings sections;
    const char* error = nullptr;  // why parseFile failed
    int error_errno = 0;
    uint32_t error_line = 0;
    uint32_t error_column = 0;
};
