// eboconf dump: loads a file the way a host does and prints the records.
#include <ka/framework.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>

#include "commands/commands.h"
#include "commands/part_option.h"
#include "model/dump_lines.h"
#include "model/records.h"
#include "model/spool.h"

namespace {

struct DumpOptions {
    Part part = nullptr;
    bool verbose = false;
    std::string file;
    std::string path;  // what to open in its place
};

using Dump = bool (*)(const DumpOptions& options);

template <auto Parse, auto Print, typename Owner>
bool dumpRecord(const DumpOptions& options) {
    const Owner record(Parse(options.path.c_str()));
    if (!record) return false;
    printLines(dumpLines([&] { Print(*record); }));
    return true;
}

void printCapture(KAEboParam& ebo) {
    dumpEboAecConfig(ebo.aec);
    dumpEboBeamFormConfig(ebo.bf);
}
void printAec(EboAecParam& aec) {
    dumpEboAecConfig(&aec);
}
void printBeamForm(EboBeamFormParam& bf) {
    dumpEboBeamFormConfig(&bf);
}
void printPlayback(KAEboParam& ebo) {
    dumpEboAoConfig(ebo.rx);
}

// Gain control has no dump of its own, so no device logs this: its record is hung in an otherwise empty beamformer.
bool dumpAgc(const DumpOptions& options) {
    const AgcRecord agc(parseEboAgcConfigsFile(options.path.c_str()));
    if (!agc) return false;
    EboBeamFormParam bf = {};
    bf.model_en = EBO_BF_AGC;
    bf.agc = agc.get();
    const DumpLines lines = dumpLines([&] { dumpEboBeamFormConfig(&bf); });
    printLines({std::find(lines.begin(), lines.end(), "agc:"), lines.end() - 1});
    return true;
}

// In the order of kEboLoads. The reader of a section bears the name of a loader too.
using AecLoader = EboAecParam* (*)(const char*);
const Dump kDumps[kEboLoadCount] = {
    dumpRecord<parseEboConfigs, printCapture, CaptureRoot>,
    dumpRecord<static_cast<AecLoader>(parseEboAecConfigs), printAec, AecRecord>,
    dumpRecord<parseEboBeamFormConfigs, printBeamForm, BeamFormRecord>,
    dumpRecord<parseEboAoConfigs, printPlayback, PlaybackRoot>,
    dumpAgc,
};

bool dumpLoad(const DumpOptions& options, const EboLoad& load) {
    const char* const name = componentOf(load);
    if (!kDumps[&load - kEboLoads](options)) {
        std::fprintf(stderr, "eboconf: %s: the %s does not load\n", options.file.c_str(), name);
        return false;
    }
    if (options.verbose)
        std::fprintf(stderr, "eboconf: %s: loaded from \"%s\" of %s\n", name, load.root,
                     options.file.c_str());
    return true;
}

// What no device logs is left out, unless there is nothing else or it was asked for.
std::vector<const EboLoad*> loggedLoads(const DumpOptions& options) {
    KAJsonParser document;
    if (options.part == nullptr && document.parseFile(options.path.c_str()) == 0) return {};
    std::vector<const EboLoad*> loads = loadsOf(options.part, document);
    if (loads.size() > 1 && loads.back() == &kEboLoads[kEboAgcLoad]) loads.pop_back();
    return loads;
}

ExitStatus dump(const DumpOptions& options) {
    const std::vector<const EboLoad*> loads = loggedLoads(options);
    const bool all = std::all_of(loads.begin(), loads.end(),
                                 [&options](const EboLoad* load) { return dumpLoad(options, *load); });
    return !loads.empty() && all ? kLoaded : kNotLoaded;
}

}  // namespace

void addDumpCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command =
        app.add_subcommand("dump", "Loads a file and prints the records, as a device logs them");
    auto options = std::make_shared<DumpOptions>();
    addPartOption(*command, options->part);
    command->add_flag("--verbose", options->verbose, "Tells on standard error what was loaded from where");
    command->add_option("FILE", options->file, "Tuning file; - is standard input")->required();
    command->callback([options, &status] {
        const SpooledFile spooled(options->file);
        options->path = spooled.path();
        status = dump(*options);
    });
}
