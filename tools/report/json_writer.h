// Writes JSON, two blanks per level, with numbers as they are to be read: what a file states, or the fewest digits of a
// float.
#pragma once

#include <memory>
#include <string>

class JsonWriter {
public:
    JsonWriter();
    ~JsonWriter();

    JsonWriter& beginObject();
    JsonWriter& endObject();
    JsonWriter& beginArray();
    JsonWriter& endArray();
    JsonWriter& key(const std::string& name);
    JsonWriter& text(const std::string& value);
    JsonWriter& boolean(bool value);
    JsonWriter& null();
    // A number as it is to be written.
    JsonWriter& number(const std::string& digits);

    // The whole document with a line break at its end.
    std::string document() const;

private:
    struct Writer;
    std::unique_ptr<Writer> writer_;
};
