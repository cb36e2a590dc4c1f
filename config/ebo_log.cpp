#include "ebo_log.h"

#include <cstdlib>

// The format is a complete literal of the caller's, not one here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
void eboLogLine(const char* text, const char* function, int line) {
    ka_log(EBO_INFO, text, function, line);
}
#pragma GCC diagnostic pop

void eboAssertFailed(const char* expression, const char* function, int line) {
    ka_err(EBO_ERROR, EBO_RED("Assertion %s failed at %s:%d\n"), function, line, expression, function, line);
    std::abort();
}
