// Which library this is. For C99 and C++17.
#pragma once

#include "ebo_params.h"

#define EBO_VERSION "1.0.0"  // a new major number when something public is no longer as it was

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

// The same of the library that the program runs with; the text is static. What was built with other records
// must not use it: compare eboLayout() with EBO_LAYOUT of <ebo_params.h> at the start.
const char* eboVersion(void);
uint32_t eboLayout(void);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif
