// A tuning file as the model reads it: with another JSON library than the framework's, and numbers kept as
// text.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace model {

struct Value {
    enum class Kind { Integer, Real, Text, Object, Other };

    Kind kind = Kind::Other;
    std::string text;     // of a number: as written, as far as its value goes; of a text: decoded
    int64_t integer = 0;  // of an integer that fits
    std::map<std::string, Value> members;
};

// The document down to the keys of its sections; what lies deeper is left out. Of members of one name the
// last one counts. Nothing when the bytes are not one JSON value in UTF-8.
std::optional<Value> readDocument(const std::string& bytes);

}  // namespace model
