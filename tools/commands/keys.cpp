// eboconf keys: the reference of all sections and keys.
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "commands/commands.h"
#include "report/keys.h"
#include "text/terminal.h"
#include "text/words.h"

namespace {

struct KeysOptions {
    std::string name;
    bool markdown = false;
    bool dictionary = false;
    bool names = false;
};

std::string everySection() {
    std::string text;
    for (const SectionPlace& place : sectionPlaces()) {
        if (place.load != rootLoads().front()) continue;
        if (!text.empty()) text += "\n";
        text += sectionReference(place, columns());
    }
    return text;
}

// The reference of what `name` names, of every key of that name where no section is named with it; empty when there is
// no such thing.
std::string referenceOf(const std::string& name) {
    std::string keys;
    for (const SectionPlace& place : sectionPlaces()) {
        if (nameOf(place) == name) return sectionReference(place, columns());
        for (const KeyFacts& facts : factsOf(place)) {
            if (facts.name == name) return keyReference(facts, columns());
            if (facts.key == name) keys += (keys.empty() ? "" : "\n") + keyReference(facts, columns());
        }
    }
    return keys;
}

// What to do about a name that does not exist.
std::string hintAbout(const std::string& name) {
    std::vector<std::string> known;
    for (const SectionPlace& place : sectionPlaces()) {
        known.push_back(nameOf(place));
        for (const KeyFacts& facts : factsOf(place)) {
            known.push_back(facts.name);
            known.push_back(facts.key);
        }
    }
    const std::string nearest = nearestName(name, known);
    return nearest.empty() ? "see: eboconf keys --names" : "did you mean " + ::quoted(nearest) + "?";
}

ExitStatus run(const KeysOptions& options) {
    std::string text;
    if (options.markdown) {
        text = markdownReference();
    } else if (options.dictionary) {
        text = fuzzDictionary();
    } else if (options.names) {
        text = nameList();
    } else if (options.name.empty()) {
        text = everySection();
    } else {
        text = referenceOf(options.name);
    }
    if (text.empty()) {
        std::fprintf(stderr, "eboconf: there is no section or key %s; %s\n", ::quoted(options.name).c_str(),
                     hintAbout(options.name).c_str());
        return kUsage;
    }
    std::fputs(text.c_str(), stdout);
    return kLoaded;
}

}  // namespace

void addKeysCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command = app.add_subcommand("keys", "Explains the sections and keys of a tuning file");
    auto options = std::make_shared<KeysOptions>();
    CLI::Option* name =
        command->add_option("NAME", options->name, "Only this section or key: agc, agc.fRk0, fRk0");
    CLI::Option* markdown =
        command->add_flag("--markdown", options->markdown, "The whole reference as Markdown");
    CLI::Option* dictionary =
        command->add_flag("--dictionary", options->dictionary, "A dictionary for fuzzers");
    CLI::Option* names = command->add_flag("--names", options->names, "The names alone, one per line");
    markdown->excludes(dictionary, names, name);
    dictionary->excludes(names, name);
    names->excludes(name);
    command->footer("Exit status: 0 printed, 2 no such section or key, or wrong usage.");
    command->callback([options, &status] { status = run(*options); });
}
