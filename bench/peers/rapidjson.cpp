#include <rapidjson/document.h>

#include "../peer_records.h"
#include "../whole_file.h"

namespace {

class RapidJsonPeer {
public:
    explicit RapidJsonPeer(const char* path) : text_(wholeFile(path)) { document_.ParseInsitu(text_.data()); }

    bool enter(const char* section) {
        section_ = nullptr;
        if (!document_.IsObject()) return false;
        const auto root = document_.FindMember("ebo_configs");
        if (root == document_.MemberEnd() || !root->value.IsObject()) return false;
        const auto found = root->value.FindMember(section);
        if (found == root->value.MemberEnd() || !found->value.IsObject()) return false;
        section_ = &found->value;
        return true;
    }
    bool integer(const char* key, int* out) {
        const rapidjson::Value* value = find(key);
        if (value == nullptr || !value->IsInt()) return false;
        *out = value->GetInt();
        return true;
    }
    bool number(const char* key, float* out) {
        const rapidjson::Value* value = find(key);
        if (value == nullptr || !value->IsNumber()) return false;
        *out = value->GetFloat();
        return true;
    }
    bool text(const char* key, const char** out) {
        const rapidjson::Value* value = find(key);
        if (value == nullptr || !value->IsString()) return false;
        *out = value->GetString();
        return true;
    }

private:
    const rapidjson::Value* find(const char* key) const {
        if (section_ == nullptr) return nullptr;
        const auto found = section_->FindMember(key);
        return found == section_->MemberEnd() ? nullptr : &found->value;
    }

    std::string text_;
    rapidjson::Document document_;
    const rapidjson::Value* section_ = nullptr;
};

}  // namespace

KAEboParam* loadByRapidJson(const char* path, Rows rows) {
    RapidJsonPeer peer(path);
    return peer_records::fill(peer, rows);
}
