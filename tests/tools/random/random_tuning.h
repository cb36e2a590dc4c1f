// Record trees as no file of ours has them: every field at random, extremes included.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/tuning.h"

// A tree that some tuning file loads: all parts, every mask, words of any length and letters, maps of 0 to 16
// channels. The same seed gives the same tree.
Tuning randomTuning(uint32_t seed);

// Every byte of every record and text of the tree, without addresses and padding.
std::string bytesOf(const Tuning& tuning);
