// Turns JSON text into the table of its roots, sections and keys.
#pragma once

#include "file_buffer.h"
#include "json_entry.h"

constexpr char kOutOfMemory[] = "out of memory";

// Fills `entries`, the caller's to free also after a failure, and decodes strings in place; what the table
// holds keeps its offset. False when the text is not JSON (RFC 8259, without half surrogate pairs), as the
// error says; then it is as it was.
bool loadJson(const FileBuffer& file, KaJsonDocument* document);

// What the JSON library says of a text that our own scanner, which may only accept, does not take: why it is
// wrong, and where.
void findFault(const FileBuffer& file, KaJsonError* error);
