// The lines that the beamformer's and the playback path's dumps share. `function` is the dump's own name, so
// the line number after it in the log may be one of shared_blocks.cpp: grep the text.
#pragma once

#include "ebo_params.h"

void eboDumpAnr(const EboAnrParam& anr, const char* function);
void eboDumpHowl(const EboHowlParam& howl, const char* function);
void eboDumpEnd(const char* function);
