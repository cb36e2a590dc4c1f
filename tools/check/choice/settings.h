// eboconf.toml: what a team has agreed on for the files of a folder and of those in it. docs/eboconf-toml.md.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "check/choice/codes.h"
#include "text/glob.h"

struct SettingsFault {
    uint32_t line;  // from 1; 0: the file as a whole
    uint32_t column;
    std::string text;
};

struct Settings {
    std::string file;
    CheckChoice check;
    std::vector<PathParts> exclude;     // patterns of paths below the file's folder
    std::vector<SettingsFault> faults;  // in the order of their places
};

Settings readSettings(const std::string& file);

// The settings of each file: those of the nearest eboconf.toml, from its folder upwards. Reads each once.
class NearestSettings {
public:
    // Without any eboconf.toml nothing is said. Valid as long as this object.
    const Settings& of(const std::string& file) { return *near(file).settings; }
    // Whether what is found in a folder, a file or a folder, is left out by the settings of that folder.
    bool isExcluded(const std::string& found);
    // Those read so far that have faults.
    std::vector<const Settings*> faulty() const;

private:
    struct Near {
        const Settings* settings;
        std::string below;  // the folder, seen from that of the settings
    };
    const Near& near(const std::string& file);

    std::map<std::string, Near> folders_;
    std::map<std::string, Settings> read_;
};
