// The loads as data: which loader reads which sections, and how strictly. The loaders run on this table, and
// everything else that wants to know them enumerates it.
#pragma once

#include "section.h"

// Which of a load's sections must not fail.
enum class EboStrictness : uint32_t {
    All,    // all but the optional ones
    First,  // the first; the record of any other that fails stays null
    None,   // none; the same
};

struct EboLoad {
    const char* name;                   // "full", "aec", "beamform", "ao", "agc"
    const char* root;                   // root object that holds the sections
    const EboSection* const* sections;  // in reading order
    uint32_t sectionCount : 8;
    EboStrictness strictness : 2;
    uint32_t playback : 1;  // the records go into the playback container
    uint32_t maskless : 1;  // the loader keeps neither mask nor container: bits are lost
};

// In this order; the first is that of the whole capture path.
enum EboLoadIndex { kEboFullLoad, kEboAecLoad, kEboBeamFormLoad, kEboAoLoad, kEboAgcLoad, kEboLoadCount };
extern const EboLoad kEboLoads[kEboLoadCount];

// Whether a load fails when the section does.
bool eboMustLoad(const EboLoad& load, const EboSection& section);

// Reads all sections of a load from `parser`, an open KAJsonParser, into their containers: the root `ebo`,
// and what hangs on it. What holds records and is not read itself must hang on it before: the playback
// container, and for gain control a beamformer's. False as soon as a section fails that must not; what was
// read until then stays in the tree.
bool eboReadSections(const EboLoad& load, void* parser, KAEboParam* ebo);
