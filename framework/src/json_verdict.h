// What the JSON library says of a text that the quick scanner does not take.
#pragma once

#include "json_load.h"

// Whether the text is JSON (RFC 8259) without half surrogate pairs. If not, load->reason says why not, and
// load->offset where, if it has a place.
bool isJson(const FileBuffer& file, JsonLoad* load);
