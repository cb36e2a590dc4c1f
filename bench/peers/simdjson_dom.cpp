#include <simdjson.h>

#include "../peer_records.h"

namespace {

class SimdjsonDomPeer {
public:
    explicit SimdjsonDomPeer(const char* path) : root_(parser_.load(path)["ebo_configs"]) {}

    bool enter(const char* section) {
        section_ = root_[section];
        return section_.error() == simdjson::SUCCESS;
    }
    bool integer(const char* key, int* out) {
        int64_t value = 0;
        if (section_[key].get(value) != simdjson::SUCCESS) return false;
        *out = static_cast<int>(value);
        return true;
    }
    bool number(const char* key, float* out) {
        double value = 0;
        if (section_[key].get(value) != simdjson::SUCCESS) return false;
        *out = static_cast<float>(value);
        return true;
    }
    bool text(const char* key, const char** out) { return section_[key].get(*out) == simdjson::SUCCESS; }

private:
    simdjson::dom::parser parser_;
    simdjson::simdjson_result<simdjson::dom::element> root_;
    simdjson::simdjson_result<simdjson::dom::element> section_;
};

}  // namespace

KAEboParam* loadBySimdjsonDom(const char* path, Rows rows) {
    SimdjsonDomPeer peer(path);
    return peer_records::fill(peer, rows);
}
