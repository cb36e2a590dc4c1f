// eboconf help: the help of the tool, or of a command.
#include <cstdio>
#include <memory>
#include <string>

#include "commands/commands.h"
#include "commands/options.h"

void addHelpCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command = app.add_subcommand("help", "Prints help, also on a single command");
    auto name = std::make_shared<std::string>();
    command->add_option("COMMAND", *name, "Command to explain")->check(CLI::IsMember(commandNames(app)));
    command->footer(
        "Examples:\n"
        "  eboconf help          all commands\n"
        "  eboconf help check    one of them");
    command->callback([&app, name, &status] {
        const CLI::App* const subject = name->empty() ? &app : app.get_subcommand(*name);
        const std::string before = name->empty() ? "" : app.get_name() + " ";
        const std::string help = subject->get_formatter()->make_help(subject, before + subject->get_name(),
                                                                     CLI::AppFormatMode::Normal);
        std::fputs(help.c_str(), stdout);
        status = kSuccess;
    });
}
