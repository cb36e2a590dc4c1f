// What standard output can show.
#pragma once

#include <string>

enum class Colours { OnTerminal, Always, Never };
// What colours() goes by from now on; at first OnTerminal: a terminal that has them, without NO_COLOR set.
void chooseColours(Colours choice);
bool colours();

// Columns of the terminal; 80 for a pipe or a file, whose text must not depend on a window.
size_t columns();

enum class Style { Bold, Faint, Red, Green };
// `text` in that style where colours are wanted, otherwise as it is.
std::string styled(Style style, const std::string& text);

// `text` broken at blanks into lines that fit `width` columns with `indent` blanks before each; ends in a
// line break.
std::string wrapped(const std::string& text, size_t indent, size_t width);

// `text` filled up with blanks to `width` columns; UTF-8.
std::string padded(const std::string& text, size_t width);
