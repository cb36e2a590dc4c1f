// The option --part of the subcommands that load a file.
#pragma once

#include <CLI/CLI.hpp>

#include "model/tuning.h"

// auto, or the name of a load. Stores the choice in `part`, which must outlive the parsing.
CLI::Option* addPartOption(CLI::App& command, Part& part);
