// The fuzzers start from the examples: a key that no example has would be found by luck alone.
#include <gtest/gtest.h>
#include <parse/loads.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

using nlohmann::json;

namespace {

bool holds(const json& document, const std::string& root, const EboSection& section, const EboKeyRow& row) {
    return document.contains(root) && document[root].contains(section.name) &&
           document[root][section.name].contains(row.key);
}

TEST(Seeds, HoldEveryKeyOfEveryRoot) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(EBO_TUNINGS_DIR)) {
        ++files;
        std::ifstream file(entry.path());
        const json document = json::parse(file);
        const auto expectKeys = [&](const std::string& root, const EboSection& section) {
            for (uint16_t i = 0; i < section.rowCount; ++i) {
                if (section.rows[i].ifMissing == EboIfMissing::NoKey) continue;
                EXPECT_TRUE(holds(document, root, section, section.rows[i]))
                    << entry.path() << " lacks " << root << "/" << section.name << "/" << section.rows[i].key;
            }
        };
        for (const EboLoad& load : kEboLoads) {
            for (size_t i = 0; i < load.sectionCount; ++i) expectKeys(load.root, *load.sections[i]);
        }
    }
    EXPECT_GT(files, 0);
}

}  // namespace
