// Texts that hold several numbers: table rows, lists, the channel map.
#pragma once

#include <parse/section.h>

#include <string>
#include <vector>

#include "check/codes.h"

struct RowFinding {
    const CheckCode* code;
    std::string text;
    std::string device;
    std::string help;
};

// What is wrong with the text of a key of the section, of the kinds FloatRow, IntRow, BandList and ChannelMap. Stores
// the text in `record` as a device does, but for a map, which is stored in none.
std::vector<RowFinding> checkRow(const EboSection& section, const EboKeyRow& row, const char* text,
                                 void* record);
