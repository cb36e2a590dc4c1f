// An opened document, read-only, for tools that want to see all of it. Not part of what a host must bring.
#pragma once

#include <ka/framework.h>

#pragma GCC visibility push(default)

enum class KaJsonKind : uint8_t { kNull, kBool, kNumber, kString, kArray, kObject };

// One root, section or key. The texts belong to the parser and live until its next parseFile or its end.
struct KaJsonItem {
    const char* name = nullptr;   // decoded, ends in NUL
    uint32_t name_length = 0;     // bytes; more than strlen(name) if the name holds \u0000
    uint32_t name_offset = 0;     // byte of the file after the name's opening quote
    KaJsonKind kind = {};         // of the value
    const char* value = nullptr;  // string: decoded, ends in NUL; number: as written; else null
    uint32_t value_length = 0;    // bytes
    uint32_t value_offset = 0;    // byte of the file where the value begins; of a string after its quote
    uint32_t index = 0;           // counted from 0 in file order
    uint32_t level = 0;           // 1 root, 2 section, 3 key
};

// Gives all roots, sections and keys in file order, parents before children, repeated ones included. What
// lies inside an array, or deeper than a key, is not given.
class KAJsonTable {
public:
    // The parser must outlive the table.
    explicit KAJsonTable(const KAJsonParser& parser) : parser_(parser) {}

    // The next one; false, and *item left alone, when there is none.
    bool next(KaJsonItem* item);

    KaJsonError error() const;

private:
    const KAJsonParser& parser_;
    uint32_t index_ = 0;
    uint32_t root_end_ = 0;     // index after the current root and all below it
    uint32_t section_end_ = 0;  // the same for the current section
};

// Line and column of a byte of a text as it is on disk: from 1, the column in bytes.
struct KaTextPosition {
    uint32_t line;
    uint32_t column;
};
KaTextPosition ka_text_position(const char* text, size_t offset);

#pragma GCC visibility pop
