// What the dumps print of a load, and which of the lines belong to which module: found by dumping with and
// without its bit.
#pragma once

#include "model/dump_lines.h"
#include "model/places.h"

// The lines that the dump of its container prints for this section of a loaded tuning: of a module its block,
// of "aec" and "bf" what is printed whatever the masks say. None for gain control on its own, which has no
// dump.
DumpLines linesOfSection(const SectionPlace& place, const Tuning& tuning);

// All lines of the dumps of what this load gives. Gain control has no dump, so no device logs its lines: its
// record is hung on an otherwise empty beamformer.
DumpLines linesOfLoad(const EboLoad& load, const Tuning& tuning);
