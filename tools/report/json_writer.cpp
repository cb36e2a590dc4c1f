#include "report/json_writer.h"

// The settings of the library are this tool's own.
#define RAPIDJSON_NAMESPACE eboconf_rapidjson
#define RAPIDJSON_HAS_STDSTRING 1
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

using namespace eboconf_rapidjson;

struct JsonWriter::Writer {
    StringBuffer buffer;
    PrettyWriter<StringBuffer> json{buffer};
};

JsonWriter::JsonWriter() : writer_(std::make_unique<Writer>()) {
    writer_->json.SetIndent(' ', 2);
}
JsonWriter::~JsonWriter() = default;

JsonWriter& JsonWriter::beginObject() {
    writer_->json.StartObject();
    return *this;
}
JsonWriter& JsonWriter::endObject() {
    writer_->json.EndObject();
    return *this;
}
JsonWriter& JsonWriter::beginArray() {
    writer_->json.StartArray();
    return *this;
}
JsonWriter& JsonWriter::endArray() {
    writer_->json.EndArray();
    return *this;
}
JsonWriter& JsonWriter::key(const std::string& name) {
    writer_->json.Key(name);
    return *this;
}
JsonWriter& JsonWriter::text(const std::string& value) {
    writer_->json.String(value);
    return *this;
}
JsonWriter& JsonWriter::boolean(bool value) {
    writer_->json.Bool(value);
    return *this;
}
JsonWriter& JsonWriter::null() {
    writer_->json.Null();
    return *this;
}
JsonWriter& JsonWriter::number(const std::string& digits) {
    writer_->json.RawValue(digits.data(), digits.size(), kNumberType);
    return *this;
}

std::string JsonWriter::document() const {
    return std::string(writer_->buffer.GetString(), writer_->buffer.GetSize()) + '\n';
}
