#include "ka/framework.h"

namespace {

int lower(char c) {
    const int byte = static_cast<unsigned char>(c);
    return byte >= 'A' && byte <= 'Z' ? byte + ('a' - 'A') : byte;
}

}  // namespace

int util_strcasecmp(const char* a, const char* b) {
    if (!a || !b) return (a != nullptr) - (b != nullptr);
    for (; *a == *b; ++a, ++b) {
        if (*a == '\0') return 0;
    }
    while (*a != '\0' && lower(*a) == lower(*b)) {
        ++a;
        ++b;
    }
    return lower(*a) - lower(*b);
}
