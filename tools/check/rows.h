// Texts that hold several numbers: table rows, lists, the channel map.
#pragma once

#include <parse/section.h>

#include "check/report.h"

struct RowSubject {
    CheckReport& report;
    const TextPlace& place;  // of the text
    const EboSection& section;
    const EboKeyRow& row;  // of the kinds FloatRow, IntRow, BandList and ChannelMap
    const char* text;
    void* record;  // takes the text as on a device, but for a map, which no record takes
};

// Reports what is wrong with the text. False when it aborts the process.
bool checkRow(const RowSubject& subject);
