// Writes JSON, two blanks per level, through the JSON library.
#pragma once

#include <string>

// The settings of the library are this tool's own.
#define RAPIDJSON_NAMESPACE eboconf_rapidjson
#define RAPIDJSON_HAS_STDSTRING 1
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

// `text` as a JSON string, quotes included.
inline std::string quoted(const std::string& text) {
    eboconf_rapidjson::StringBuffer buffer;
    eboconf_rapidjson::Writer<eboconf_rapidjson::StringBuffer>(buffer).String(text);
    return std::string(buffer.GetString(), buffer.GetSize());
}

class JsonWriter {
public:
    JsonWriter() : writer_(buffer_) { writer_.SetIndent(' ', 2); }

    JsonWriter& beginObject() { return writer_.StartObject(), *this; }
    JsonWriter& endObject() { return writer_.EndObject(), *this; }
    JsonWriter& beginArray() { return writer_.StartArray(), *this; }
    JsonWriter& endArray() { return writer_.EndArray(), *this; }
    JsonWriter& key(const std::string& name) { return writer_.Key(name), *this; }
    JsonWriter& text(const std::string& value) { return writer_.String(value), *this; }
    JsonWriter& boolean(bool value) { return writer_.Bool(value), *this; }
    JsonWriter& null() { return writer_.Null(), *this; }
    // A number as it is to be written.
    JsonWriter& number(const std::string& digits) {
        return writer_.RawValue(digits.data(), digits.size(), eboconf_rapidjson::kNumberType), *this;
    }

    // The whole document with a line break at its end.
    std::string document() const { return std::string(buffer_.GetString(), buffer_.GetSize()) + '\n'; }

private:
    eboconf_rapidjson::StringBuffer buffer_;
    eboconf_rapidjson::PrettyWriter<eboconf_rapidjson::StringBuffer> writer_;
};
