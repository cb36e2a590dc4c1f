// What the library does with a file, in terms that compare with what the model expects.
#pragma once

#include <string>
#include <vector>

#include "model/expectation.h"

namespace model {

// One record or text, byte by byte. Pointers are all zero when null, else all ones.
struct Part {
    std::string name;
    std::string bytes;

    bool operator==(const Part& other) const { return name == other.name && bytes == other.bytes; }
};
using Parts = std::vector<Part>;

// The parts of a load's result, given as the loader gives it; `channels`: entries of its channel map.
Parts partsOf(Loader loader, const void* result, int channels);

struct Observation {
    Parts parts;
    Log log;                            // of the load
    Log dump;                           // of the dumps
    std::vector<std::string> refusals;  // what the framework says about the file, with its path
};

// Loads, dumps and destroys. The library's log is the observation's meanwhile.
Observation observe(Loader loader, const char* path, int channels);

// True while the library runs, and not while it logs. For watching what it allocates.
extern bool g_inside_library;

// All differences, in words; empty when there are none. Blocks left over are not looked at.
std::string differences(Loader loader, const Expectation& expected, const Observation& observed);

// Whether loads that read "aec" end the process: found out with the library's own means, without the model.
bool wouldAbort(const char* path);
bool readsAec(Loader loader);

}  // namespace model
