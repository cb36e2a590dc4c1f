#include "ebo_log.h"

#include <cstdlib>

void eboAssertFailed(const char* expression, const char* function, int line) {
    ka_err(EBO_ERROR, EBO_RED("Assertion %s failed at %s:%d\n"), function, line, expression, function, line);
    std::abort();
}
