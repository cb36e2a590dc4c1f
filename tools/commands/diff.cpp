// eboconf diff: what two files load, field by field.
#include <algorithm>
#include <cstdio>
#include <memory>

#include "commands/commands.h"
#include "commands/options.h"
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
    return styled(style, value.kind == Value::Word ? inQuotes(value.text) : value.text);
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
    std::printf("%s\n%s\n", styled(Style::Bold, "--- " + printable(options.from)).c_str(),
                styled(Style::Bold, "+++ " + printable(options.to)).c_str());
    printList(differences.switches, width);
    printList(differences.values, width);
}

void writeValue(JsonWriter& json, const Value& value) {
    if (value.kind == Value::None) {
        json.null();
    } else if (value.kind == Value::Switch) {
        json.boolean(value.text == "enabled");
    } else if (value.kind == Value::Number) {
        json.numberOrText(value.text);
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
    if (options.from == "-" && options.to == "-") {
        complain("standard input can be read only once: name a file for A or B");
        return kUsage;
    }
    const Load from = loadTuning(options.from, options.part);
    const Load to = loadTuning(options.to, options.part);
    for (const auto& [load, file] : {std::pair(&from, &options.from), std::pair(&to, &options.to)}) {
        if (!load->loaded) complain(whyNotLoaded(*load, *file));
    }
    if (!from.loaded || !to.loaded) return kUsage;
    const Differences differences = differencesOf(from.tuning, to.tuning);
    const bool equal = differences.switches.empty() && differences.values.empty();
    if (options.format == "json") {
        printJson(options, differences, equal);
    } else if (!equal) {
        printText(options, differences);
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) return kUsage;
    return equal ? kSuccess : kFailure;
}

}  // namespace

void addDiffCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command = app.add_subcommand("diff", "Compares what two files load, field by field");
    auto options = std::make_shared<DiffOptions>();
    addPartOption(*command, options->part);
    addFormatOption(*command, options->format);
    command->add_option("A", options->from, "Tuning file; - is standard input")->required();
    command->add_option("B", options->to, "Tuning file to compare it with")->required();
    command->footer("Exit status: 0 the same, 1 different, 2 trouble.");
    command->callback([options, &status] { status = run(*options); });
}
