// eboconf schema: prints the JSON Schema of a tuning file.
#include <cstdio>

#include "commands/commands.h"
#include "report/schema.h"

void addSchemaCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command = app.add_subcommand("schema", "Prints the JSON Schema of a tuning file, for editors");
    command->footer(
        "Example:\n"
        "  eboconf schema > tuning-file.schema.json\n\n"
        "Exit status: 0 printed, 2 wrong usage.");
    command->callback([&status] {
        std::fputs(schemaText().c_str(), stdout);
        status = kSuccess;
    });
}
