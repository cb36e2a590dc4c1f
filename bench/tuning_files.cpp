#include "tuning_files.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <utility>

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

TuningFile written(const std::string& folder, const std::string& name, const std::string& text) {
    const std::string path = folder + "/" + name + ".json";
    std::ofstream(path, std::ios::binary) << text;
    return {name, path, text.size(), 0};
}

TuningFile shaped(const std::string& folder, size_t size, const std::string& name, const std::string& begin,
                  const std::string& piece, const std::string& end) {
    std::string text = "{\"r\":{\"s\":{" + begin;
    while (!piece.empty() && text.size() < size) text += piece;
    return written(folder, name + "." + std::to_string(size / 1000000), text + end + "}}}");
}

}  // namespace

std::vector<TuningFile> exampleFiles() {
    std::vector<TuningFile> files;
    for (const char* name : kExamples) files.push_back(described(name, examplePath(name)));
    return files;
}

std::vector<TuningFile> writtenOtherwise(const std::string& folder) {
    const nlohmann::ordered_json example = parsed(examplePath(kExamples[0]));
    const size_t channels = described("", examplePath(kExamples[0])).channels;
    std::ifstream file(examplePath(kExamples[0]));
    std::string lines;
    for (std::string line; std::getline(file, line);) lines += line + "\r\n";

    nlohmann::ordered_json shuffled = example;
    std::mt19937 random(1);
    for (auto& root : shuffled) {
        for (auto& section : root) {
            std::vector<std::pair<std::string, nlohmann::ordered_json>> keys;
            for (const auto& [key, value] : section.items()) keys.emplace_back(key, value);
            for (size_t i = keys.size(); i > 1; --i) std::swap(keys[i - 1], keys[random() % i]);
            section = nlohmann::ordered_json::object();
            for (const auto& [key, value] : keys) section[key] = value;
        }
    }
    std::vector<TuningFile> files = {written(folder, "crlf", lines),
                                     written(folder, "minified", example.dump()),
                                     written(folder, "shuffled", shuffled.dump(2) + "\n")};
    for (TuningFile& other : files) other.channels = channels;
    return files;
}

std::vector<TuningFile> shapes(const std::string& folder, size_t size) {
    std::string deep = "\"k\":";
    deep.append(size / 2, '[');
    const std::string closing(size / 2, ']');
    return {
        shaped(folder, size, "plain keys", "", "\"noise_factor\": 0.25,\n      ", "\"k\":1"),
        shaped(folder, size, "numbers", "\"k\":[", "12,-0.5,", "1]"),
        shaped(folder, size, "exponents", "", "\"noise_factor\": 1.5e-3,\n      ", "\"k\":1"),
        shaped(folder, size, "UTF-8", "\"k\":\"", "\xC3\xA4\xE2\x82\xAC \xE4\xB8\xAD\xE6\x96\x87 text ",
               "\""),
        shaped(folder, size, "escapes", "\"k\":\"", "\\n\\\"\\u00e4\\ud834\\udd1e", "\""),
        shaped(folder, size, "deep arrays", deep, "", closing),
        shaped(folder, size, "flat arrays", "\"k\":[", "[],", "1]"),
        shaped(folder, size, "empty keys", "", "\"\":0,", "\"k\":1"),
        shaped(folder, size, "bare newlines", "", "\n", "\"k\":1"),
        shaped(folder, size, "words", "\"k\":[", "true,null,", "false]"),
    };
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
