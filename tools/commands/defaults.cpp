// eboconf defaults: prints the records that a host gets without a file.
#include "commands/commands.h"
#include "model/dump_lines.h"
#include "model/tuning.h"

void addDefaultsCommand(CLI::App& app, ExitStatus& status) {
    CLI::App* command = app.add_subcommand("defaults", "Prints the built-in defaults");
    command->footer(
        "Example:\n"
        "  eboconf defaults | diff - <(eboconf dump lamp.json)\n\n"
        "Exit status: 0 printed, 2 wrong usage.\n\n"
        "A default echo canceller has its delay bit set, but no delay record; the bit is shown as clear, "
        "because\n"
        "the dump of a device would follow it to that record.");
    command->callback([&status] {
        const Tuning defaults = defaultTuning();
        defaults.capture->aec->model_aec_en &= ~EBO_AEC_DELAY;
        printLines(dumpLines([&] {
            dumpEboAecConfig(defaults.capture->aec);
            dumpEboBeamFormConfig(defaults.capture->bf);
        }));
        status = kSuccess;
    });
}
