// eboconf explain: what a file asks for and what becomes of it.
#include <algorithm>
#include <cstdio>
#include <memory>

#include "commands/commands.h"
#include "commands/options.h"
#include "model/modules.h"
#include "report/records.h"
#include "text/terminal.h"
#include "text/width.h"
#include "text/words.h"

namespace {

struct ExplainOptions {
    Part part = nullptr;
    std::string format = "text";
    std::string file;
};

std::string masksText(const EboLoad& load, const Tuning& tuning) {
    std::string text;
    for (const MaskValue& mask : masksOf(load, tuning)) text += "  " + mask.name + " " + hexText(mask.bits);
    return text;
}

// A status is whatever the file says, at any length.
std::string askedText(const std::string& asked) {
    constexpr size_t kWidth = 10;
    const bool plain = std::all_of(asked.begin(), asked.end(), [](char c) { return c > ' ' && c < 0x7f; });
    const std::string text = plain && !asked.empty() ? asked : inQuotes(asked);
    return shortened(text, kWidth);
}

std::string bitText(const ModuleRow& row) {
    return row.masked ? hexText(row.place->bit) + (row.enabled ? " set" : " clear") : "none";
}

std::string linesText(const ModuleRow& row) {
    if (row.lines == 0) return "nothing";
    return std::to_string(row.lines) + (row.lines == 1 ? " line" : " lines");
}

void printRow(const ModuleRow& row) {
    const std::string module = padded(row.place->section->name, 8);
    const std::string record = row.place->record.empty() ? "-" : row.recorded ? row.place->record : "none";
    std::printf("%s  %s  %s  %s  %s  %s\n", styled(Style::Bold, module).c_str(),
                padded(row.stated ? askedText(row.asked) : "-", 10).c_str(),
                styled(row.enabled ? Style::Green : Style::Faint, padded(effectOf(row), 9)).c_str(),
                padded(bitText(row), 13).c_str(), padded(record, 16).c_str(), linesText(row).c_str());
    for (const std::string& why : row.why) std::fputs(wrapped(why, 10, columns()).c_str(), stdout);
}

void printText(const Load& load) {
    const EboLoad* shown = nullptr;
    for (const ModuleRow& row : moduleRows(load)) {
        if (row.place->load != shown) {
            if (shown != nullptr) std::putchar('\n');
            shown = row.place->load;
            std::printf("%s%s\n%-8s  %-10s  %-9s  %-13s  %-16s  %s\n",
                        styled(Style::Bold, shown->root).c_str(), masksText(*shown, load.tuning).c_str(),
                        "MODULE", "ASKED", "EFFECTIVE", "BIT", "RECORD", "DUMP");
        }
        printRow(row);
    }
}

ExitStatus run(const ExplainOptions& options) {
    const Load load = loadTuning(options.file, options.part);
    if (!load.loaded) {
        complain(whyNotLoaded(load, options.file));
        return kFailure;
    }
    if (options.format == "json") {
        std::fputs(modulesJson(options.file, load).c_str(), stdout);
    } else {
        printText(load);
    }
    return kSuccess;
}

}  // namespace

void addExplainCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command =
        app.add_subcommand("explain", "Shows what a file asks of each module and what becomes of it");
    auto options = std::make_shared<ExplainOptions>();
    addPartOption(*command, options->part);
    addFormatOption(*command, options->format);
    addColorOption(*command);
    command->add_option("FILE", options->file, "Tuning file; - is standard input")->required();
    command->footer(
        "Examples:\n"
        "  eboconf explain lamp.json\n"
        "  eboconf explain --part ao lamp.json    the playback path alone\n\n"
        "Exit status: 0 explained, 1 not loaded, 2 wrong usage.");
    command->callback([options, &status] { status = run(*options); });
}
