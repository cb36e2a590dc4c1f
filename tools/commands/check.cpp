// eboconf check: everything that is wrong with tuning files, and what a device will do with them.
#include <ka/log_sink.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <thread>

#include "check/choice/codes.h"
#include "check/choice/files.h"
#include "check/choice/settings.h"
#include "check/explanations.h"
#include "check/file.h"
#include "commands/commands.h"
#include "commands/options.h"
#include "report/check_report.h"
#include "text/terminal.h"
#include "text/words.h"

namespace {

struct CheckOptions {
    Part part = nullptr;
    std::string format = "text";
    CheckChoice choice;
    bool quiet = false;
    std::string explained;  // a code
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

// Relative to where we are, if that is shorter.
std::string shownPath(const std::string& path) {
    std::error_code error;
    const std::string relative = std::filesystem::proximate(path, error);
    return printable(relative.empty() || relative.size() > path.size() ? path : relative);
}

// As a compiler tells them, for editors.
bool tellFaults(const std::vector<const Settings*>& faulty) {
    for (const Settings* settings : faulty) {
        const std::string file = shownPath(settings->file);
        for (const SettingsFault& fault : settings->faults) {
            std::fprintf(stderr, "%s:", file.c_str());
            if (fault.line != 0) std::fprintf(stderr, "%u:%u:", fault.line, fault.column);
            std::fprintf(stderr, " error: %s\n", printable(fault.text).c_str());
        }
    }
    return !faulty.empty();
}

bool tellEmpty(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        refuse("check", "there is no file to check in " + inQuotes(name) +
                            "; hidden and excluded ones are not counted");
    }
    return !names.empty();
}

void showNothing(size_t /*done*/, size_t /*all*/) {}

ExitStatus check(const CheckOptions& options) {
    NearestSettings settings;
    const FoundFiles found = findFiles(filesToCheck(options.files),
                                       [&](const std::string& path) { return settings.isExcluded(path); });
    for (const std::string& file : found.files) settings.of(file);
    if (tellFaults(settings.faulty()) || tellEmpty(found.empty)) return kUsage;

    // The report says it all, and says it once.
    ka_install_log_sink([](const KaLogMessage&, void*) {}, nullptr);
    const unsigned threads = std::max(1U, std::thread::hardware_concurrency());
    std::vector<CheckReport> reports =
        checkFiles(found.files, options.part, threads, options.quiet ? showNothing : showProgress);
    ka_remove_log_sink();

    for (CheckReport& report : reports) {
        choose(report, options.choice, settings.of(report.file).check);
    }
    CheckTextStyle style;
    style.colours = colours();
    style.summary = !options.quiet;
    if (isatty(STDOUT_FILENO) != 0) style.width = columns();
    writeCheck(options.format, reports, style, std::cout);
    std::cout.flush();
    return failsRun(reports) ? kFailure : kSuccess;
}

void addCodes(CLI::App& command, const char* name, std::vector<std::string>& codes, const char* meaning) {
    command.add_option(name, codes, meaning)
        ->type_name("CODES")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(CLI::Validator(whyNoCode, ""));
}

std::string whyNoNumber(const std::string& text) {
    const bool digits = text.find_first_not_of("0123456789") == std::string::npos;
    return digits ? "" : inQuotes(text) + " is not a number of findings";
}

void addChoice(CLI::App& command, CheckOptions& options) {
    CheckChoice& choice = options.choice;
    addCodes(command, "--select", choice.select,
             "Reports these findings alone; EBO104,EBO2: a code, and all that begin so");
    addCodes(command, "--ignore", choice.ignore, "Does not report these findings");
    addCodes(command, "--error", choice.error, "Takes these findings for errors");
    addCodes(command, "--warn", choice.warn, "Takes these findings for warnings");
    CLI::Option* failOn =
        command
            .add_option_function<std::string>(
                "--fail-on", [&choice](const std::string& name) { choice.failOn = failOnNamed(name); },
                "Mildest finding that is a problem")
            ->check(CLI::IsMember(failOnNames()))
            ->default_str(failOnNames().front());
    command
        .add_flag_callback(
            "--strict", [&choice] { choice.failOn = FailOn::Warning; }, "Means --fail-on warning")
        ->excludes(failOn);
    command.add_option("--max", choice.max, "Reports at most so many findings of a file, the worst ones")
        ->type_name("NUMBER")
        ->check(CLI::Validator(whyNoNumber, ""));
    command.add_flag("-q,--quiet", options.quiet, "Prints findings alone, and no progress");
}

std::string whyNoSingleCode(const std::string& text) {
    std::string why = whyNoCode(text);
    if (!why.empty() || codeNamed(text) != nullptr) return why;
    return inQuotes(text) + " is more than one code";
}

ExitStatus explainCode(const std::string& id) {
    const CheckCode* code = codeNamed(id);
    if (code == nullptr) {
        writeCodes(std::cout);
    } else {
        writeExplanation(*code, std::min<size_t>(columns(), 100), std::cout);
    }
    std::cout.flush();
    return kSuccess;
}

}  // namespace

void addCheckCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command = app.add_subcommand(
        "check", "Finds all faults of tuning files at once, and says what a device will do");
    auto options = std::make_shared<CheckOptions>();
    addPartOption(*command, options->part);
    addColorOption(*command);
    command->add_option("--format", options->format, "Form of the report")
        ->check(CLI::IsMember(checkFormats()))
        ->capture_default_str();
    addChoice(*command, *options);
    const CLI::Option* files =
        command->add_option("FILE", options->files,
                            "Tuning files, folders of them, or patterns like **/*.json; - is standard input");
    const CLI::Option* explain =
        command
            ->add_option("--explain", options->explained, "Explains a finding; without CODE, lists them all")
            ->type_name("CODE")
            ->expected(0, 1)
            ->check(CLI::Validator(whyNoSingleCode, ""));
    command->footer(
        "Examples:\n"
        "  eboconf check lamp.json\n"
        "  eboconf check --strict --ignore EBO212 tunings\n"
        "  eboconf check --strict --format junit tunings > report.xml\n"
        "  eboconf check --explain EBO104\n\n"
        "Exit status: 0 clean, 1 problems found, 2 wrong usage or eboconf.toml.");
    command->callback([options, files, explain, &status] {
        if (explain->count() > 0) {
            status = explainCode(options->explained);
        } else if (files->count() == 0) {
            throw CLI::RequiredError("FILE");
        } else {
            status = check(*options);
        }
    });
}
