// The reference of all sections and keys, in several forms.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/facts.h"

// A section, or a key of it.
struct KeyHit {
    const SectionPlace* place;
    std::optional<KeyFacts> key;  // none: the section itself

    std::string name() const { return key ? key->name : nameOf(*place); }
    std::string meaning() const;
};

// Sections, each before its keys, and keys; in reading order.
struct KeyHits {
    std::vector<KeyHit> list;
    bool inFull;  // they were asked for by name, or there is but one
};

// The section of that name with its keys, or every key of that name; the same in other case when there is
// none; and where nothing has that name, whatever holds it in its name or meaning, in any case. An empty
// name: everything.
KeyHits findKeys(const std::string& name);

// For the terminal, `width` columns wide: all there is about each hit, or a line for each.
std::string keysText(const KeyHits& hits, size_t width);

std::string keysJson(const KeyHits& hits);

// One name per line.
std::string keysNames(const KeyHits& hits);

// docs/keys.md.
std::string keysMarkdown();

// A dictionary for fuzzers: every root, section, key and status, and a text of each form of row, one quoted
// entry per line.
std::string keysDictionary();
