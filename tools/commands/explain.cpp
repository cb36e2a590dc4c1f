// eboconf explain: what a file asks for and what becomes of it.
#include <algorithm>
#include <cstdio>
#include <memory>

#include "commands/commands.h"
#include "commands/part_option.h"
#include "model/modules.h"
#include "report/json_writer.h"
#include "text/terminal.h"
#include "text/words.h"

namespace {

struct ExplainOptions {
    Part part = nullptr;
    std::string file;
};

// Every mask under a root, once.
std::string masksOf(const EboLoad& load, const Tuning& tuning) {
    std::string text;
    for (const SectionPlace& place : sectionPlaces()) {
        const int32_t* mask = place.maskOf(tuning);
        if (place.load != &load || mask == nullptr || load.maskless != 0) continue;
        const bool lone = tuning.capture && (tuning.capture->aec == nullptr || tuning.capture->bf == nullptr);
        if (lone && mask == &tuning.capture->model_en) continue;  // who loads one component gets no root
        const std::string shown = "  " + place.mask + " " + hexText(*mask);
        if (text.find(shown) == std::string::npos) text += shown;
    }
    return text;
}

// A status is whatever the file says, at any length.
std::string askedText(const std::string& asked) {
    constexpr size_t kWidth = 10;
    const bool plain = std::all_of(asked.begin(), asked.end(), [](char c) { return c > ' ' && c < 0x7f; });
    const std::string text = plain && !asked.empty() ? asked : ::quoted(asked);
    return text.size() <= kWidth ? text : text.substr(0, kWidth - 3) + "...";
}

std::string bitText(const ModuleRow& row) {
    if (row.place->load->maskless != 0) return "none";
    return hexText(row.place->bit) + (row.enabled ? " set" : " clear");
}

std::string linesText(const ModuleRow& row) {
    if (row.lines == 0) return "nothing";
    return std::to_string(row.lines) + (row.lines == 1 ? " line" : " lines");
}

void printRow(const ModuleRow& row) {
    const std::string module = padded(row.place->section->name, 8);
    const bool masked = row.place->load->maskless == 0;
    const bool effective = row.enabled && masked;
    const bool lost = !row.place->record.empty() && !row.recorded && !row.place->leavesNoRecordWhenDisabled();
    std::string result = effective ? "enabled" : "disabled";
    if (lost) result = "missing";
    if (!masked) result = "loaded";
    const std::string record = row.place->record.empty() ? "-" : row.recorded ? row.place->record : "none";
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
    const EboLoad* shown = nullptr;
    for (const ModuleRow& row : moduleRows(load)) {
        if (row.place->load != shown) {
            if (shown != nullptr) std::putchar('\n');
            shown = row.place->load;
            std::printf("%s%s\n%-8s  %-10s  %-9s  %-13s  %-16s  %s\n",
                        styled(Style::Bold, shown->root).c_str(), masksOf(*shown, load.tuning).c_str(),
                        "MODULE", "ASKED", "EFFECTIVE", "BIT", "RECORD", "DUMP");
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
