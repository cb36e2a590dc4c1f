// A load tried in a child process, so that whatever it does wrong ends the child alone.
#pragma once

#include <string>

#include "ebo_live.h"

namespace ebo_live {

enum class Trial {
    Survived,  // loaded, or foreseen to fail
    Died,
    Untried,  // no process to be had, or it took more than five seconds
};
Trial tryLoad(EboLivePart part, const std::string& path, bool whole);

}  // namespace ebo_live
