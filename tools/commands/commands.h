// The subcommands of eboconf, one source each.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

enum ExitStatus {
    kSuccess = 0,
    kFailure = 1,  // not loaded, problems found, files that differ
    kUsage = 2,    // wrong usage; of diff also a file that does not load
};

// A line on standard error, "eboconf: " and the sentence, in which no file name steers the terminal.
void complain(const std::string& sentence);

// The same about a wrong use of a command, and where its help is; an empty name: of the tool.
ExitStatus refuse(const std::string& command, const std::string& sentence);
// What the parser says of the command line that it has read.
ExitStatus refuse(const CLI::App& app, const CLI::ParseError& error);

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
// After all that it is to explain.
void addHelpCommand(CLI::App& app, ExitStatus& status);
void addCompleteCommand(CLI::App& app, ExitStatus& status);
