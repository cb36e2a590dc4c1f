// What is wrong with a command line.
#include <cstdio>
#include <string>
#include <vector>

#include "commands/commands.h"
#include "commands/options.h"
#include "text/words.h"

namespace {

std::string didYouMean(const std::string& name, const std::vector<std::string>& known) {
    const std::string nearest = nearestName(name, known);
    return nearest.empty() ? "" : "; did you mean " + nearest + "?";
}

std::string listOf(const std::vector<std::string>& values) {
    std::string list;
    for (const std::string& value : values) list += (list.empty() ? "" : ", ") + value;
    return list;
}

// "--format: xml not in {text,json}", "--format: 1 required TEXT:{text,json} missing", or another sentence.
std::string aboutValue(const CLI::App& command, const std::string& message) {
    const size_t colon = message.find(": ");
    const std::string name = message.substr(0, colon);
    const CLI::Option* const option = command.get_option_no_throw(name);
    const std::vector<std::string> known = option != nullptr ? valuesOf(*option) : std::vector<std::string>();
    const size_t end = message.rfind(" not in {");
    if (!known.empty() && end != std::string::npos && end > colon) {
        const std::string value = message.substr(colon + 2, end - colon - 2);
        return name + " is one of " + listOf(known) + ", and not " + inQuotes(value) +
               didYouMean(value, known);
    }
    const std::string missing = " missing";
    if (option == nullptr || message.size() < missing.size() ||
        message.compare(message.size() - missing.size(), missing.size(), missing) != 0)
        return message;
    return name + " needs a value" + (known.empty() ? "" : ", one of " + listOf(known));
}

bool isOptionOfCommands(const CLI::App& app, const std::string& option) {
    const auto having = app.get_subcommands(
        [&option](const CLI::App* command) { return command->get_option_no_throw(option) != nullptr; });
    return !having.empty();
}

std::string aboutOption(const CLI::App& command, const std::string& option) {
    if (isOptionOfCommands(command, option)) return option + " stands after the command";
    std::vector<std::string> known;
    for (const CLI::Option* one : command.get_options()) {
        for (const std::string& name : one->get_lnames()) known.push_back("--" + name);
    }
    return "there is no option " + option + didYouMean(option, known);
}

std::string aboutUnknown(const CLI::App& command, const std::string& word) {
    if (word[0] == '-') return aboutOption(command, word.substr(0, word.find('=')));
    if (command.get_parent() != nullptr) return "there is no place for " + inQuotes(word);
    return "there is no command " + inQuotes(word) + didYouMean(word, commandNames(command));
}

}  // namespace

ExitStatus refuse(const std::string& command, const std::string& sentence) {
    complain(sentence);
    std::fprintf(stderr, "Try 'eboconf %s--help'.\n", command.empty() ? "" : (command + ' ').c_str());
    return kUsage;
}

ExitStatus refuse(const CLI::App& app, const CLI::ParseError& error) {
    const CLI::App* command = &app;
    std::vector<std::string> unknown = app.remaining();
    if (unknown.empty() && !app.get_subcommands().empty()) {
        command = app.get_subcommands().front();
        unknown = command->remaining();
    }
    const bool lacksCommand = command == &app && unknown.empty();
    const std::string what = !unknown.empty() ? aboutUnknown(*command, unknown.front())
                             : lacksCommand   ? "name a command"
                                              : aboutValue(*command, error.what());
    return refuse(command == &app ? "" : command->get_name(), what);
}
