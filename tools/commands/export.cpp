// eboconf export: writes records back as a tuning file, or as constants of a program.
#include <algorithm>
#include <cctype>
#include <cstdio>
#include <memory>
#include <string>

#include "commands/commands.h"
#include "commands/options.h"
#include "report/export.h"
#include "text/words.h"

namespace {

struct ExportOptions {
    Part part = nullptr;
    bool defaults = false;
    std::string format = "json";
    std::string name;
    std::string file;
};

ExitStatus printDefaults() {
    const Export result = exportText(defaultTuning());
    std::fputs(result.text.c_str(), stdout);
    for (const std::string& loss : result.losses) complain(loss);
    return kSuccess;
}

ExitStatus refuseExport(const std::string& reason) {
    complain(reason);
    return kFailure;
}

ExitStatus printBuiltIn(const ExportOptions& options) {
    const EboLoad& part = options.part != nullptr ? *options.part : kEboLoads[kEboFullLoad];
    const Load load = loadTuning(options.file, &part);
    if (!load.loaded) return refuseExport(whyNotLoaded(load, options.file));
    const BuiltIn result = exportBuiltIn(load.tuning, part, options.name);
    std::fputs((options.format == "h" ? result.declaration : result.definition).c_str(), stdout);
    return kSuccess;
}

ExitStatus run(const ExportOptions& options) {
    if (options.defaults) return printDefaults();
    if (options.format != "json") return printBuiltIn(options);
    const Load load = loadTuning(options.file, options.part, FileText::Kept);
    const FileExport result = load.loaded ? exportFile(load, options.part, options.file)
                                          : FileExport{"", whyNotLoaded(load, options.file)};
    if (!result.refusal.empty()) return refuseExport(result.refusal);
    std::fwrite(result.text.data(), 1, result.text.size(), stdout);
    return kSuccess;
}

std::string isIdentifier(const std::string& name) {
    const auto isLetter = [](char c) { return c == '_' || std::isalpha(static_cast<unsigned char>(c)) != 0; };
    const bool letters = std::all_of(name.begin(), name.end(), [&](char c) {
        return isLetter(c) || std::isdigit(static_cast<unsigned char>(c)) != 0;
    });
    return letters && isLetter(name[0]) ? "" : inQuotes(name) + " is no name in C";
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
    CLI::Option* format =
        command
            ->add_option(
                "--format", options->format,
                "json: a tuning file; c: the tree of one loader as a constant, the whole capture path "
                "without --part; h: the header that declares it")
            ->check(CLI::IsMember({"json", "c", "h"}))
            ->capture_default_str();
    CLI::Option* name =
        command->add_option("--name", options->name, "Name of the constant")->check(isIdentifier);
    name->needs(format);
    defaults->excludes(file)->excludes(part)->excludes(format);
    command->footer(
        "Examples:\n"
        "  eboconf export --defaults > lamp.json    a new file\n"
        "  eboconf export old.json > new.json       the same settings in canonical form\n"
        "  eboconf export --format c --name kLamp lamp.json > lamp.c\n\n"
        "Exit status: 0 written, 1 not loaded or refused, 2 wrong usage.");
    command->callback([options, file, &status] {
        if (options->format != "json" && options->name.empty()) throw CLI::RequiredError("--name");
        if (!options->defaults && file->count() == 0) throw CLI::RequiredError("FILE or --defaults");
        status = run(*options);
    });
}
