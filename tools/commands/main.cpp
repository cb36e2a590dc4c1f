// eboconf: reads and prints tuning files at the desk.
#include <algorithm>
#include <cstdio>

#include "commands/commands.h"

namespace {

bool isCommand(const CLI::App& app, const char* name) {
    const auto named =
        app.get_subcommands([name](const CLI::App* command) { return command->get_name() == name; });
    return !named.empty();
}

ExitStatus run(int argc, char** argv) {
    ExitStatus status = kLoaded;
    CLI::App app("Reads and prints the tuning files of the voice pipeline.", "eboconf");
    app.set_version_flag("--version", "eboconf " EBO_VERSION);
    app.require_subcommand(1);
    app.footer(
        "Exit status: 0 all is well, 1 not loaded, problems or differences, 2 wrong usage; of diff 2 also "
        "not loaded.");
    addDumpCommand(app, status);
    addDefaultsCommand(app, status);
    addCheckCommand(app, status);
    addDiffCommand(app, status);
    addExplainCommand(app, status);
    addExportCommand(app, status);
    addKeysCommand(app, status);
    addSchemaCommand(app, status);
    addCompleteCommand(app, status);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (argc > 1 && argv[1][0] != '-' && !isCommand(app, argv[1])) {
            std::fprintf(stderr, "There is no command \"%s\"\nRun with --help for more information.\n",
                         argv[1]);
            return kUsage;
        }
        return app.exit(error) == 0 ? kLoaded : kUsage;
    }
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    const ExitStatus status = run(argc, argv);
    // What was written early may have failed early.
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        std::perror("eboconf: standard output");
        return std::max(status, kNotLoaded);
    }
    return status;
}
