#pragma once

// Prints what the program's memory has had to hold so far.
void printFigures();
