// What the example needs of a board: a console, an end, and what the stack took.
#pragma once

#include <cstddef>

// Writes a text to the debugger's console.
void boardWrite(const char* text);

// Ends the program; the debugger gets the status.
[[noreturn]] void boardExit(int status);

// The most bytes that the stack has had since the start.
size_t boardStackPeak();
