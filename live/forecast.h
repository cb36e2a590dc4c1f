// What a load of an opened document would do, without doing it: the walk of its reader over the same tables,
// storing nothing.
#pragma once

#include <ka/framework.h>

#include <string>

#include "parse/loads.h"

namespace ebo_live {

struct Forecast {
    bool aborts = false;  // the process
    std::string reason;   // why it fails or aborts, as "function: message"; empty: it loads
};

// `whole`: any section that fails is a failure, except the optional ones, also where the loader is lenient.
Forecast forecast(KAJsonParser& parser, const EboLoad& load, bool whole);

}  // namespace ebo_live
