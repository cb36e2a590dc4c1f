#include "commands/part_option.h"

CLI::Option* addPartOption(CLI::App& command, Part& part) {
    static const std::map<std::string, Part> kParts = {
        {"full", Part::File},   {"aec", Part::Aec},  {"beamform", Part::BeamForm},
        {"ao", Part::Playback}, {"agc", Part::Gain},
    };
    return command
        .add_option_function<std::string>(
            "--part", [&part](const std::string& name) { part = kParts.at(name); },
            "Loader to use; full: every part that the file has")
        ->check(CLI::IsMember(&kParts))
        ->default_str("full");
}
