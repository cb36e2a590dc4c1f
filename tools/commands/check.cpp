// eboconf check: everything that is wrong with tuning files, and what a device will do with them.
#include <ka/log_sink.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <memory>
#include <thread>

#include "check/file.h"
#include "commands/commands.h"
#include "commands/options.h"
#include "report/check_report.h"
#include "text/terminal.h"

namespace {

struct CheckOptions {
    Part part = nullptr;
    std::string format = "text";
    bool strict = false;
    std::vector<std::string> files;
};

// Worth showing for a set that takes a while.
void showProgress(size_t done, size_t all) {
    constexpr size_t kLargeSet = 50;
    static const bool shown = isatty(STDERR_FILENO) != 0;
    if (!shown || all < kLargeSet) return;
    std::fprintf(stderr, "\rchecked %zu of %zu files", done, all);
    if (done == all) std::fputs("\r\x1b[K", stderr);
}

// Standard input can be read once.
std::vector<std::string> filesToCheck(const std::vector<std::string>& named) {
    std::vector<std::string> files;
    bool hasInput = false;
    for (const std::string& file : named) {
        if (file == "-" && hasInput) {
            std::fputs("eboconf: standard input is read once: it is checked where \"-\" comes first\n",
                       stderr);
        } else {
            files.push_back(file);
        }
        hasInput = hasInput || file == "-";
    }
    return files;
}

ExitStatus check(const CheckOptions& options) {
    // The report says it all, and says it once.
    ka_install_log_sink([](const KaLogMessage&, void*) {}, nullptr);
    const unsigned threads = std::max(1U, std::thread::hardware_concurrency());
    const std::vector<CheckReport> reports =
        checkFiles(filesToCheck(options.files), options.part, threads, showProgress);
    ka_remove_log_sink();

    CheckTextStyle style;
    style.colours = colours();
    if (isatty(STDOUT_FILENO) != 0) style.width = columns();
    const FailsOn failsOn = options.strict ? CheckLevel::Warning : CheckLevel::Error;
    writeCheck(options.format, reports, style, failsOn, std::cout);
    std::cout.flush();
    return failsRun(reports, failsOn) ? kFailure : kSuccess;
}

}  // namespace

void addCheckCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command = app.add_subcommand(
        "check", "Finds all faults of tuning files at once, and says what a device will do");
    auto options = std::make_shared<CheckOptions>();
    addPartOption(*command, options->part);
    addColorOption(*command);
    command->add_flag("--strict", options->strict, "Takes warnings for problems");
    command->add_option("--format", options->format, "Form of the report")
        ->check(CLI::IsMember(checkFormats()))
        ->capture_default_str();
    command->add_option("FILE", options->files, "Tuning files; - is standard input")->required();
    command->footer(
        "Examples:\n"
        "  eboconf check lamp.json\n"
        "  eboconf check --strict --format junit *.json > report.xml\n\n"
        "Exit status: 0 clean, 1 problems found, 2 wrong usage.");
    command->callback([options, &status] { status = check(*options); });
}
