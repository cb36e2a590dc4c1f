// The fuzzers start from the examples: a key that no example has would be found by luck alone.
#include <gtest/gtest.h>
#include <parse/section.h>

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
                EXPECT_TRUE(holds(document, root, section, section.rows[i]))
                    << entry.path() << " lacks " << root << "/" << section.name << "/" << section.rows[i].key;
            }
        };
        for (const EboLoadStep& step : kEboLoadOrder) expectKeys("ebo_configs", *step.section);
        expectKeys("ebo_ao_configs", kEboAnrSection);
        expectKeys("ebo_ao_configs", kEboHowlSection);
        expectKeys("ebo_agc_configs", kEboAgcSection);
    }
    EXPECT_GT(files, 0);
}

}  // namespace
