// eboconf export: writes records back as a tuning file.
#include <cstdio>
#include <memory>
#include <string>

#include "commands/commands.h"
#include "commands/options.h"
#include "report/export.h"

namespace {

struct ExportOptions {
    Part part = nullptr;
    bool defaults = false;
    std::string file;
};

ExitStatus printDefaults() {
    const Export result = exportText(defaultTuning());
    std::fputs(result.text.c_str(), stdout);
    for (const std::string& loss : result.losses) complain(loss);
    return kSuccess;
}

ExitStatus run(const ExportOptions& options) {
    if (options.defaults) return printDefaults();
    const Load load = loadTuning(options.file, options.part, FileText::Kept);
    const FileExport result = load.loaded ? exportFile(load, options.part, options.file)
                                          : FileExport{"", whyNotLoaded(load, options.file)};
    if (!result.refusal.empty()) {
        complain(result.refusal);
        return kFailure;
    }
    std::fwrite(result.text.data(), 1, result.text.size(), stdout);
    return kSuccess;
}

}  // namespace

void addExportCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command =
        app.add_subcommand("export", "Writes a file anew, complete and canonical: it loads the same");
    auto options = std::make_shared<ExportOptions>();
    CLI::Option* part = addPartOption(*command, options->part);
    CLI::Option* file = command->add_option("FILE", options->file, "Tuning file; - is standard input");
    CLI::Option* defaults =
        command->add_flag("--defaults", options->defaults, "The built-in defaults instead of a file");
    defaults->excludes(file)->excludes(part);
    command->footer(
        "Examples:\n"
        "  eboconf export --defaults > lamp.json    a new file\n"
        "  eboconf export old.json > new.json       the same settings in canonical form\n\n"
        "Exit status: 0 written, 1 not loaded or refused, 2 wrong usage.");
    command->callback([options, file, &status] {
        if (!options->defaults && file->count() == 0) throw CLI::RequiredError("FILE or --defaults");
        status = run(*options);
    });
}
