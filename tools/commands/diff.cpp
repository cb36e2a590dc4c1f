// eboconf diff: what two files load, field by field.
#include <algorithm>
#include <cstdio>
#include <memory>

#include "commands/commands.h"
#include "commands/options.h"
#include "model/differences.h"
#include "report/comparison.h"
#include "text/terminal.h"
#include "text/words.h"

namespace {

struct DiffOptions {
    Part part = nullptr;
    std::string format = "text";
    std::vector<std::string> labels;
    std::string from;
    std::string to;
};

std::string shown(Style style, const Value& value) {
    return styled(style, value.kind == Value::Word ? inQuotes(value.text) : value.text);
}

void printList(const std::vector<Difference>& list, size_t width) {
    for (const Difference& difference : list) {
        std::printf("%s  %s -> %s\n", padded(difference.name, width).c_str(),
                    shown(Style::Red, difference.from).c_str(), shown(Style::Green, difference.to).c_str());
    }
}

void printText(const ComparedNames& names, const Differences& differences) {
    size_t width = 0;
    for (const auto* list : {&differences.switches, &differences.values}) {
        for (const Difference& difference : *list) width = std::max(width, difference.name.size());
    }
    std::printf("%s\n%s\n", styled(Style::Bold, "--- " + printable(names.from)).c_str(),
                styled(Style::Bold, "+++ " + printable(names.to)).c_str());
    printList(differences.switches, width);
    printList(differences.values, width);
}

std::string nameIn(const DiffOptions& options, size_t which, const std::string& file) {
    return which < options.labels.size() ? options.labels[which] : file;
}

ExitStatus run(const DiffOptions& options) {
    if (options.from == "-" && options.to == "-") {
        return refuse("diff", "standard input can be read only once: name a file for A or B");
    }
    const Load from = loadTuning(options.from, options.part);
    const Load to = loadTuning(options.to, options.part);
    for (const auto& [load, file] : {std::pair(&from, &options.from), std::pair(&to, &options.to)}) {
        if (!load->loaded) complain(whyNotLoaded(*load, *file));
    }
    if (!from.loaded || !to.loaded) return kUsage;
    const Differences differences = differencesOf(from.tuning, to.tuning);
    const ComparedNames names = {nameIn(options, 0, options.from), nameIn(options, 1, options.to)};
    if (options.format == "json") {
        std::fputs(comparisonJson(names, differences).c_str(), stdout);
    } else if (options.format == "markdown") {
        std::fputs(comparisonMarkdown(names, differences).c_str(), stdout);
    } else if (!differences.none()) {
        printText(names, differences);
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) return kUsage;
    return differences.none() ? kSuccess : kFailure;
}

}  // namespace

void addDiffCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command = app.add_subcommand("diff", "Compares what two files load, field by field");
    auto options = std::make_shared<DiffOptions>();
    addPartOption(*command, options->part);
    addFormatOption(*command, options->format, {"text", "json", "markdown"});
    addColorOption(*command);
    command->add_option("--label", options->labels, "Name of A in the report, and given once more, of B")
        ->allow_extra_args(false)
        ->type_name("NAME");
    command->add_option("A", options->from, "Tuning file; - is standard input")->required();
    command->add_option("B", options->to, "Tuning file to compare it with")->required();
    command->footer(
        "Examples:\n"
        "  eboconf diff old.json new.json\n"
        "  eboconf diff <(git show HEAD~1:lamp.json) lamp.json\n"
        "  eboconf diff --format markdown old.json new.json    a table for a merge request\n\n"
        "Exit status: 0 the same, 1 different, 2 trouble.");
    command->callback([options, &status] {
        if (options->labels.size() > 2) throw CLI::ValidationError("--label", "there are two files to name");
        status = run(*options);
    });
}
