// The reference of all sections and keys, in several forms.
#pragma once

#include <string>

#include "model/facts.h"

// For the terminal: one section with a line or more per key, `width` columns wide; and all there is about one key.
std::string sectionReference(const SectionPlace& place, size_t width);
std::string keyReference(const KeyFacts& facts, size_t width);

// docs/keys.md.
std::string markdownReference();

// A dictionary for fuzzers: every root, section, key and status, and a text of each form of row, one quoted entry per
// line.
std::string fuzzDictionary();

// Every section and every key, one per line.
std::string nameList();
