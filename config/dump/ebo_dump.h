// Printing of filled records to the log, for diagnosis.
//
// Each line is one information line (level 5) without a newline of its own. The dumps only read; a null
// record prints nothing. A record must not be filled or destroyed while it is being dumped.
#pragma once

#include "ebo_params.h"

#pragma GCC visibility push(default)

// Echo canceller and, with EBO_AEC_DELAY, its delay estimator. `delay` must be set when EBO_AEC_DELAY is: it
// is followed without a test. A record fresh from createEboAecConfig() claims a delay record that it does not
// have.
void dumpEboAecConfig(EboAecParam* aec);

// Beamformer, then one block for each enabled module; a module whose bit is set but whose record is null is
// left out. `wakeup` must be set when EBO_BF_WAKEUP is: it is followed without a test.
void dumpEboBeamFormConfig(EboBeamFormParam* bf);

// Playback path. Any combination of bits and null pointers is safe.
void dumpEboAoConfig(EboRxParam* rx);

#pragma GCC visibility pop
