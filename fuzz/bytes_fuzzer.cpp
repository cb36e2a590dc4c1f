// Any bytes as a file, through all loaders, dumps and destroy functions.
#include <cstdint>

#include "check.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    checkSurvives({reinterpret_cast<const char*>(data), size});
    return 0;
}
