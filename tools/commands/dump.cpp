// eboconf dump: loads a file the way a host does and prints the records.
#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>
#include <string>

#include "commands/commands.h"
#include "model/dump_lines.h"
#include "model/records.h"
#include "model/spool.h"
#include "model/tuning.h"

namespace {

struct DumpOptions {
    std::string part = "full";
    bool verbose = false;
    std::string file;
    std::string path;  // what to open in its place
};

void tell(const DumpOptions& options, const char* what, const char* root) {
    if (options.verbose) {
        std::fprintf(stderr, "eboconf: %s: loaded from \"%s\" of %s\n", what, root, options.file.c_str());
    }
}

bool refuse(const DumpOptions& options, const char* what) {
    std::fprintf(stderr, "eboconf: %s: the %s does not load\n", options.file.c_str(), what);
    return false;
}

bool dumpAec(const DumpOptions& options) {
    const AecRecord aec(parseEboAecConfigs(options.path.c_str()));
    if (!aec) return refuse(options, "echo canceller");
    tell(options, "echo canceller", "ebo_configs");
    printLines(dumpLines([&] { dumpEboAecConfig(aec.get()); }));
    return true;
}

bool dumpBeamForm(const DumpOptions& options) {
    const BeamFormRecord bf(parseEboBeamFormConfigs(options.path.c_str()));
    if (!bf) return refuse(options, "beamformer");
    tell(options, "beamformer", "ebo_configs");
    printLines(dumpLines([&] { dumpEboBeamFormConfig(bf.get()); }));
    return true;
}

// The loader itself takes a playback path of which nothing could be read; at the desk that is a file without
// one.
bool dumpAo(const DumpOptions& options) {
    const PlaybackRoot ebo(parseEboAoConfigs(options.path.c_str()));
    if (!ebo || (ebo->rx->anr == nullptr && ebo->rx->howl == nullptr)) {
        return refuse(options, "playback path");
    }
    tell(options, "playback", "ebo_ao_configs");
    printLines(dumpLines([&] { dumpEboAoConfig(ebo->rx); }));
    return true;
}

// Gain control has no dump of its own: its record is hung in an otherwise empty beamformer.
bool dumpAgc(const DumpOptions& options) {
    const AgcRecord agc(parseEboAgcConfigsFile(options.path.c_str()));
    if (!agc) return refuse(options, "gain control");
    tell(options, "gain control", "ebo_agc_configs");
    EboBeamFormParam bf = {};
    bf.model_en = EBO_BF_AGC;
    bf.agc = agc.get();
    const DumpLines lines = dumpLines([&] { dumpEboBeamFormConfig(&bf); });
    printLines({std::find(lines.begin(), lines.end(), "agc:"), lines.end() - 1});
    return true;
}

bool dumpFull(const DumpOptions& options) {
    const CaptureRoot ebo(parseEboConfigs(options.path.c_str()));
    if (!ebo) return refuse(options, "capture path");
    tell(options, "echo canceller", "ebo_configs");
    tell(options, "beamformer", "ebo_configs");
    printLines(dumpLines([&] {
        dumpEboAecConfig(ebo->aec);
        dumpEboBeamFormConfig(ebo->bf);
    }));
    KAJsonParser document;
    document.parseFile(options.path.c_str());
    return !hasRoot(document, kPlaybackRoot) || dumpAo(options);
}

const std::map<std::string, bool (*)(const DumpOptions&)> kParts = {
    {"full", dumpFull}, {"aec", dumpAec}, {"beamform", dumpBeamForm}, {"ao", dumpAo}, {"agc", dumpAgc},
};

}  // namespace

void addDumpCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command =
        app.add_subcommand("dump", "Loads a file and prints the records, as a device logs them");
    auto options = std::make_shared<DumpOptions>();
    command
        ->add_option("--part", options->part,
                     "Loader to use; full: the whole capture path, and the playback path if the file has one")
        ->check(CLI::IsMember(&kParts))
        ->capture_default_str();
    command->add_flag("--verbose", options->verbose, "Tells on standard error what was loaded from where");
    command->add_option("FILE", options->file, "Tuning file; - is standard input")->required();
    command->callback([options, &status] {
        const SpooledFile spooled(options->file);
        options->path = spooled.path();
        status = kParts.at(options->part)(*options) ? kLoaded : kNotLoaded;
    });
}
