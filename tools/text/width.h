// How wide a text is on a terminal.
#pragma once

#include <string>
#include <string_view>

// In columns: 2 for the letters of East Asia and for pictures, none for marks that combine with the letter
// before.
size_t widthOf(std::string_view text);

// `text`, or as many of its characters as leave room for "..." in `width` columns.
std::string shortened(const std::string& text, size_t width);
