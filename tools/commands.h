// The subcommands of eboconf, one source each.
#pragma once

#include <CLI/CLI.hpp>

enum ExitStatus { kLoaded = 0, kNotLoaded = 1, kUsage = 2, kClean = kLoaded, kProblems = kNotLoaded };

// Each adds its subcommand to `app`; when the command line names it, it runs and stores its exit status in
// `status`, which must outlive the parsing.
void addDumpCommand(CLI::App& app, ExitStatus& status);
void addDefaultsCommand(CLI::App& app, ExitStatus& status);
void addCheckCommand(CLI::App& app, ExitStatus& status);
