#include "tuning_files.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <nlohmann/json.hpp>

namespace {

constexpr const char* kExamples[] = {"two-mic-speaker", "six-mic-conference",
                                     "minimal"};  // the main one first

std::string examplePath(const std::string& name) {
    return EBO_TUNINGS_DIR "/" + name + ".json";
}

nlohmann::ordered_json parsed(const std::string& path) {
    std::ifstream file(path);
    return nlohmann::ordered_json::parse(file);
}

TuningFile described(const std::string& name, const std::string& path) {
    const auto aec = parsed(path).at("ebo_configs").at("aec");
    const std::string map = aec.value("mic_chn_map", "0");
    return {name, path, std::filesystem::file_size(path), std::strtoul(map.c_str(), nullptr, 10)};
}

}  // namespace

std::vector<TuningFile> exampleFiles() {
    std::vector<TuningFile> files;
    for (const char* name : kExamples) files.push_back(described(name, examplePath(name)));
    return files;
}

TuningFile grownFile(const std::string& folder, size_t times) {
    const nlohmann::ordered_json example = parsed(examplePath(kExamples[0]));
    nlohmann::ordered_json grown;
    for (size_t copy = 1; copy < times; ++copy) {
        for (const auto& [name, root] : example.items())
            grown["old_" + std::to_string(copy) + "_" + name] = root;
    }
    for (const auto& [name, root] : example.items()) grown[name] = root;
    const std::string name = "x" + std::to_string(times);
    const std::string path = folder + "/" + name + ".json";
    std::ofstream(path) << grown.dump(2) << '\n';
    return described(name, path);
}
