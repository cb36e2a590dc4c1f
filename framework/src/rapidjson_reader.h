// The JSON library's reader, set up for this framework. The vector instructions it could use stay off: for
// texts as short as a tuning file's keys and blanks they cost more than they save.
#pragma once

// A namespace of our own: a host may use the same library with other settings.
#define RAPIDJSON_NAMESPACE ka_rapidjson

// The reader works on our stack allocator and never makes one itself.
#define RAPIDJSON_NEW(x) nullptr
#define RAPIDJSON_DELETE(x) (void)(x)

// JSON sets no limit to a number's size, so "too big for a double" is no error here: numbers stay text until
// they are looked up. Every other error stops the reader.
#define RAPIDJSON_PARSE_ERROR_NORETURN(code, offset) SetParseError(code, offset)
#define RAPIDJSON_PARSE_ERROR(code, offset)                                     \
    do {                                                                        \
        if constexpr (code != ::RAPIDJSON_NAMESPACE::kParseErrorNumberTooBig) { \
            SetParseError(code, offset);                                        \
            return;                                                             \
        }                                                                       \
    } while (false)

#include <rapidjson/reader.h>
