#include <fstream>
#include <iterator>
#include <limits>
#include <nlohmann/json.hpp>

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

void record(Op op, const std::string& name, bool found) {
    Event event{op, name};
    event.found = found;
    ka_recording::record(std::move(event));
}

const json* find(const json& object, const char* key) {
    if (!object.is_object()) return nullptr;
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

bool fitsInt32(const json& value) {
    if (value.is_number_unsigned()) return value.get<uint64_t>() <= std::numeric_limits<int32_t>::max();
    if (!value.is_number_integer()) return false;
    const auto number = value.get<int64_t>();
    return number >= std::numeric_limits<int32_t>::min() && number <= std::numeric_limits<int32_t>::max();
}

void count(int Recorder::*live, int step) {
    if (Recorder* const recorder = Recorder::current()) recorder->*live += step;
}

// What the host has been told to return for success.
int success(int Recorder::*result) {
    const Recorder* const recorder = Recorder::current();
    return recorder ? recorder->*result : 1;
}

json parse(const char* path) {
    const Recorder* const recorder = Recorder::current();
    if (recorder) {
        const auto text = recorder->documents.find(path);
        if (text != recorder->documents.end()) return json::parse(text->second, nullptr, false);
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) return json(json::value_t::discarded);
    return json::parse(std::istreambuf_iterator<char>(file), {}, nullptr, false);
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
    const bool found = value && fitsInt32(*value);
    *out = found ? value->get<int>() : 0x5a5a5a5a;
    record(Op::FindInt32, key, found);
    return found;
}

bool KaMetaData::findFloat(const char* key, float* out) const {
    const json* const value = find(keys_->section, key);
    const bool found = value && value->is_number();
    *out = found ? value->get<float>() : -12345.0F;
    record(Op::FindFloat, key, found);
    return found;
}

bool KaMetaData::findCString(const char* key, const char** out) const {
    const json* const value = find(keys_->section, key);
    const bool found = value && value->is_string();
    *out = found ? value->get_ref<const std::string&>().c_str() : "17 chn;map:7";
    record(Op::FindCString, key, found);
    return found;
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
    document_->root = parse(path);
    const bool accepted = !document_->root.is_discarded();
    record(Op::ParseFile, path, accepted);
    return accepted ? success(&Recorder::file_result) : 0;
}

int KAJsonParser::getOptions(const char* root, const char* section, KaMetaData* out) {
    if (!out) return 0;
    const json* const object = find(document_->root, root);
    const json* const keys = object ? find(*object, section) : nullptr;
    const bool found = keys && keys->is_object();
    out->keys_->section = found ? *keys : json::object();
    record(Op::GetOptions, std::string(root) + "/" + section, found);
    return found ? success(&Recorder::section_result) : 0;
}
