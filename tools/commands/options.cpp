#include "commands/options.h"

#include <map>
#include <sstream>

#include "text/terminal.h"

CLI::Option* addPartOption(CLI::App& command, Part& part) {
    return command
        .add_option_function<std::string>(
            "--part", [&part](const std::string& name) { part = partNamed(name); },
            "Loader to use; auto: for every root object that the file has, the one that reads all of it")
        ->check(CLI::IsMember(partNames()))
        ->default_str(partNames().front());
}

void addFormatOption(CLI::App& command, std::string& format, const std::vector<std::string>& forms) {
    command.add_option("--format", format, "Form of the report")
        ->check(CLI::IsMember(forms))
        ->capture_default_str();
}

void addColorOption(CLI::App& command) {
    static const std::map<std::string, Colours> choices = {
        {"auto", Colours::OnTerminal}, {"always", Colours::Always}, {"never", Colours::Never}};
    command
        .add_option_function<std::string>(
            "--color", [](const std::string& when) { chooseColours(choices.at(when)); },
            "Colours; auto: on a terminal that has them, and not with NO_COLOR set")
        ->check(CLI::IsMember({"auto", "always", "never"}))
        ->default_str("auto");
}

// "{text,json}" at the end of an option's type.
std::vector<std::string> valuesOf(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    const size_t begin = type.find('{');
    if (begin == std::string::npos) return {};
    std::istringstream list(type.substr(begin + 1, type.rfind('}') - begin - 1));
    std::vector<std::string> values;
    for (std::string value; std::getline(list, value, ',');) values.push_back(value);
    return values;
}

std::vector<std::string> commandNames(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
        if (!command->get_group().empty()) names.push_back(command->get_name());
    }
    return names;
}
