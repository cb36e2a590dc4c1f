#include "figures.h"

#include <cstdio>

#include "board.h"
#include "framework/pool.h"

void printFigures() {
    char text[64];
    std::snprintf(text, sizeof(text), "heap %u\ndocument %u\nstack %u\n",
                  static_cast<unsigned>(g_records.peak()), static_cast<unsigned>(g_documents.peak()),
                  static_cast<unsigned>(boardStackPeak()));
    boardWrite(text);
}
