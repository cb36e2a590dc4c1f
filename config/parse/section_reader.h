// The steps that the section readers share. A plain section is one call of readSection(); a section with a
// departure is put together from the steps.
#pragma once

#include <cstddef>

#include "section.h"

// A section while it is being read. Lives on its reader's stack; holds the framework's copy of the section's
// keys.
struct EboReading {
    EboReading(const EboSection& section, void* parser, const char* root, const char* function);

    const EboSection& section;
    const char* function;  // the reader's name
    KaMetaData keys;
};

enum class EboStatus { Missing, Disabled, Enabled };

// Looks "status" up, sets `bit` in the mask when the section is enabled, and reports a missing status, and a
// disabled section where that is reported.
EboStatus eboReadStatus(const EboReading& reading, int32_t bit, int* model_en);

// All keys behind the status, up to the first that is missing.
bool eboReadKeys(const EboReading& reading, void* record);

// A record of zero bytes; a failed allocation is an assertion. The caller owns it and releases it with
// free().
void* eboMakeRecord(size_t size, const char* assertion, const char* function, int line);

// All steps of a plain section: a new record, or null.
void* eboReadSection(const EboSection& section, void* parser, const char* root, int* model_en,
                     const char* function, int line);

template <typename Record>
Record* readSection(const EboSection& section, void* parser, const char* root, int* model_en,
                    const char* function, int line) {
    return static_cast<Record*>(eboReadSection(section, parser, root, model_en, function, line));
}

// All steps of a section without a record of its own; `keys` takes the values of its keys. 0, or -1.
int eboReadSwitch(const EboSection& section, void* parser, const char* root, int* model_en,
                  const char* function, void* keys);

// A section's constants from its rows and, where it has one, its record.
template <typename Record, size_t N>
constexpr EboSection eboSection(const char* name, const EboKeyRow (&rows)[N], int32_t bit,
                                const char* assertion, const char* notEnabled = nullptr,
                                int32_t playbackBit = 0) {
    return {name, rows, N, sizeof(Record), assertion, notEnabled, bit, playbackBit};
}
template <size_t N>
constexpr EboSection eboSwitch(const char* name, const EboKeyRow (&rows)[N], int32_t bit) {
    return {name, rows, N, 0, nullptr, nullptr, bit, 0};
}
