#include <locale.h>

#include <charconv>
#include <cstdlib>
#include <fstream>
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>

#include "ka/framework.h"
#include "ledger.h"

using nlohmann::json;
using namespace ka_recording;

struct KaMetaData::Keys {
    json section = json::object();
};

struct KAJsonParser::Document {
    json root;
};

namespace {

void record(Op op, const char* name, bool found) {
    Event event{op, name ? name : "(null)"};
    event.found = found;
    ka_recording::record(std::move(event));
}

const json* find(const json& object, const char* key) {
    if (!key || !object.is_object()) return nullptr;
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

// The JSON library makes a double of every number, and refuses the file where none will do: it gets the
// longer ones as lists of this and their text.
const std::string kNumber = "#number";

const std::string* longNumber(const json& value) {
    const bool is_one = value.is_array() && value.size() == 2 && value[0] == kNumber && value[1].is_string();
    return is_one ? &value[1].get_ref<const std::string&>() : nullptr;
}

std::string withLongNumbersAsLists(const std::string& text) {
    static const std::regex number(R"(-?(0|[1-9]\d*)(\.\d+)?([eE][-+]?\d+)?)");
    std::string made;
    for (size_t at = 0; at < text.size();) {
        size_t end = at + 1;
        if (text[at] == '"') {
            while (end < text.size() && text[end] != '"') end += text[end] == '\\' ? 2 : 1;
            ++end;
        } else if (text[at] == '-' || (text[at] >= '0' && text[at] <= '9')) {
            end = text.find_first_not_of("0123456789+-.eE", at);
        }
        const std::string token = text.substr(at, end - at);
        const bool is_long = end - at > 9 || token.find_first_of("eE") != std::string::npos;
        if (is_long && std::regex_match(token, number)) {
            made += "[\"" + kNumber + "\",\"" + token + "\"]";
        } else {
            made += token;
        }
        at += token.size();
    }
    return made;
}

bool readInt32(const json& value, int* out) {
    if (const std::string* const text = longNumber(value)) {
        const char* const end = text->data() + text->size();
        const auto result = std::from_chars(text->data(), end, *out);
        return result.ec == std::errc() && result.ptr == end;
    }
    if (!value.is_number_integer()) return false;
    *out = value.get<int>();
    return true;
}

bool readFloat(const json& value, float* out) {
    if (const std::string* const text = longNumber(value)) {
        static const locale_t c = newlocale(LC_ALL_MASK, "C", nullptr);
        *out = strtof_l(text->c_str(), nullptr, c);
        return true;
    }
    if (!value.is_number()) return false;
    *out = value.get<float>();
    return true;
}

// What a lookup that fails leaves: under a recorder what a reader that goes on with it is known by.
template <typename Value>
bool give(bool found, Value value, Value spoilt, Value* out) {
    if (!found && !Recorder::current()) return false;
    *out = found ? value : spoilt;
    return found;
}

void count(int Recorder::*live, int step) {
    if (Recorder* const recorder = Recorder::current()) recorder->*live += step;
}

// What the host has been told to return for success.
int success(int Recorder::*result) {
    const Recorder* const recorder = Recorder::current();
    return recorder ? recorder->*result : 1;
}

json parse(const std::string& text) {
    // To the JSON library a zero byte is the end.
    if (text.find('\0') != std::string::npos) return json(json::value_t::discarded);
    return json::parse(withLongNumbersAsLists(text), nullptr, false);
}

json load(const char* path) {
    if (!path) return json(json::value_t::discarded);
    const Recorder* const recorder = Recorder::current();
    if (recorder) {
        const auto text = recorder->documents.find(path);
        if (text != recorder->documents.end()) return parse(text->second);
    }
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return parse(text.str());
}

}  // namespace

KaMetaData::KaMetaData() : keys_(new Keys) {
    count(&Recorder::live_metas, 1);
    record(Op::MetaMade, "", false);
}

// The texts are overwritten first: a reader that kept one of them instead of a copy is seen at once.
KaMetaData::~KaMetaData() {
    for (json& value : keys_->section)
        if (value.is_string())
            value.get_ref<std::string&>().assign(value.get_ref<std::string&>().size(), '?');
    count(&Recorder::live_metas, -1);
    record(Op::MetaGone, "", false);
}

bool KaMetaData::findInt32(const char* key, int* out) const {
    const json* const value = find(keys_->section, key);
    int number = 0;
    const bool found = value && readInt32(*value, &number);
    record(Op::FindInt32, key, found);
    return give(found, number, 0x5a5a5a5a, out);
}

bool KaMetaData::findFloat(const char* key, float* out) const {
    const json* const value = find(keys_->section, key);
    float number = 0;
    const bool found = value && readFloat(*value, &number);
    record(Op::FindFloat, key, found);
    return give(found, number, -12345.0F, out);
}

bool KaMetaData::findCString(const char* key, const char** out) const {
    const json* const value = find(keys_->section, key);
    const bool found = value && value->is_string();
    const char* const text = found ? value->get_ref<const std::string&>().c_str() : nullptr;
    record(Op::FindCString, key, found);
    return give(found, text, "17 chn;map:7", out);
}

KAJsonParser::KAJsonParser() : document_(new Document) {
    count(&Recorder::live_parsers, 1);
    record(Op::ParserMade, "", false);
}

KAJsonParser::~KAJsonParser() {
    count(&Recorder::live_parsers, -1);
    record(Op::ParserGone, "", false);
}

int KAJsonParser::parseFile(const char* path) {
    document_->root = load(path);
    const bool accepted = !document_->root.is_discarded();
    record(Op::ParseFile, path, accepted);
    // Under a recorder only the library's own messages count.
    if (!accepted && !Recorder::current())
        ka_err(0, 2, "KAJsonParser", "%s: no JSON", __func__, __LINE__, path ? path : "(null)");
    return accepted ? success(&Recorder::file_result) : 0;
}

int KAJsonParser::getOptions(const char* root, const char* section, KaMetaData* out) {
    if (!out) return 0;
    const json* const object = find(document_->root, root);
    const json* const keys = object ? find(*object, section) : nullptr;
    const bool found = keys && keys->is_object();
    out->keys_->section = found ? *keys : json::object();
    if (root && section) record(Op::GetOptions, (std::string(root) + "/" + section).c_str(), found);
    return found ? success(&Recorder::section_result) : 0;
}
