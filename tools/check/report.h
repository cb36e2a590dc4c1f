// What eboconf check found in one file, and how it is told.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "check/codes.h"

// Marked text of a file as it is on disk.
struct CheckPlace {
    uint32_t line = 0;        // from 1; 0: the file as a whole
    uint32_t column = 0;      // in bytes, from 1
    uint32_t characters = 0;  // the column in characters
    uint32_t offset = 0;      // in bytes, of the first marked byte
    uint32_t length = 0;      // in bytes, on one line

    std::string quote;       // the line, or of a long one what lies around the mark
    uint32_t quoteMark = 0;  // offset of the mark in the quote
    bool cutBefore = false;
    bool cutBehind = false;
};

struct CheckFinding {
    const CheckCode* code;
    CheckPlace place;
    std::string text;    // what is wrong
    std::string device;  // what a device will do
    std::string help;    // what to do about it; may be empty
};

enum class CheckOutcome { Loads, Fails, Aborts };  // Aborts: it ends the process

struct CheckReport {
    std::string file;
    std::vector<CheckFinding> findings;  // in the order of their places
    std::string load;                    // which loader reads it, in words
    CheckOutcome outcome = CheckOutcome::Loads;
    std::vector<std::string> log;  // error messages of the load, in order and without colours

    size_t count(CheckLevel level) const;
};

const char* checkLevelName(CheckLevel level);
const char* checkOutcomeName(CheckOutcome outcome);

struct CheckTextStyle {
    bool colours = false;
    size_t width = 100;  // of a line, in columns: quoted lines are cut to it
};

void writeCheckText(const CheckReport& report, const CheckTextStyle& style, std::ostream& out);
void writeCheckJson(const std::vector<CheckReport>& reports, std::ostream& out);
// SARIF 2.1.0
void writeCheckSarif(const std::vector<CheckReport>& reports, std::ostream& out);
