#include "nearest_number.h"

#include <locale.h>

#include <charconv>
#include <cstdlib>

float nearestNumber(const char* begin, const char* end) {
    float value;
    if (std::from_chars(begin, end, value).ec != std::errc{}) {
        // Infinity or zero: from_chars does not say which. The byte after the number ends it.
        const locale_t c_locale = newlocale(LC_ALL_MASK, "C", nullptr);
        value = strtof_l(begin, nullptr, c_locale);
        freelocale(c_locale);
    }
    return value;
}
