#include "many_files.h"

#include "../check/loading.h"
#include "../check/mutation.h"

std::vector<std::string> givenTexts() {
    std::vector<std::string> texts;
    for (const char* folder : {TUNINGS, EBO_FAULTY_INPUTS_DIR}) {
        for (const std::string& file : filesIn(folder, ".json")) texts.push_back(readText(file));
    }
    for (const char* root : {"ebo_configs", "ebo_ao_configs", "ebo_agc_configs"}) {
        const std::string name = root;
        for (const char* value :
             {"{}", "[]", "5", "null", "\"text\"", R"({"anr": 1, "agc": [], "aec": "x"})"}) {
            texts.push_back("{\"" + name + "\": " + value + "}");
        }
        texts.push_back("{\"" + name + "\\u0000\": {}}");
        texts.push_back("{\"" + name + "\\u0000\": {}, \"" + name + "\": {\"agc\\u0000\": {}}}");
        texts.push_back("{\"" + name + "\": {}, \"" + name + "\": 1}");
    }
    for (const char* text :
         {"", "{}", "[]", "[{}]", "1", "{\"other\": {}}", "{\"ebo_configs", "{\"EBO_CONFIGS\": {}}"})
        texts.emplace_back(text);
    return texts;
}

std::vector<std::string> manyTexts() {
    constexpr size_t kMutations = 2000;
    std::vector<std::string> texts = givenTexts();
    std::vector<Tree> trees;
    for (const std::string& file : filesIn(TUNINGS, ".json")) trees.push_back(treeOf(readText(file)));
    std::mt19937 random(1);
    for (size_t i = 0; i < kMutations; ++i) texts.push_back(mutated(trees[i % trees.size()], random));
    return texts;
}
