// Writes trees as C, and the tuning files that they are of:
//
//     write_trees FOLDER SOURCES given every loader's tree of each example and faulty input that loads
//     write_trees FOLDER SOURCES FIRST COUNT random trees
//
// FOLDER gets trees_0.c ... of SOURCES sources, trees.h, trees.inc with a line for each, TREE(part, name,
// channels, file), and the files.
#include <ka/log_sink.h>

#include <cstdlib>
#include <fstream>
#include <iostream>

#include "many_files.h"
#include "random_tuning.h"
#include "report/export.h"

namespace {

class Folder {
public:
    Folder(std::string path, size_t sources) : path_(std::move(path)), declarations_(path_ + "/trees.h") {
        list_.open(path_ + "/trees.inc");
        for (size_t i = 0; i < sources; ++i)
            sources_.emplace_back(path_ + "/trees_" + std::to_string(i) + ".c");
    }

    std::string addFile(const std::string& text) {
        const std::string file = path_ + "/" + std::to_string(++files_) + ".json";
        std::ofstream(file, std::ios::binary) << text;
        return file;
    }

    void addTree(const Tuning& tuning, const EboLoad& load, const std::string& file) {
        const std::string name = "tree_" + std::to_string(trees_++);
        const BuiltIn result = exportBuiltIn(tuning, load, name);
        declarations_ << result.declaration;
        sources_[trees_ % sources_.size()] << result.definition;
        list_ << "TREE(" << load.name << ", " << name << ", " << tuning.channels << ", \"" << file << "\")\n";
    }

    bool isWritten() {
        for (std::ofstream& source : sources_) {
            if (!source.flush()) return false;
        }
        return declarations_.flush() && list_.flush() && trees_ > 0;
    }

private:
    const std::string path_;
    std::ofstream declarations_;
    std::ofstream list_;
    std::vector<std::ofstream> sources_;
    size_t files_ = 0;
    size_t trees_ = 0;
};

void addGiven(Folder& folder) {
    for (const std::string& text : givenTexts()) {
        const std::string file = folder.addFile(text);
        for (const EboLoad& load : kEboLoads) {
            const Load loaded = loadTuning(file, &load);
            if (loaded.loaded) folder.addTree(loaded.tuning, load, file);
        }
    }
}

void addRandom(Folder& folder, uint32_t first, uint32_t count) {
    for (uint32_t seed = first; seed < first + count; ++seed) {
        const Tuning tuning = randomTuning(seed);
        const std::string file = folder.addFile(exportText(tuning).text);
        for (const EboLoad& load : kEboLoads) folder.addTree(tuning, load, file);
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() < 3) return EXIT_FAILURE;
    ka_install_log_sink([](const KaLogMessage&, void*) {}, nullptr);
    Folder folder(arguments[0], std::stoul(arguments[1]));
    if (arguments[2] == "given") {
        addGiven(folder);
    } else {
        addRandom(folder, static_cast<uint32_t>(std::stoul(arguments[2])),
                  static_cast<uint32_t>(std::stoul(arguments.at(3))));
    }
    return folder.isWritten() ? EXIT_SUCCESS : EXIT_FAILURE;
}
