// The JSON Schema of a tuning file, for editors and validators.
#pragma once

#include <string>

// Draft 7: of all drafts the one that editors support in full, and nothing here needs a later one. Refuses
// what makes a load fail and, beyond that, what loads but is hardly meant: unknown keys, statuses that are
// neither word, numbers that do not fit, rows with too few or too many numbers. It cannot tell 1.0 from 1,
// which a device refuses for an integer.
std::string schemaText();
