// What the library does with a file, in terms that compare with what the model expects.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "model/expectation.h"

namespace model {

struct Observation {
    bool failed = false;
    Parts parts;
    Log log;                            // of the load
    Log dump;                           // of the dumps and of the destruction
    std::vector<std::string> refusals;  // what the framework says about the file, with its path
};

// Loads, dumps and destroys. `take` hands over what the library has logged since the last time.
Observation observe(Loader loader, const char* path, int channels, const std::function<Log()>& take);
// The embedded framework's log is the observation's meanwhile.
Observation observe(Loader loader, const char* path, int channels);

// The entry points by their loader; a dump of nothing for the gain control, which has none.
void* load(Loader loader, const char* path);
void dump(Loader loader, const void* result);
void* destroyed(Loader loader, void* result);  // what is left in the caller's pointer

// True while the library runs, and not while it logs. For watching what it allocates.
extern bool g_inside_library;

// All differences, in words; empty when there are none. Blocks left over are not looked at.
std::string differences(const Expectation& expected, const Observation& observed);
std::string differences(Loader loader, const Expectation& expected, const Observation& observed);
std::string differences(const Parts& expected, const Parts& observed);
std::string differences(const Log& expected, const Log& observed);

// Whether loads that read "aec" end the process: found out with the library's own means, without the model.
bool wouldAbort(const char* path);
bool readsAec(Loader loader);

}  // namespace model
