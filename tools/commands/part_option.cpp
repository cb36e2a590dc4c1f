#include "commands/part_option.h"

CLI::Option* addPartOption(CLI::App& command, Part& part) {
    return command
        .add_option_function<std::string>(
            "--part", [&part](const std::string& name) { part = partNamed(name); },
            "Loader to use; auto: for every root object that the file has, the one that reads all of it")
        ->check(CLI::IsMember(partNames()))
        ->default_str(partNames().front());
}
