#include "commands/options.h"

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
