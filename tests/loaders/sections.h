// The sections under "ebo_configs" that every load requires, in the order in which it reads them.
#pragma once

#include <stdexcept>

#include "sections/sections.h"

struct RequiredSection {
    std::string name;
    std::string reader;             // its function
    std::vector<std::string> keys;  // the required ones, in the order in which they are read
};

inline const std::vector<RequiredSection>& requiredSections() {
    static const std::vector<RequiredSection> sections = [] {
        std::vector<RequiredSection> all;
        for (const char* name : {"aec", "bf", "fast_aec", "gsc", "wind", "agc", "anr", "nlp", "dereverb",
                                 "cng", "dtd", "aes", "howl", "doa", "ainr"}) {
            RequiredSection section = {name, sectionOf(name).function, {}};
            for (const Key& key : keysOf(name))
                if (key.missing != kOptional) section.keys.push_back(key.name);
            all.push_back(section);
        }
        return all;
    }();
    return sections;
}

// What a reader says about a missing key.
inline std::string missingText(const std::string& section, const std::string& name) {
    for (const Key& key : keysOf(section))
        if (key.name == name) return key.missing;
    throw std::out_of_range(name);
}
