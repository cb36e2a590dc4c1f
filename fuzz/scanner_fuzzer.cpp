// Any bytes as a text: the scanner against the JSON library, in what they accept and in the table that
// they make.
#include <cstdint>

#include "check.h"
#include "framework/scan_check.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    expectEmpty(scanDifference(text), text);
    return 0;
}
