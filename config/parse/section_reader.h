// The one reader that all sections share: what sets a section apart is a row or a column of its table.
#pragma once

#include "section.h"

// A block of zero bytes; a failed allocation is an assertion. The caller owns it.
void* eboMakeBlock(size_t size, const char* assertion, const char* function, int line);

// Reads the section of the root object `root` from `parser`, an open KAJsonParser. Returns what it has filled: a new
// record, which the caller owns, or of a section without one the mask. Null when the section fails, when it leaves
// no record, and for a null argument.
void* eboReadSection(void* parser, const char* root, int* model_en, const EboSection& section);

template <typename Record>
Record* readSection(void* parser, const char* root, int* model_en, const EboSection& section) {
    return static_cast<Record*>(eboReadSection(parser, root, model_en, section));
}

// Stores the text of a key that is no status, in whole or as far as it goes.
void eboStoreText(const EboSection& section, const EboKeyRow& row, const char* text, void* record);
