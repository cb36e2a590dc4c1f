// Trees of parameters that are safe to hand to the engine and to the dumps.
#pragma once

#include <ebo_config.h>

// The whole file or null. The caller owns the tree: destroyEboConfig().
KAEboParam* loadTuning(const char* path);

// What to run with as long as there has been no good file; null when out of memory.
KAEboParam* defaultTuning();

// To the log.
void dumpTuning(KAEboParam& tuning);
