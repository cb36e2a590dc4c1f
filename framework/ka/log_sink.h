// Takes the log of this framework from standard error into the program's own hands, and makes it quieter.
#pragma once

#include <ka/framework.h>

#pragma GCC visibility push(default)

// All texts are lent for the call.
struct KaLogMessage {
    unsigned int channel;
    int level;
    const char* tag;
    const char* function;
    int line;
    const char* format;  // as the sender wrote it, greppable
    const char* text;    // formatted; colour sequences and newlines are still in it
    bool error;          // sent by ka_err, not by ka_log
};

// Called on the sender's thread, for several threads at once. May log, and is then called again; must not
// install or remove a sink.
using KaLogSink = void (*)(const KaLogMessage& message, void* user);

// From now on messages go to the sink instead of to standard error, until another one (null: none) is
// installed. `user` is handed on. On return the former sink is in no call any more, and its `user` may go.
void ka_install_log_sink(KaLogSink sink, void* user);
void ka_remove_log_sink();

// From now on messages above `level` are dropped before they are formatted, with a sink and without: 2 leaves
// the errors, 4 the wake-up mode besides, 5 all that a load or dump has to say. A process starts with
// INT_MAX.
void ka_set_log_level(int level);

#pragma GCC visibility pop
