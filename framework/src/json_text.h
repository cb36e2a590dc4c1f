// The parts of a JSON text (RFC 8259) that are told apart byte by byte. A text ends in a NUL.
#pragma once

#include <cstddef>
#include <cstdint>

// The first byte after what begins at `at`; null when it is not right. Of a string `at` is the byte after the
// opening quote, and the result is the closing one; *escapes becomes true when there is an escape in it.
const char* skipString(const char* at, bool* escapes);
const char* skipEscape(const char* at);
const char* skipNumber(const char* at);

// Decodes the escapes of a string that is right, in place. Returns its new length.
uint32_t decode(char* text, uint32_t length);
