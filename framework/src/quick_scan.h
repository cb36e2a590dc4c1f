// The quick way from a JSON text to its table. It may only accept: a text that it does not take is right or
// wrong as the JSON library says.
#pragma once

#include "json_load.h"

// Fills the table, and decodes the strings of the text in place once all of it is accepted. False, with the
// text as it was, when it is not taken, or when there is no memory, which load->reason then says. `known` to
// be JSON: the brackets inside a value need only be counted. Otherwise what is left of the table's memory
// must hold a bit for each open one.
bool quickScan(FileBuffer* file, bool known, JsonLoad* load);
