// Of several equal keys the last one counts. Sections without any can be searched from wherever the last
// search ended; this tells them apart.
#pragma once

#include "json_entry.h"

// Whether two keys of the section may be equal. Takes bounded time: a section of many keys is not looked at.
bool mayRepeatKeys(const char* text, const KaJsonEntry* begin, const KaJsonEntry* end);
