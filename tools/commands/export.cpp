// eboconf export: writes records back as a tuning file.
#include <cstdio>
#include <memory>
#include <string>

#include "commands/commands.h"
#include "commands/part_option.h"
#include "report/export.h"

namespace {

struct ExportOptions {
    Part part = nullptr;
    bool defaults = false;
    std::string file;
};

ExitStatus print(const Tuning& tuning) {
    const Export result = exportText(tuning);
    std::fputs(result.text.c_str(), stdout);
    for (const std::string& loss : result.losses) std::fprintf(stderr, "eboconf: %s\n", loss.c_str());
    return kLoaded;
}

ExitStatus run(const ExportOptions& options) {
    if (options.defaults) return print(defaultTuning());
    const Load load = loadTuning(options.file, options.part);
    if (load.loaded) return print(load.tuning);
    std::fprintf(stderr, "eboconf: %s\n", whyNotLoaded(load, options.file).c_str());
    return kNotLoaded;
}

}  // namespace

void addExportCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command =
        app.add_subcommand("export", "Writes what a file loads back as a complete, canonical tuning file");
    auto options = std::make_shared<ExportOptions>();
    CLI::Option* part = addPartOption(*command, options->part);
    CLI::Option* file = command->add_option("FILE", options->file, "Tuning file; - is standard input");
    CLI::Option* defaults =
        command->add_flag("--defaults", options->defaults, "The built-in defaults instead of a file");
    defaults->excludes(file)->excludes(part);
    command->callback([options, file, &status] {
        if (!options->defaults && file->count() == 0) throw CLI::RequiredError("FILE or --defaults");
        status = run(*options);
    });
}
