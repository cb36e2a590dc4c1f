// The one call form of every log line, and the assertion.
//
//     ka_log(EBO_INFO, "targ = %d", EBO_HERE, bf->targ);
//     eboLogLine("nlp:", EBO_HERE);  // the same without values, in less code
//     ka_err(EBO_ERROR, EBO_RED("find bf targ failed"), function, row.line);
//
// EBO_ERROR, EBO_NOTICE and EBO_INFO each stand for three arguments: channel, level and tag. EBO_HERE stands
// for two: the calling function and the line. Code that logs on behalf of its caller hands the caller's name
// down instead.
#pragma once

#include <ka/framework.h>

#include <cstdint>

#define EBO_ERROR 0x1818180AU, 2, "KAAEboConfig"
#define EBO_NOTICE 0x1818180AU, 4, "KAAEboConfig"
#define EBO_INFO 0x1818180AU, 5, "KAAEboConfig"
#define EBO_HERE __func__, __LINE__

// A field for "%d": int32_t is not int everywhere.
constexpr int eboAsInt(int32_t value) {
    return static_cast<int>(value);
}

// Terminal colours stand in the format itself.
#define EBO_RED(text) "\x1b[31m\x1b[1m" text "\x1b[0m"
#define EBO_GREEN(text) "\x1b[32m\x1b[1m" text "\x1b[0m"

// Sends `text`, which has no conversions, as an information line.
void eboLogLine(const char* text, const char* function, int line);

// Reports that `expression` does not hold and aborts the process.
[[noreturn]] void eboAssertFailed(const char* expression, const char* function, int line);
