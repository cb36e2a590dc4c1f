// Loaded records written back as a tuning file.
#pragma once

#include <string>
#include <vector>

#include "model/tuning.h"

struct Export {
    std::string text;
    std::vector<std::string> losses;  // what no key can express, one sentence each; none for loaded records
};

// Strict JSON, every part of `tuning`, sections and keys in reading order. Loading it again gives the same
// records bit by bit, but for the losses. Of a section that is not read while it is disabled only the status
// is written. An infinite number is written as 1e999, which reads back as infinity; infinities and NaNs in
// rows as "inf" and "nan". A section without a record is left out, unless a load would fail without it.
Export exportText(const Tuning& tuning);
