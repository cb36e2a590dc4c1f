// Changes of a text.
#pragma once

#include <cstddef>
#include <string>

// Puts `text` in the place of `length` bytes at `offset`.
struct TextEdit {
    size_t offset = 0;
    size_t length = 0;
    std::string text;

    size_t end() const { return offset + length; }
};
