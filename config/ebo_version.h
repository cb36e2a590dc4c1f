// Which library this is. For C99 and C++17.
#pragma once

#include <stdint.h>

#define EBO_VERSION "1.0.0"  // a new major number when something public is no longer as it was

// A number for the layout of the records, another one whenever a size or an offset changes. The library does
// not compile with a wrong one, and says which is right.
#define EBO_LAYOUT 0x19BF6A0DU

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

// The same of the library that the program runs with; the text is static. What was built with other records
// must not use it: compare eboLayout() with EBO_LAYOUT at the start.
const char* eboVersion(void);
uint32_t eboLayout(void);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif
