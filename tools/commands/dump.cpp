// eboconf dump: loads a file as a host does and prints the records.
#include <ka/framework.h>

#include <cstdio>
#include <memory>
#include <string>

#include "commands/commands.h"
#include "commands/options.h"
#include "model/load_log.h"
#include "model/module_dump.h"
#include "model/spool.h"
#include "report/records.h"

namespace {

struct DumpOptions {
    Part part = nullptr;
    std::string format = "text";
    bool verbose = false;
    std::string file;
};

// Standard error gets what a device logs while it loads the file.
void showLog(std::vector<LogMessage> messages, const SpooledFile& spooled) {
    for (LogMessage& message : messages) message.logged = spooled.named(message.logged);
    logAgain(messages);
}

// What no device logs is left out, unless there is nothing else or it was asked for. None when the file is
// not JSON.
std::vector<const EboLoad*> loggedLoads(const DumpOptions& options, const SpooledFile& spooled) {
    KAJsonParser document;
    bool parsed = false;
    const std::vector<LogMessage> log =
        messagesOf([&] { parsed = document.parseFile(spooled.path().c_str()) != 0; });
    if (!parsed) {
        showLog(log, spooled);
        return {};
    }
    std::vector<const EboLoad*> loads = loadsOf(options.part, document);
    if (loads.size() > 1 && loads.back() == &kEboLoads[kEboAgcLoad]) loads.pop_back();
    return loads;
}

ExitStatus run(const DumpOptions& options) {
    const SpooledFile spooled(options.file);
    if (!spooled.error().empty()) {
        complain(spooled.error());
        return kFailure;
    }
    const std::vector<const EboLoad*> wanted = loggedLoads(options, spooled);
    const bool json = options.format == "json";
    std::vector<Load> loads;
    for (const EboLoad* load : wanted) {
        loads.push_back(loadTuning(spooled.path(), load));
        showLog(loads.back().messages, spooled);
        const char* const name = componentOf(*load);
        if (!loads.back().loaded) {
            if (!loads.back().loads.empty()) complain(options.file + ": the " + name + " does not load");
            return kFailure;
        }
        if (!json) printLines(linesOfLoad(*load, loads.back().tuning));
        if (options.verbose)
            complain(std::string(name) + ": loaded from \"" + load->root + "\" of " + options.file);
    }
    if (json && !loads.empty()) std::fputs(recordsJson(options.file, loads).c_str(), stdout);
    return loads.empty() ? kFailure : kSuccess;
}

}  // namespace

void addDumpCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command =
        app.add_subcommand("dump", "Loads a file and prints the records, as a device logs them");
    auto options = std::make_shared<DumpOptions>();
    addPartOption(*command, options->part);
    addFormatOption(*command, options->format);
    command->add_flag("--verbose", options->verbose, "Tells on standard error what was loaded from where");
    command->add_option("FILE", options->file, "Tuning file; - is standard input")->required();
    command->footer(
        "Examples:\n"
        "  eboconf dump lamp.json\n"
        "  eboconf dump --part aec --format json lamp.json\n\n"
        "Exit status: 0 loaded, 1 not loaded, 2 wrong usage.\n\n"
        "No device logs the lines of gain control alone (--part agc): they are those of a beamformer.");
    command->callback([options, &status] { status = run(*options); });
}
