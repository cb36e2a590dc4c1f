// The sections and their keys as these tests know them: a list of their own, never the library's tables.
#pragma once

#include <cstdint>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <type_traits>
#include <vector>

#include "recording_framework/ka/recording.h"

using nlohmann::json;

// The lookup that a key is read with.
enum class Call { Int32, Float, CString };

// What becomes of the value: kept as it is, the low 16 bits, 0 or 1, the numbers of a text, a copy of a text.
enum class Kind { None, Int32, Int16, Flag, Float, Row, Text };

// Where a key's value is found in the record.
struct Field {
    json (*read)(const void* record);
    Kind kind;
};

constexpr const char* kOptional = nullptr;

struct Key {
    const char* section;
    const char* name;
    Call call;
    const char* missing;  // the bare message, or kOptional
    json sample;          // differs from the other samples of the section
    Field field;
};

// All keys, section by section, each section in the order of its lookups.
const std::vector<Key>& allKeys();
std::vector<Key> keysOf(const std::string& section);

// What the record holds after `value` was read.
json stored(const Key& key, const json& value);

struct Outcome {
    bool failed;
    std::shared_ptr<void> record;  // null for a switch
};

struct Reader {
    Outcome (*read)(void* parser, const char* root, int* model_en);
    size_t size;  // of the record; 0 for a switch
};

struct Section {
    const char* name;
    const char* function;
    int bit;                   // set when enabled; 0: none
    const char* assertion;     // when the record cannot be allocated; null for a switch
    ka_recording::Op release;  // how the record goes after a missing key
    const char* disabled;      // what is said when the status is not "enable"; null: nothing
    Reader reader;
};

const std::vector<Section>& allSections();
const Section& sectionOf(const std::string& name);

// For readable test names.
inline void PrintTo(const Key& key, std::ostream* out) {
    *out << key.section << "." << key.name;
}
inline void PrintTo(const Section& section, std::ostream* out) {
    *out << section.name;
}
