#include <json-c/json.h>

#include "../peer_records.h"

namespace {

class JsonCPeer {
public:
    explicit JsonCPeer(const char* path) : document_(json_object_from_file(path)) {
        json_object_object_get_ex(document_, "ebo_configs", &root_);
    }
    ~JsonCPeer() { json_object_put(document_); }
    JsonCPeer(const JsonCPeer&) = delete;
    JsonCPeer& operator=(const JsonCPeer&) = delete;

    bool enter(const char* section) {
        section_ = nullptr;
        return json_object_object_get_ex(root_, section, &section_) != 0;
    }
    bool integer(const char* key, int* out) {
        json_object* value = find(key);
        if (json_object_get_type(value) != json_type_int) return false;
        *out = json_object_get_int(value);
        return true;
    }
    bool number(const char* key, float* out) {
        json_object* value = find(key);
        const json_type type = json_object_get_type(value);
        if (type != json_type_double && type != json_type_int) return false;
        *out = static_cast<float>(json_object_get_double(value));
        return true;
    }
    bool text(const char* key, const char** out) {
        json_object* value = find(key);
        if (json_object_get_type(value) != json_type_string) return false;
        *out = json_object_get_string(value);
        return true;
    }

private:
    json_object* find(const char* key) const {
        json_object* value = nullptr;
        json_object_object_get_ex(section_, key, &value);
        return value;
    }

    json_object* document_;
    json_object* root_ = nullptr;
    json_object* section_ = nullptr;
};

}  // namespace

KAEboParam* loadByJsonC(const char* path, Rows rows) {
    JsonCPeer peer(path);
    return peer_records::fill(peer, rows);
}
