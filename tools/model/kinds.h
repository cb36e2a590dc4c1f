// The kinds of keys in words, one row each.
#pragma once

#include <parse/section.h>

#include <string>

enum class ValueType { Integer, Number, Text };  // as JSON knows them

struct KindRow {
    EboKeyKind kind;
    ValueType type;
    const char* separator;  // of the numbers in a text; null: it holds none
    const char* takes;      // what the file may hold, for references; "#" stands for the row's count
    const char* example;    // what to write, for advice
};

const KindRow& kindOf(const EboKeyRow& row);

// "text of 3 numbers with blanks between them"
std::string takenBy(const EboKeyRow& row);
// "3 numbers in quotes, separated by blanks"
std::string exampleFor(const EboKeyRow& row);
// "an integer", "a number", "a string"
const char* nameOf(ValueType type);
