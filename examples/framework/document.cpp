#include <json-c/json.h>
#include <locale.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <sstream>
#include <string>

#include "ka/framework.h"

namespace {

json_object* find(json_object* object, const char* key) {
    json_object* value = nullptr;
    if (key != nullptr && json_object_is_type(object, json_type_object))
        json_object_object_get_ex(object, key, &value);
    return value;
}

// Names are C strings to json-c, so that one with \u0000 inside would stand for the part before it.
bool hasNameWithNul(const std::string& text) {
    size_t at = 0;
    while ((at = text.find('"', at)) != std::string::npos) {
        bool nul = false;
        for (++at; at < text.size() && text[at] != '"'; ++at) {
            if (text[at] != '\\') continue;
            nul |= text.compare(at, 6, "\\u0000") == 0;
            ++at;
        }
        at = text.find_first_not_of(" \t\r\n", at + 1);
        if (nul && at != std::string::npos && text[at] == ':') return true;
    }
    return false;
}

// json-c asks only whether a character has as many bytes as its first one says (RFC 3629 has more to say).
bool isUtf8(const std::string& text) {
    const auto byte = [&text](size_t at) { return static_cast<unsigned char>(text[at]); };
    for (size_t at = 0; at + 1 < text.size(); ++at) {
        const unsigned pair = static_cast<unsigned>(byte(at)) << 8 | byte(at + 1);
        const bool too_long =
            (pair >= 0xC080 && pair <= 0xC1BF) || pair >> 5 == 0xE080 >> 5 || pair >> 4 == 0xF080 >> 4;
        const bool half_of_a_pair = pair >> 5 == 0xEDA0 >> 5;
        if (too_long || half_of_a_pair || pair >= 0xF490) return false;
    }
    return true;
}

void report(const char* path, const char* reason) {
    ka_err(0, 2, "KAJsonParser", "%s: %s", "parseFile", __LINE__, path, reason);
}

}  // namespace

KaMetaData::~KaMetaData() {
    json_object_put(section_);
}

bool KaMetaData::findInt32(const char* key, int* out) const {
    json_object* const value = find(section_, key);
    if (!json_object_is_type(value, json_type_int)) return false;
    const int64_t number = json_object_get_int64(value);
    if (number < std::numeric_limits<int32_t>::min() || number > std::numeric_limits<int32_t>::max())
        return false;
    *out = static_cast<int>(number);
    return true;
}

// From the text of the number: by way of a double it would be rounded twice.
bool KaMetaData::findFloat(const char* key, float* out) const {
    json_object* const value = find(section_, key);
    if (!json_object_is_type(value, json_type_int) && !json_object_is_type(value, json_type_double))
        return false;
    static const locale_t c = newlocale(LC_ALL_MASK, "C", nullptr);
    *out = strtof_l(json_object_get_string(value), nullptr, c);
    return true;
}

bool KaMetaData::findCString(const char* key, const char** out) const {
    json_object* const value = find(section_, key);
    if (!json_object_is_type(value, json_type_string)) return false;
    *out = json_object_get_string(value);
    return true;
}

KAJsonParser::~KAJsonParser() {
    json_object_put(document_);
}

int KAJsonParser::parseFile(const char* path) {
    json_object_put(document_);
    document_ = nullptr;
    if (path == nullptr) {
        report("(null)", "no file name");
        return 0;
    }
    // A pipe would be waited for.
    std::error_code unknown;
    if (!std::filesystem::is_regular_file(path, unknown)) {
        report(path, unknown ? "cannot be read" : "is not a regular file");
        return 0;
    }

    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    const std::string text = content.str();
    if (!file.is_open() || content.bad() || text.size() > std::numeric_limits<int>::max() / 2) {
        report(path, "cannot be read");
        return 0;
    }
    const std::unique_ptr<json_tokener, void (*)(json_tokener*)> tokener(json_tokener_new(),
                                                                         json_tokener_free);
    if (tokener == nullptr) {
        report(path, "out of memory");
        return 0;
    }
    json_tokener_set_flags(tokener.get(), JSON_TOKENER_STRICT | JSON_TOKENER_VALIDATE_UTF8);
    // With the null after the text: what ends too early is an error, not to be continued.
    document_ = json_tokener_parse_ex(tokener.get(), text.c_str(), static_cast<int>(text.size()) + 1);
    const json_tokener_error error = json_tokener_get_error(tokener.get());
    const char* const reason = error != json_tokener_success          ? json_tokener_error_desc(error)
                               : hasNameWithNul(text)                 ? "has a name with \\u0000 inside"
                               : !isUtf8(text)                        ? "is not UTF-8"
                               : text.find('\0') != std::string::npos ? "has a zero byte"
                                                                      : nullptr;
    if (reason == nullptr) return 1;
    report(path, reason);
    json_object_put(document_);
    document_ = nullptr;
    return 0;
}

int KAJsonParser::getOptions(const char* root, const char* section, KaMetaData* out) {
    if (out == nullptr) return 0;
    json_object* const keys = find(find(document_, root), section);
    const bool found = json_object_is_type(keys, json_type_object);
    json_object_put(out->section_);
    out->section_ = found ? json_object_get(keys) : nullptr;
    return found ? 1 : 0;
}
