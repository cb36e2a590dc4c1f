// eboconf: reads and prints tuning files at the desk.
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <exception>
#include <new>

#include "commands/commands.h"
#include "ebo_version.h"
#include "model/load_log.h"
#include "text/words.h"

namespace {

ExitStatus g_failure = kFailure;  // of what ends before it has an answer

ExitStatus run(int argc, char** argv) {
    ExitStatus status = kSuccess;
    CLI::App app("Reads and prints the tuning files of the voice pipeline.", "eboconf");
    app.set_version_flag("-V,--version", "eboconf " EBO_VERSION);
    app.require_subcommand(1);
    app.footer(
        "Examples:\n"
        "  eboconf check lamp.json    what is wrong with it?\n"
        "  eboconf keys attack        which keys are about that?\n"
        "  eboconf help check         how is a command used?\n\n"
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
    addHelpCommand(app, status);
    addCompleteCommand(app, status);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const bool isAnswer = error.get_exit_code() == 0;  // help, or the version
        return isAnswer ? ExitStatus(app.exit(error)) : refuse(app, error);
    }
    return status;
}

// Called when nothing may be allocated.
void endWithoutMemory() {
    std::fputs("eboconf: out of memory\n", stderr);
    _exit(g_failure);
}

ExitStatus runGuarded(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::bad_alloc&) {
        endWithoutMemory();
    } catch (const std::exception& failure) {
        complain(failure.what());
    }
    return g_failure;
}

}  // namespace

void complain(const std::string& sentence) {
    std::fprintf(stderr, "eboconf: %s\n", printable(sentence).c_str());
}

int main(int argc, char** argv) {
    if (argc > 1 && std::strcmp(argv[1], "diff") == 0) g_failure = kUsage;  // whose 1 is an answer
    beforeAssertion(endWithoutMemory);
    const ExitStatus status = runGuarded(argc, argv);
    // What was written early may have failed early.
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        std::perror("eboconf: standard output");
        return std::max(status, g_failure);
    }
    return status;
}
