// Values of records as texts that read back as the same values.
#pragma once

#include <string>

#include "model/places.h"

// The fewest digits that read back as the same float: plain where that stays short, else with an exponent;
// "inf", "-inf", "nan" and "-nan" as in the rows of a table.
std::string floatText(float value);

// Number `i` of a key.
std::string numberText(const void* record, const Numbers& numbers, size_t i);

// The value of a key as a tuning file writes it, without quotes: numbers, rows "1.0  2.0", lists "1,2", maps
// "2 chn;map:1,0"; empty for null words and without a map. `tuning` is where `record` belongs.
std::string valueText(const Tuning& tuning, const void* record, const EboKeyRow& row);

// A null word is an empty one.
std::string wordText(const void* record, const EboKeyRow& row);
