// What is exported loads to the same records, keeps every value of the file, and is exported again as it is.
#include <gmock/gmock.h>
#include <ka/json_table.h>

#include <algorithm>

#include "many_files.h"
#include "memory_file.h"
#include "model/differences.h"
#include "model/module_dump.h"
#include "random_tuning.h"
#include "report/export.h"

namespace {

using testing::HasSubstr;

Load load(const std::string& text, Part part) {
    const MemoryFile file;
    file.write(text);
    return loadTuning(file.path(), part, FileText::Kept);
}

FileExport exported(const std::string& text, Part part = nullptr) {
    return exportFile(load(text, part), part, "FILE");
}

// An array, or an object below a key, without blanks.
std::string squeezed(const std::string& text, size_t at) {
    std::string value;
    bool quoted = false;
    for (int depth = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (quoted || std::string(" \t\r\n").find(c) == std::string::npos) value += c;
        if (quoted && c == '\\') value += text[++at];
        if (c == '"') quoted = !quoted;
        if (quoted) continue;
        if (c == '[' || c == '{') ++depth;
        if ((c == ']' || c == '}') && --depth == 0) break;
    }
    return value;
}

// Path and value of each item, sorted.
std::vector<std::string> statedBy(const Load& load) {
    std::vector<std::string> stated;
    std::string path[4];
    KAJsonTable table(*load.document);
    for (KaJsonItem item = {}; table.next(&item);) {
        path[item.level] = path[item.level - 1] + "/" + std::string(item.name, item.name_length);
        std::string value;
        if (item.value != nullptr) value.assign(item.value, item.value_length);
        const bool nested =
            item.kind == KaJsonKind::kArray || (item.kind == KaJsonKind::kObject && item.level == 3);
        if (nested) value = squeezed(load.text, item.value_offset);
        if (item.kind == KaJsonKind::kBool) value = load.text.substr(item.value_offset, 4);
        stated.push_back(path[item.level] + " " + std::to_string(static_cast<int>(item.kind)) + " " + value);
    }
    std::sort(stated.begin(), stated.end());
    return stated;
}

TEST(FileExport, KeepsWhatTheFileStatesAndLoads) {
    size_t kept = 0;
    size_t refused = 0;
    size_t next = 0;
    for (const std::string& text : manyTexts()) {
        for (const Part part : {Part(nullptr), Part(&kEboLoads[next++ % kEboLoadCount])}) {
            const Load from = load(text, part);
            if (!from.loaded) continue;
            const FileExport result = exportFile(from, part, "FILE");
            if (!result.refusal.empty()) {
                ASSERT_THAT(result.refusal, HasSubstr(": cannot be exported: duplicate ")) << text;
                ++refused;
                continue;
            }
            const Load to = load(result.text, part);
            ASSERT_TRUE(to.loaded) << text << "\n" << result.text;
            ASSERT_EQ(bytesOf(to.tuning), bytesOf(from.tuning)) << text << "\n" << result.text;
            ASSERT_EQ(to.tuning.channels, from.tuning.channels);
            for (const EboLoad* one : from.loads)
                ASSERT_EQ(linesOfLoad(*one, to.tuning), linesOfLoad(*one, from.tuning));
            const Differences differences = differencesOf(from.tuning, to.tuning);
            ASSERT_TRUE(differences.switches.empty() && differences.values.empty());
            ASSERT_EQ(exportFile(to, part, "FILE").text, result.text);
            if (part == nullptr) {
                const std::vector<std::string> before = statedBy(from);
                const std::vector<std::string> after = statedBy(to);
                ASSERT_TRUE(std::includes(after.begin(), after.end(), before.begin(), before.end()))
                    << text << "\n"
                    << result.text;
            }
            ++kept;
        }
    }
    EXPECT_GT(kept, 1000U);
    EXPECT_GT(refused, 20U);
}

TEST(FileExport, RefusesWhatIsStatedTwiceWithItsPlace) {
    const std::pair<const char*, const char*> cases[] = {
        {"{\"ebo_ao_configs\": {},\n \"ebo_ao_configs\": {}}",
         "FILE:2:2: cannot be exported: duplicate root object \"ebo_ao_configs\", also on line 1; only the "
         "last one "
         "is read"},
        {"{\"ebo_ao_configs\": {\n\"anr\": 1,\n\n \"anr\": {}}}",
         "FILE:4:2: cannot be exported: duplicate section \"anr\", also on line 2; only the last one is "
         "read"},
        {"{\"ebo_ao_configs\": {\"howl\": {\"mode\": 2, \"mode\": 2}}}",
         "FILE:1:41: cannot be exported: duplicate key \"mode\", also on line 1; only the last one is read"},
    };
    for (const auto& [text, refusal] : cases) {
        const FileExport result = exported(text);
        EXPECT_EQ(result.refusal, refusal);
        EXPECT_EQ(result.text, "");
    }
}

TEST(FileExport, OfAPartLeavesOutWhatOtherLoadsRead) {
    const std::string text =
        R"({"ebo_configs": {"//": "why", "aec": {"status": "on", "drop_ref_channel": 1, "delay_len": 1,)"
        R"("look_ahead": 1, "filter_len": 1}, "bf": {"status": "x"}, "mine": 1}, "ebo_ao_configs": {}})";
    EXPECT_EQ(exported(text, &kEboLoads[kEboAecLoad]).text, R"({
  "ebo_configs": {
    "//": "why",
    "aec": {
      "status": "on",
      "drop_ref_channel": 1,
      "delay_len": 1,
      "look_ahead": 1,
      "filter_len": 1
    },
    "mine": 1
  }
}
)");
    EXPECT_EQ(exported("{}", &kEboLoads[kEboAoLoad]).text, "{\n  \"ebo_ao_configs\": {}\n}\n");
}

// What a device takes for a key that is missing is written down, but not where it looks at no key.
TEST(FileExport, SuppliesWhatAFileMayLack) {
    const auto exportOf = [](const char* wakeup) {
        const std::string text = R"({"ebo_configs": {"bf": {"status": "", "drop_ref_channel": 0, "targ": 1})";
        return exported(text + wakeup + "}}", &kEboLoads[kEboBeamFormLoad]).text;
    };
    const char* const disabled = "    \"wakeup\": {\n      \"status\": \"disable\"\n    }\n";
    EXPECT_THAT(exportOf(""), HasSubstr(disabled));
    EXPECT_THAT(exportOf(R"(, "wakeup": {})"), HasSubstr(disabled));
    EXPECT_THAT(exportOf(R"(, "wakeup": {"mode": 2, "status": "enable"})"), HasSubstr(R"(
      "status": "enable",
      "wakeup_frames": 180,
      "wakeup_words": 0,
      "mode": 2,
      "model_word1": "",
      "model_word2": ""
)"));
}

}  // namespace
