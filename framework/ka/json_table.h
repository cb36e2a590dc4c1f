// Read-only view of an opened document for tools. Only the default framework has it.
#pragma once

#include <ka/framework.h>

enum class KaJsonKind : uint8_t { kNull, kBool, kNumber, kString, kArray, kObject };

// One root, section or key. Texts belong to the parser and live until its next parseFile or its end.
struct KaJsonItem {
    const char* name;        // decoded, NUL-terminated
    uint32_t name_length;    // in bytes; more than strlen(name) when the name contains \u0000
    uint32_t name_offset;    // byte offset in the file of the name, behind its opening quote
    KaJsonKind kind;         // of the value
    const char* value;       // a string decoded and NUL-terminated, a number as written but not terminated; else null
    uint32_t value_length;   // in bytes; 0 when value is null
    uint32_t value_offset;   // byte offset in the file of the value; of a string behind its opening quote
    uint32_t index;          // its place in the table
    uint32_t level;          // 1 root, 2 section, 3 key
};

// Walks all roots, sections and keys in file order, duplicates included. What lies deeper than a key's value, or
// inside an array, is not in the table.
//
//     KAJsonTable table(parser);
//     for (KaJsonItem item; table.next(&item);) ...
class KAJsonTable {
public:
    explicit KAJsonTable(const KAJsonParser& parser) : parser_(parser) {}

    // False at the end.
    bool next(KaJsonItem* item);

    // Why the last parseFile failed; `reason` is null when it did not.
    const KaJsonError& error() const { return parser_.error_; }

private:
    const KAJsonParser& parser_;
    uint32_t index_ = 0;
    uint32_t root_end_ = 0;
    uint32_t section_end_ = 0;
};

// Line and column, both from 1, of a byte offset in a file's text as it is on disk. The column counts bytes.
struct KaTextPosition {
    uint32_t line;
    uint32_t column;
};
KaTextPosition ka_text_position(const char* text, size_t offset);
