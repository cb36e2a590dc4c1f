// Takes the default framework's log from standard error into the program's own hands.
#pragma once

#include <ka/framework.h>

struct KaLogMessage {
    unsigned int channel;
    int level;             // 2 error, 4 notice, 5 information
    const char* tag;       // as given, may be null
    const char* function;  // as given, may be null
    int line;
    const char* format;  // as given, before the arguments were filled in
    const char* text;    // the message as formatted: colour sequences and newlines still in it
    bool error;          // came through ka_err, not ka_log
};

// Called on the logging thread, from several threads at once. The message lives for the call. A sink may log (it
// is then called again) but must not install or remove a sink.
using KaLogSink = void (*)(const KaLogMessage& message, void* user);

// From now on every message goes to `sink` and nothing to standard error; `user` is handed on and stays the
// caller's. A null sink, or ka_remove_log_sink, restores standard error. On return no call of the former sink is
// running any more, so that its `user` may go.
void ka_install_log_sink(KaLogSink sink, void* user);
void ka_remove_log_sink();
