// eboconf defaults: prints the records that a host gets without a file.
#include "commands/commands.h"
#include "model/dump_lines.h"
#include "model/records.h"

void addDefaultsCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command = app.add_subcommand("defaults", "Prints the built-in defaults");
    command->callback([&status] {
        const CaptureRoot ebo(createEboConfigs());
        if (!ebo) {
            status = kNotLoaded;
            return;
        }
        // A default echo canceller claims a delay record that it does not have, and the dump would follow it.
        ebo->aec->model_aec_en &= ~EBO_AEC_DELAY;
        printLines(dumpLines([&] {
            dumpEboAecConfig(ebo->aec);
            dumpEboBeamFormConfig(ebo->bf);
        }));
    });
}
