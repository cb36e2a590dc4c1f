// Numbers of more than seven digits, or with an exponent: the library's own scanner reads them in much less
// flash than the C++ library's. What comes after a number in a document ends it here too.
#include "nearest_number.h"
#include "row_scan.h"

float nearestNumber(const char* begin, const char*) {
    float value = 0.0F;
    EboScanner(begin).real(&value);
    return value;
}
