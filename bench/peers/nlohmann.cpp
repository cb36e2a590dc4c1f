#include <fstream>

#include <nlohmann/json.hpp>

#include "../peer_records.h"

namespace {

using nlohmann::json;

class NlohmannPeer {
public:
    explicit NlohmannPeer(const char* path) {
        std::ifstream file(path);
        document_ = json::parse(file, nullptr, false);
    }

    bool enter(const char* section) {
        section_ = nullptr;
        const auto root = document_.find("ebo_configs");
        if (root == document_.end()) return false;
        const auto found = root->find(section);
        if (found == root->end()) return false;
        section_ = &*found;
        return true;
    }
    bool integer(const char* key, int* out) {
        const json* value = find(key);
        if (value == nullptr || !value->is_number_integer()) return false;
        *out = value->get<int>();
        return true;
    }
    bool number(const char* key, float* out) {
        const json* value = find(key);
        if (value == nullptr || !value->is_number()) return false;
        *out = value->get<float>();
        return true;
    }
    bool text(const char* key, const char** out) {
        const json* value = find(key);
        if (value == nullptr || !value->is_string()) return false;
        *out = value->get_ref<const std::string&>().c_str();
        return true;
    }

private:
    const json* find(const char* key) const {
        if (section_ == nullptr) return nullptr;
        const auto found = section_->find(key);
        return found == section_->end() ? nullptr : &*found;
    }

    json document_;
    const json* section_ = nullptr;
};

}  // namespace

KAEboParam* loadByNlohmann(const char* path, Rows rows) {
    NlohmannPeer peer(path);
    return peer_records::fill(peer, rows);
}
