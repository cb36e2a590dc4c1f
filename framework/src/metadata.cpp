#include <locale.h>

#include <charconv>
#include <cstdlib>
#include <cstring>

#include "json_entry.h"

const KaJsonEntry* KaMetaData::find(const char* key) const {
    if (!key) return nullptr;
    const size_t length = strlen(key);
    if (next_ != end_ && !repeats_ && next_->isCalled(key, length, text_)) return next_++;
    // Backwards, as of several equal keys the last one counts.
    for (const KaJsonEntry* entry = end_; entry != begin_;) {
        if ((--entry)->isCalled(key, length, text_)) {
            next_ = entry + 1;
            return entry;
        }
    }
    return nullptr;
}

bool KaMetaData::findInt32(const char* key, int* out) const {
    const KaJsonEntry* entry = find(key);
    if (!entry || entry->kind() != KaJsonKind::kNumber) return false;
    const char* const begin = text_ + entry->value;
    const char* const end = begin + entry->extent();
    int value;
    const std::from_chars_result result = std::from_chars(begin, end, value);
    if (result.ec != std::errc{} || result.ptr != end) return false;
    *out = value;
    return true;
}

bool KaMetaData::findFloat(const char* key, float* out) const {
    const KaJsonEntry* entry = find(key);
    if (!entry || entry->kind() != KaJsonKind::kNumber) return false;
    const char* const begin = text_ + entry->value;
    float value;
    if (std::from_chars(begin, begin + entry->extent(), value).ec != std::errc{}) {
        // Infinity or zero: from_chars does not say which. The byte behind the number ends it.
        const locale_t c_locale = newlocale(LC_ALL_MASK, "C", nullptr);
        value = strtof_l(begin, nullptr, c_locale);
        freelocale(c_locale);
    }
    *out = value;
    return true;
}

bool KaMetaData::findCString(const char* key, const char** out) const {
    const KaJsonEntry* entry = find(key);
    if (!entry || entry->kind() != KaJsonKind::kString) return false;
    *out = text_ + entry->value;
    return true;
}
