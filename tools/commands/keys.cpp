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
    std::string format = "text";
};

// What to do about a name that nothing has.
std::string hintAbout(const std::string& name) {
    std::vector<std::string> known;
    for (const KeyHit& hit : findKeys("").list) {
        known.push_back(hit.name());
        if (hit.key) known.push_back(hit.key->key);
    }
    const std::string nearest = nearestName(name, known);
    return nearest.empty() ? "see: eboconf keys --format names" : "did you mean " + inQuotes(nearest) + "?";
}

ExitStatus run(const KeysOptions& options) {
    const std::string& format = options.format;
    if (format == "markdown" || format == "dictionary") {
        if (!options.name.empty()) {
            return refuse("keys", "--format " + format + " takes no name: it is always the whole reference");
        }
        std::fputs((format == "markdown" ? keysMarkdown() : keysDictionary()).c_str(), stdout);
        return kSuccess;
    }
    const KeyHits hits = findKeys(options.name);
    if (hits.list.empty()) {
        return refuse("keys", "no section or key is named " + inQuotes(options.name) +
                                  " or says so in its meaning; " + hintAbout(options.name));
    }
    const std::string text = format == "json"    ? keysJson(hits)
                             : format == "names" ? keysNames(hits)
                                                 : keysText(hits, columns());
    std::fputs(text.c_str(), stdout);
    return kSuccess;
}

}  // namespace

void addKeysCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command = app.add_subcommand("keys", "Explains the sections and keys of a tuning file");
    auto options = std::make_shared<KeysOptions>();
    command->add_option(
        "NAME", options->name,
        "Only this section or key (agc, agc.fRk0, fRk0), or all that have this word in their name or "
        "meaning (freq)");
    command
        ->add_option(
            "--format", options->format,
            "Form of the reference: for people, for programs, as a page, for fuzzers, or the names alone")
        ->check(CLI::IsMember({"text", "json", "markdown", "dictionary", "names"}))
        ->capture_default_str();
    command->footer(
        "Examples:\n"
        "  eboconf keys agc         a section with its keys\n"
        "  eboconf keys fRk0        a key\n"
        "  eboconf keys freq        all keys about frequencies\n\n"
        "Exit status: 0 printed, 2 no such section or key, or wrong usage.");
    command->callback([options, &status] { status = run(*options); });
}
