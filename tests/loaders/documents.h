// Tuning files for the loaders, as JSON texts. Places in them are JSON pointers: "/ebo_configs/aec/delay_len".
#pragma once

#include <string>

// All three roots, every section enabled and complete, no two values of a record alike. What a load makes of
// it: records.h.
const std::string& completeDocument();

// The same text with the place filled with `value`, a JSON text, or taken out. The place taken out must exist.
std::string with(const std::string& document, const std::string& place, const std::string& value);
std::string without(const std::string& document, const std::string& place);

// Every "status" under "ebo_configs" says "disable".
std::string allDisabled(const std::string& document);
