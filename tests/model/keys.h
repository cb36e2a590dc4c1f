// The sections, their keys and the lines of their dumps as the tests know them: the one list of theirs, never
// the library's tables. What is new is added here.
#pragma once

#include <cstdint>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace model {

using nlohmann::json;

// What the text or number of a key becomes: Flag 0 or 1, Int16 the low 16 bits, Word a copy, rows numbers.
enum class Kind { Status, Int32, Int16, Flag, Float, FloatRow, IntRow, Bands, Map, Word };

enum class Use { Required, Optional, NoKey };

// A field of a record, and the key that fills it.
struct Key {
    std::string name;
    Kind kind;
    Use use;
    size_t offset;    // in the record; that of the list in the first band
    size_t count;     // numbers in the row
    json sample;      // unlike any other of the section; NoKey: what a reader stores, null for zero
    json by_default;  // in a record that is made without a file; null: not written
    bool isInteger() const { return kind == Kind::Int32 || kind == Kind::Int16 || kind == Kind::Flag; }
    bool isText() const { return !isInteger() && kind != Kind::Float; }
};

struct Outcome {
    bool failed;
    std::shared_ptr<void> record;  // null for a switch
};

// How a section is read, and where its record hangs.
struct Reader {
    const char* function;
    const char* destroyer;  // of the record
    Outcome (*read)(void* parser, const char* root, int* model_en);
    void (*destroy)(void** record);
    size_t size;  // of the record; 0: a switch
    size_t slot;  // offset in the container's record; 0: none
};

struct Section {
    std::string name;
    Reader reader;
    int32_t bit;
    int32_t playback_bit;   // under the root of the playback path; 0: the same
    std::string assertion;  // fails when the record cannot be allocated
    std::vector<Key> keys;  // in the order of their lookups; fields without a key come first

    const Key& key(const std::string& key_name) const;
    // As its messages call it.
    std::string reported() const { return name == "fast_aec" || name == "wind" ? "bf" : name; }
    bool hasRecord() const { return reader.size > 0; }
};

// In the order in which a whole file is read.
const std::vector<Section>& allSections();
const Section& sectionOf(const std::string& name);

// The section with all its samples; the numbers of another `file` differ.
json sampleOf(const Section& section, int file = 0);
// A document with all three roots, every section enabled and complete.
json sampleDocument();

// What a module prints when its bit is set and, but for the wake-up, its record is there. Where a format does
// not name its field, the names of all fields follow after a bar.
struct Block {
    int32_t bit;
    const char* section;  // "": without a record
    std::vector<const char*> lines;
};
const std::vector<Block>& aecBlocks();
const std::vector<Block>& beamFormBlocks();
const std::vector<Block>& aoBlocks();

// The order in which a load that fails releases its records, and in which a beamformer's modules are
// destroyed.
const std::vector<std::string>& cleanUpOrder();
const std::vector<std::string>& destroyOrder();

// For readable test names.
inline void PrintTo(const Section& section, std::ostream* out) {
    *out << section.name;
}

}  // namespace model
