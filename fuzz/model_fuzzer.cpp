// Any bytes as a file; all that the library makes of it must be what the model expects.
#include <cstdint>

#include "check.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    checkAgainstModel({reinterpret_cast<const char*>(data), size});
    return 0;
}
