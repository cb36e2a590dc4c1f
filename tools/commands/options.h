// Options that several subcommands have.
#pragma once

#include <CLI/CLI.hpp>

#include "model/tuning.h"

// auto, or the name of a load. Stores the choice in `part`, which must outlive the parsing.
CLI::Option* addPartOption(CLI::App& command, Part& part);

// Stores the choice in `format`, which must outlive the parsing.
void addFormatOption(CLI::App& command, std::string& format,
                     const std::vector<std::string>& forms = {"text", "json"});
