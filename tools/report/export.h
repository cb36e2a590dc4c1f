// Tuning files written anew, and as constants of a program.
#pragma once

#include <string>
#include <vector>

#include "model/tuning.h"

struct Export {
    std::string text;
    std::vector<std::string> losses;  // what no key can express, one sentence each; none for loaded records
};

// Records as a tuning file: strict JSON, every part of `tuning`, sections and keys in reading order. Loading
// it gives the same records bit by bit, but for the losses. Of a section that is not read while it is
// disabled only the status is written. An infinite number is written as 1e999, which reads back as infinity;
// infinities and NaNs in rows as "inf" and "nan". A section without a record is left out, unless a load would
// fail without it.
Export exportText(const Tuning& tuning);

struct FileExport {
    std::string text;
    std::string refusal;  // why there is no text, with file, line and column; empty when there is one
};

// The file of `load`, which holds its text, in canonical layout: roots, sections and keys in reading order,
// every value as the file states it, keys of which it may lack some with the values that they have then. What
// no device reads is kept: notes (keys that begin with "_" or "//") before what they stand before, all else
// at the end of its object. Of a single `part` what other loads read is left out. Refuses a file that states
// something twice. What is written loads to the same records and masks.
FileExport exportFile(const Load& load, Part part, const std::string& file);

// C sources, each the whole text of a file.
struct BuiltIn {
    std::string declaration;  // a header
    std::string definition;   // for C99 and C++17, on processors of any kind
};

// What `load` gives of `tuning`, which has it, as a constant `name` of the record type that the loader
// returns. Field by field, pointed-at data included, it is what the loader gives.
BuiltIn exportBuiltIn(const Tuning& tuning, const EboLoad& load, const std::string& name);
