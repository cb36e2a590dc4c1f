#include <simdjson.h>

#include <string>

#include "../peer_records.h"

namespace {

namespace ondemand = simdjson::ondemand;

class SimdjsonOnDemandPeer {
public:
    explicit SimdjsonOnDemandPeer(const char* path) {
        if (simdjson::padded_string::load(path).get(json_) != simdjson::SUCCESS) return;
        if (parser_.iterate(json_).get(document_) != simdjson::SUCCESS) return;
        open_ = document_["ebo_configs"].get_object().get(root_) == simdjson::SUCCESS;
    }

    bool enter(const char* section) {
        return open_ && root_[section].get_object().get(section_) == simdjson::SUCCESS;
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
    bool text(const char* key, const char** out) {
        std::string_view value;
        if (section_[key].get(value) != simdjson::SUCCESS) return false;
        text_ = value;  // the view does not end in NUL
        *out = text_.c_str();
        return true;
    }

private:
    simdjson::padded_string json_;
    ondemand::parser parser_;
    ondemand::document document_;
    ondemand::object root_;
    ondemand::object section_;
    std::string text_;
    bool open_ = false;
};

}  // namespace

KAEboParam* loadBySimdjsonOnDemand(const char* path, Rows rows) {
    SimdjsonOnDemandPeer peer(path);
    return peer_records::fill(peer, rows);
}
