// The private parts of the embedded framework's KaMetaData and KAJsonParser: not for users, but KaJsonError.
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

// Why parseFile failed. `reason` is null when it did not.
struct KaJsonError {
    const char* reason = nullptr;  // plain words, static storage
    int system_error = 0;          // errno of a failed call on the file, otherwise 0
    uint32_t line = 0;             // from 1; 0 when the file as a whole is meant
    uint32_t column = 0;           // bytes, from 1
};

struct KaJsonDocument {
    char* text =
        nullptr;  // the file; strings decoded in place, ending in NUL once somebody has asked for them
    KaJsonEntry* entries = nullptr;     // roots, sections and keys
    uint32_t count = 0;                 // of entries
    uint32_t capacity = 0;              // the memory of `entries` is for so many
    const KaJsonEntry* root = nullptr;  // the one that was asked for last, and its sections
    KaJsonSiblings sections;
    KaJsonError error;
};
