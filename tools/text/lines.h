// Lines and columns of a text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Marked text of a file as it is on disk.
struct TextPlace {
    uint32_t line = 0;        // from 1; 0: the file as a whole
    uint32_t column = 0;      // in bytes, from 1
    uint32_t characters = 0;  // the column in characters
    uint32_t offset = 0;      // in bytes, of the first marked byte
    uint32_t length = 0;      // in bytes, on one line

    std::string quote;       // the line, or of a long one what lies around the mark
    uint32_t quoteMark = 0;  // offset of the mark in the quote
    bool cutBefore = false;
    bool cutAfter = false;

    bool isInFile = true;  // false: what is meant was put in while reading; the place is where it would go
};

class TextLines {
public:
    // The text must outlive the lines.
    explicit TextLines(std::string_view text);

    // Offsets beyond the text mean its end. A mark ends with its line.
    TextPlace place(size_t offset, size_t length) const;

private:
    size_t charactersBefore(size_t offset) const;

    std::string_view text_;
    std::vector<size_t> lines_;       // offsets of the lines
    std::vector<size_t> characters_;  // before each block of the text: a file may be one long line
};
