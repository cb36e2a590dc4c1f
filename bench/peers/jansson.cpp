#include <jansson.h>

#include "../peer_records.h"

namespace {

class JanssonPeer {
public:
    explicit JanssonPeer(const char* path)
        : document_(json_load_file(path, 0, nullptr)), root_(json_object_get(document_, "ebo_configs")) {}
    ~JanssonPeer() { json_decref(document_); }
    JanssonPeer(const JanssonPeer&) = delete;
    JanssonPeer& operator=(const JanssonPeer&) = delete;

    bool enter(const char* section) {
        section_ = json_object_get(root_, section);
        return section_ != nullptr;
    }
    bool integer(const char* key, int* out) {
        const json_t* value = json_object_get(section_, key);
        if (!json_is_integer(value)) return false;
        *out = static_cast<int>(json_integer_value(value));
        return true;
    }
    bool number(const char* key, float* out) {
        const json_t* value = json_object_get(section_, key);
        if (!json_is_number(value)) return false;
        *out = static_cast<float>(json_number_value(value));
        return true;
    }
    bool text(const char* key, const char** out) {
        *out = json_string_value(json_object_get(section_, key));
        return *out != nullptr;
    }

private:
    json_t* document_;
    json_t* root_;
    json_t* section_ = nullptr;
};

}  // namespace

KAEboParam* loadByJansson(const char* path, Rows rows) {
    JanssonPeer peer(path);
    return peer_records::fill(peer, rows);
}
