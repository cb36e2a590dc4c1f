// Filled records, and the lines that stand for each of their blocks in a dump.
#pragma once

#include <ebo_config.h>

#include <functional>
#include <string>
#include <vector>

#include "harness/expect.h"

struct Line {
    std::string format;
    std::string text;  // empty: the format itself
};

std::vector<ExpectedLine> linesOf(const std::string& function, const std::vector<Line>& lines);

// Calls that follow one another in one source have different lines, but for the rows of a table.
void expectLinesOfTheirOwn(const std::vector<LogCall>& calls);

// The mask as "%x" prints it.
std::string hex(uint32_t mask);

// The lines that two dumps share.
const std::vector<Line>& anrLines();
const std::vector<Line>& howlLines();
extern const char* const kEnd;
EboAnrParam anrRecord();
EboHowlParam howlRecord();

// Every pair of bits, every single bit and none, each mask once.
std::vector<uint32_t> masksOfUpToTwoBits();
