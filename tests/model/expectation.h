// What the model of the reading rules expects of a reader or a load, and of the dumps of what it returns.
// Written plainly from the rules and from the list of keys.h.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "model/document.h"
#include "model/keys.h"

namespace model {

enum class Loader { Full, Aec, BeamForm, Ao, Agc };
constexpr Loader kLoaders[] = {Loader::Full, Loader::Aec, Loader::BeamForm, Loader::Ao, Loader::Agc};
const char* nameOf(Loader loader);

struct Line {
    bool error;  // else information
    int level;
    std::string function;
    std::string format;
    std::string text;  // the format with its arguments

    bool operator==(const Line& other) const {
        return error == other.error && level == other.level && function == other.function &&
               format == other.format && text == other.text;
    }
};
using Log = std::vector<Line>;

// Records byte by byte, and the texts and the map on which they point, by name: "bf", "dtd",
// "wakeup.model_word1". A pointer in a record is all ones when it is set, all zero when it is null.
using Parts = std::map<std::string, std::string>;
Parts partsOf(Loader loader, const void* result, int channels);
Parts partsOf(const Section& section, const void* record, int channels);

struct Expectation {
    bool aborts = false;  // a channel map of more than 16 channels ends the process; nothing else counts then
    bool rejected = false;  // not a document: the framework says so, the library nothing
    bool failed = false;    // null, or -1
    int channels = 0;       // entries of the channel map
    int leaks = 0;          // blocks left over once the result is destroyed, on purpose
    Parts parts;
    Log log;
    Log dump;
    std::vector<std::string> calls;  // of the framework, but for comparisons of texts
    // By allocation: the function and the expression of the assertion when it fails.
    std::vector<std::pair<std::string, std::string>> assertions;
};

// `document`: nothing for a file that is not JSON.
void expect(Loader loader, const std::optional<Value>& document, Expectation& expectation);

// One section reader; `mask`: null, or before and after.
void expect(const Section& section, const Value& document, const std::string& root, int32_t* mask,
            Expectation& expectation);

// The lines of the dumps dumpEboAecConfig, dumpEboBeamFormConfig and dumpEboAoConfig.
void dumpAec(const Parts& parts, Log& log);
void dumpBeamForm(const Parts& parts, Log& log);
void dumpAo(const Parts& parts, Log& log);

// Stores a value in a record, or reads it.
template <class T>
void put(std::string& record, size_t offset, T value) {
    record.replace(offset, sizeof value, reinterpret_cast<const char*>(&value), sizeof value);
}
template <class T>
T get(const std::string& record, size_t offset) {
    T value;
    record.copy(reinterpret_cast<char*>(&value), sizeof value, offset);
    return value;
}
// A number, row or list of bands.
void store(const Key& key, const Value& value, std::string& record);
Value valueOf(const json& value);

}  // namespace model
