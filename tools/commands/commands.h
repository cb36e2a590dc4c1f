// The subcommands of eboconf, one source each.
#pragma once

#include <CLI/CLI.hpp>

enum ExitStatus {
    kLoaded = 0,
    kNotLoaded = 1,
    kUsage = 2,
    // of check
    kClean = kLoaded,
    kProblems = kNotLoaded,
    // of diff
    kSame = 0,
    kDifferent = 1,
    kTrouble = 2,
};

// Each adds its subcommand to `app`; when the command line names it, it runs and stores its exit status in
// `status`, which must outlive the parsing.
void addDumpCommand(CLI::App& app, ExitStatus& status);
void addDefaultsCommand(CLI::App& app, ExitStatus& status);
void addCheckCommand(CLI::App& app, ExitStatus& status);
void addDiffCommand(CLI::App& app, ExitStatus& status);
void addExplainCommand(CLI::App& app, ExitStatus& status);
void addExportCommand(CLI::App& app, ExitStatus& status);
void addKeysCommand(CLI::App& app, ExitStatus& status);
void addSchemaCommand(CLI::App& app, ExitStatus& status);
void addCompleteCommand(CLI::App& app, ExitStatus& status);
