#include "report/json_writer.h"

#include <cstdlib>
#include <new>
#include <nlohmann/json.hpp>

// The settings of the library are this tool's own.
#define RAPIDJSON_NAMESPACE eboconf_rapidjson
#include <rapidjson/prettywriter.h>

using namespace eboconf_rapidjson;

namespace {

// The library's own looks at no result.
class Allocator {
public:
    [[maybe_unused]] static constexpr bool kNeedFree = true;
    void* Malloc(size_t size) { return Realloc(nullptr, 0, size); }
    void* Realloc(void* block, size_t, size_t size) {
        void* const moved = std::realloc(block, size);
        if (moved == nullptr) throw std::bad_alloc();
        return moved;
    }
    static void Free(void* block) { std::free(block); }
};

struct Output {
    using Ch = char;
    void Put(char c) { text += c; }
    void Flush() {}
    std::string text;
};

// In quotes.
std::string jsonText(const std::string& text) {
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace

struct JsonWriter::Writer {
    Output output;
    Allocator allocator;
    PrettyWriter<Output, UTF8<>, UTF8<>, Allocator> json{output, &allocator};

    void raw(const std::string& value, Type type) { json.RawValue(value.data(), value.size(), type); }
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
    return text(name);
}
JsonWriter& JsonWriter::text(const std::string& value) {
    writer_->raw(jsonText(value), kStringType);
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
    writer_->raw(digits, kNumberType);
    return *this;
}
JsonWriter& JsonWriter::numberOrText(const std::string& digits) {
    const bool finite = digits.find_first_not_of("0123456789+-.e") == std::string::npos;
    return finite ? number(digits) : text(digits);
}
JsonWriter& JsonWriter::json(const std::string& value) {
    writer_->raw(value, kObjectType);
    return *this;
}

std::string JsonWriter::document() const {
    return writer_->output.text + '\n';
}
