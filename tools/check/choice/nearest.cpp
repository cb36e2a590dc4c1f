#include <algorithm>
#include <filesystem>
#include <system_error>

#include "check/choice/settings.h"

namespace {

namespace fs = std::filesystem;

constexpr char kSettingsFile[] = "eboconf.toml";
const Settings kNoSettings;

}  // namespace

const NearestSettings::Near& NearestSettings::near(const std::string& file) {
    const std::string folder = fs::path(file).parent_path();
    const auto known = folders_.find(folder);
    if (known != folders_.end()) return known->second;
    Near& near = folders_[folder] = {&kNoSettings, ""};
    // Of links, what they lead to: "upwards" must not depend on the way there.
    std::error_code error;
    const fs::path below = fs::canonical(folder.empty() ? "." : folder, error);
    for (fs::path at = below; !at.empty(); at = at == at.root_path() ? "" : at.parent_path()) {
        const fs::path path = at / kSettingsFile;
        std::error_code unknown;
        if (!fs::exists(fs::symlink_status(path, unknown))) continue;
        auto read = read_.find(path);
        if (read == read_.end()) read = read_.emplace(path, readSettings(path)).first;
        near = {&read->second, below.lexically_relative(at)};
        break;
    }
    return near;
}

bool NearestSettings::isExcluded(const std::string& found) {
    const Near& near = this->near(found);
    if (near.settings->exclude.empty()) return false;
    PathParts path = partsOfPath(near.below);
    path.push_back(fs::path(found).filename());
    const auto& patterns = near.settings->exclude;
    return std::any_of(patterns.begin(), patterns.end(),
                       [&path](const PathParts& pattern) { return matchesGlob(pattern, path); });
}

std::vector<const Settings*> NearestSettings::faulty() const {
    std::vector<const Settings*> all;
    for (const auto& [file, settings] : read_) {
        if (!settings.faults.empty()) all.push_back(&settings);
    }
    return all;
}
