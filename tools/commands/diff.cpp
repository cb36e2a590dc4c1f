// eboconf diff: what two files load, field by field.
#include <algorithm>
#include <cstdio>
#include <memory>

#include "commands/commands.h"
#include "commands/part_option.h"
#include "model/differences.h"
#include "report/json_writer.h"
#include "text/terminal.h"
#include "text/words.h"

namespace {

struct DiffOptions {
    Part part = nullptr;
    std::string format = "text";
    std::string from;
    std::string to;
};

std::string shown(Style style, const Value& value) {
    return styled(style, value.kind == Value::Word ? ::quoted(value.text) : value.text);
}

void printList(const std::vector<Difference>& list, size_t width) {
    for (const Difference& difference : list) {
        std::printf("%s  %s -> %s\n", padded(difference.name, width).c_str(),
                    shown(Style::Red, difference.from).c_str(), shown(Style::Green, difference.to).c_str());
    }
}

void printText(const DiffOptions& options, const Differences& differences) {
    size_t width = 0;
    for (const auto* list : {&differences.switches, &differences.values}) {
        for (const Difference& difference : *list) width = std::max(width, difference.name.size());
    }
    std::printf("%s\n%s\n", styled(Style::Bold, "--- " + options.from).c_str(),
                styled(Style::Bold, "+++ " + options.to).c_str());
    printList(differences.switches, width);
    printList(differences.values, width);
}

// Numbers that JSON does not have are texts.
void writeValue(JsonWriter& json, const Value& value) {
    const bool finite = value.text.find_first_not_of("0123456789+-.e") == std::string::npos;
    if (value.kind == Value::None) {
        json.null();
    } else if (value.kind == Value::Switch) {
        json.boolean(value.text == "enabled");
    } else if (value.kind == Value::Number && finite) {
        json.number(value.text);
    } else {
        json.text(value.text);
    }
}

void writeList(JsonWriter& json, const char* name, const std::vector<Difference>& list) {
    json.key(name).beginArray();
    for (const Difference& difference : list) {
        json.beginObject().key("name").text(difference.name);
        writeValue(json.key("from"), difference.from);
        writeValue(json.key("to"), difference.to);
        json.endObject();
    }
    json.endArray();
}

void printJson(const DiffOptions& options, const Differences& differences, bool equal) {
    JsonWriter json;
    json.beginObject().key("from").text(options.from).key("to").text(options.to);
    json.key("equal").boolean(equal);
    writeList(json, "enable", differences.switches);
    writeList(json, "values", differences.values);
    json.endObject();
    std::fputs(json.document().c_str(), stdout);
}

ExitStatus run(const DiffOptions& options) {
    const Load from = loadTuning(options.from, options.part);
    const Load to = loadTuning(options.to, options.part);
    for (const auto& [load, file] : {std::pair(&from, &options.from), std::pair(&to, &options.to)}) {
        if (!load->loaded) std::fprintf(stderr, "eboconf: %s\n", whyNotLoaded(*load, *file).c_str());
    }
    if (!from.loaded || !to.loaded) return kTrouble;
    const Differences differences = differencesOf(from.tuning, to.tuning);
    const bool equal = differences.switches.empty() && differences.values.empty();
    if (options.format == "json") {
        printJson(options, differences, equal);
    } else if (!equal) {
        printText(options, differences);
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) return kTrouble;
    return equal ? kSame : kDifferent;
}

}  // namespace

void addDiffCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command = app.add_subcommand("diff", "Compares what two files load, field by field");
    auto options = std::make_shared<DiffOptions>();
    addPartOption(*command, options->part);
    command->add_option("--format", options->format, "Form of the report")
        ->check(CLI::IsMember({"text", "json"}))
        ->capture_default_str();
    command->add_option("A", options->from, "Tuning file; - is standard input")->required();
    command->add_option("B", options->to, "Tuning file to compare it with")->required();
    command->footer("Exit status: 0 the same, 1 different, 2 trouble.");
    command->callback([options, &status] { status = run(*options); });
}
