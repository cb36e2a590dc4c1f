#include <cjson/cJSON.h>

#include "../peer_records.h"
#include "../whole_file.h"

namespace {

class CjsonPeer {
public:
    explicit CjsonPeer(const char* path)
        : document_(cJSON_Parse(wholeFile(path).c_str())),
          root_(cJSON_GetObjectItemCaseSensitive(document_, "ebo_configs")) {}
    ~CjsonPeer() { cJSON_Delete(document_); }
    CjsonPeer(const CjsonPeer&) = delete;
    CjsonPeer& operator=(const CjsonPeer&) = delete;

    bool enter(const char* section) {
        section_ = cJSON_GetObjectItemCaseSensitive(root_, section);
        return section_ != nullptr;
    }
    bool integer(const char* key, int* out) {
        const cJSON* value = cJSON_GetObjectItemCaseSensitive(section_, key);
        if (!cJSON_IsNumber(value)) return false;
        *out = value->valueint;
        return true;
    }
    bool number(const char* key, float* out) {
        const cJSON* value = cJSON_GetObjectItemCaseSensitive(section_, key);
        if (!cJSON_IsNumber(value)) return false;
        *out = static_cast<float>(value->valuedouble);
        return true;
    }
    bool text(const char* key, const char** out) {
        *out = cJSON_GetStringValue(cJSON_GetObjectItemCaseSensitive(section_, key));
        return *out != nullptr;
    }

private:
    cJSON* document_;
    cJSON* root_;
    cJSON* section_ = nullptr;
};

}  // namespace

KAEboParam* loadByCjson(const char* path, Rows rows) {
    CjsonPeer peer(path);
    return peer_records::fill(peer, rows);
}
