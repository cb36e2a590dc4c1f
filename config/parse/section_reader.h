// The steps that the section readers share. A plain section is one call of readSection(); a section with a
// departure is put together from the steps.
#pragma once

#include <cstddef>

#include "section.h"

// A section while it is being read, with the framework's view of its keys. Lives on its reader's stack.
struct EboReading {
    EboReading(const EboSection& section, void* parser, const char* root);

    const EboSection& section;
    KaMetaData keys;
};

enum class EboStatus { Missing, Disabled, Enabled };

// Looks "status" up, sets `bit` in the mask when the section is enabled, and reports a missing status, and a
// disabled section where that is reported.
EboStatus eboReadStatus(const EboReading& reading, int32_t bit, int* model_en);

// All keys behind the status, up to the first that is missing.
bool eboReadKeys(const EboReading& reading, void* record);

// Stores the text of a key that is no status, in whole or as far as it goes.
void eboStoreText(const EboSection& section, const EboKeyRow& row, const char* text, void* record);

// A block of zero bytes; a failed allocation is an assertion. The caller owns it.
void* eboMakeBlock(size_t size, const char* assertion, const char* function, int line);
void* eboMakeRecord(const EboSection& section);

// All steps of a plain section: a new record, or null.
void* eboReadSection(void* parser, const char* root, int* model_en, const EboSection& section);

template <typename Record>
Record* readSection(void* parser, const char* root, int* model_en, const EboSection& section) {
    return static_cast<Record*>(eboReadSection(parser, root, model_en, section));
}

// All steps of a section without a record of its own; `keys` takes the values of its keys. 0, or -1.
int eboReadSwitch(void* parser, const char* root, int* model_en, const EboSection& section, void* keys);
