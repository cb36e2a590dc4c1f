// The one reader that all sections share: what sets a section apart is a row or a column of its table.
#pragma once

#include <ka/framework.h>

#include <type_traits>

#include "section.h"

// A block of zero bytes; a failed allocation is an assertion. The caller owns it.
void* eboMakeBlock(size_t size, const char* assertion, const char* function, int line);

// Reads the section of the root object `root` from `parser`, an open KAJsonParser. Returns what it has
// filled: a new record, which the caller owns, or of a section without one the mask. Null when the section
// fails, when it leaves no record, and for a null argument.
void* eboReadSection(void* parser, const char* root, int32_t* model_en, const EboSection& section);

// The same with the mask as the section readers take it: int32_t is not int everywhere.
template <typename Mask>
void* eboReadSectionOf(void* parser, const char* root, Mask* model_en, const EboSection& section) {
    if constexpr (std::is_same_v<Mask, int32_t>) {
        return eboReadSection(parser, root, model_en, section);
    } else {
        if (model_en == KA_NULL) return KA_NULL;
        int32_t mask = *model_en;
        void* filled = eboReadSection(parser, root, &mask, section);
        *model_en = static_cast<Mask>(mask);
        return filled;
    }
}

template <typename Record>
Record* readSection(void* parser, const char* root, int* model_en, const EboSection& section) {
    return static_cast<Record*>(eboReadSectionOf(parser, root, model_en, section));
}

// 0, or -1 where a record reader returns null.
inline int readSwitch(void* parser, const char* root, int* model_en, const EboSection& section) {
    return eboReadSectionOf(parser, root, model_en, section) != KA_NULL ? 0 : -1;
}

// Stores the text of a row, a word, a list or a map in the record, in whole or as far as it goes.
void eboStoreText(const EboSection& section, const EboKeyRow& row, const char* text, void* record);
