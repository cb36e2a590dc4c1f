// Options that several subcommands have.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "model/tuning.h"

// auto, or the name of a load. Stores the choice in `part`, which must outlive the parsing.
CLI::Option* addPartOption(CLI::App& command, Part& part);

// auto, always or never.
void addColorOption(CLI::App& command);

// Stores the choice in `format`, which must outlive the parsing.
void addFormatOption(CLI::App& command, std::string& format,
                     const std::vector<std::string>& forms = {"text", "json"});

// The values that an option takes; none when it takes any.
std::vector<std::string> valuesOf(const CLI::Option& option);

// Without those that are not for people.
std::vector<std::string> commandNames(const CLI::App& app);
