// Writes JSON, two blanks per level, with numbers as they are to be read: what a file states, or the fewest
// digits of a float. Always UTF-8: what is none in a text becomes U+FFFD.
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
    // The same, but what JSON has no number for ("inf", "-nan") as a text.
    JsonWriter& numberOrText(const std::string& digits);
    // A value that is JSON already.
    JsonWriter& json(const std::string& value);

    // The whole document with a line break at its end.
    std::string document() const;

private:
    struct Writer;
    std::unique_ptr<Writer> writer_;
};
