// eboconf explain: what a file asks for and what becomes of it.
#include <algorithm>
#include <cstdio>
#include <memory>

#include "commands/commands.h"
#include "commands/part_option.h"
#include "model/modules.h"
#include "report/json_writer.h"
#include "text/terminal.h"

namespace {

struct ExplainOptions {
    Part part = Part::File;
    std::string file;
};

std::string hex(const char* name, int32_t mask) {
    char text[64];
    std::snprintf(text, sizeof(text), "  %s 0x%x", name, static_cast<unsigned int>(mask));
    return text;
}

// Every mask under a root, once.
std::string masksOf(const char* root, const Tuning& tuning) {
    std::string text;
    for (const SectionPlace& place : sectionPlaces()) {
        const int32_t* mask = place.maskOf(tuning);
        if (place.root != root || mask == nullptr || root == kGainRoot) continue;
        const bool lone = tuning.capture && (tuning.capture->aec == nullptr || tuning.capture->bf == nullptr);
        if (lone && mask == &tuning.capture->model_en) continue;  // who loads one component gets no root
        const std::string shown = hex(place.mask, *mask);
        if (text.find(shown) == std::string::npos) text += shown;
    }
    return text;
}

// A status is whatever the file says, at any length.
std::string askedText(const std::string& asked) {
    constexpr size_t kWidth = 10;
    const bool plain = std::all_of(asked.begin(), asked.end(), [](char c) { return c > ' ' && c < 0x7f; });
    const std::string text = plain && !asked.empty() ? asked : quoted(asked);
    return text.size() <= kWidth ? text : text.substr(0, kWidth - 3) + "...";
}

std::string bitText(const ModuleRow& row) {
    if (row.place->root == kGainRoot) return "none";
    char text[32];
    std::snprintf(text, sizeof(text), "0x%x %s", static_cast<unsigned int>(row.place->bit),
                  row.enabled ? "set" : "clear");
    return text;
}

std::string linesText(const ModuleRow& row) {
    if (row.lines == 0) return "nothing";
    return std::to_string(row.lines) + (row.lines == 1 ? " line" : " lines");
}

void printRow(const ModuleRow& row) {
    const std::string module = padded(row.place->section->name, 8);
    const bool effective = row.enabled && row.place->root != kGainRoot;
    const bool lost =
        row.place->record != nullptr && !row.recorded && row.place->section != &kEboDelaySection;
    std::string result = effective ? "enabled" : "disabled";
    if (lost) result = "missing";
    if (row.place->root == kGainRoot) result = "loaded";
    const std::string record = row.place->record == nullptr ? "-" : row.recorded ? row.place->record : "none";
    std::printf("%s  %s  %s  %s  %s  %s\n", styled(Style::Bold, module).c_str(),
                padded(askedText(row.asked), 10).c_str(),
                styled(effective ? Style::Green : Style::Faint, padded(result, 9)).c_str(),
                padded(bitText(row), 13).c_str(), padded(record, 16).c_str(), linesText(row).c_str());
    for (const std::string& why : row.why) std::fputs(wrapped(why, 10, columns()).c_str(), stdout);
}

ExitStatus run(const ExplainOptions& options) {
    const Load load = loadTuning(options.file, options.part);
    if (!load.loaded) {
        std::fprintf(stderr, "eboconf: %s\n", whyNotLoaded(load, options.file).c_str());
        return kNotLoaded;
    }
    const char* root = nullptr;
    for (const ModuleRow& row : moduleRows(load)) {
        if (row.place->root != root) {
            if (root != nullptr) std::putchar('\n');
            root = row.place->root;
            std::printf("%s%s\n%-8s  %-10s  %-9s  %-13s  %-16s  %s\n", styled(Style::Bold, root).c_str(),
                        masksOf(root, load.tuning).c_str(), "MODULE", "ASKED", "EFFECTIVE", "BIT", "RECORD",
                        "DUMP");
        }
        printRow(row);
    }
    return kLoaded;
}

}  // namespace

void addExplainCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command =
        app.add_subcommand("explain", "Shows what a file asks of each module and what becomes of it");
    auto options = std::make_shared<ExplainOptions>();
    addPartOption(*command, options->part);
    command->add_option("FILE", options->file, "Tuning file; - is standard input")->required();
    command->callback([options, &status] { status = run(*options); });
}
