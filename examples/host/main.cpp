// A small audio component: runs an engine with a tuning file that may change at any time, and prints the
// parameters on SIGUSR1. A bad file never mutes it.
#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include "engine.h"
#include "lines.h"

namespace {

// Blocks them for all threads, which are still to come.
int openSignals() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : {SIGUSR1, SIGTERM, SIGINT}) sigaddset(&set, signal);
    sigprocmask(SIG_BLOCK, &set, nullptr);
    return signalfd(-1, &set, SFD_CLOEXEC);
}

EboLiveOptions optionsFor(const char* path, Lines& lines) {
    EboLiveOptions options;
    options.path = path;
    options.on_event = [&lines](const EboLiveEvent& event) {
        const bool refused = event.kind == EboLiveEvent::Kind::Refused;
        lines.add(stdout, std::string("component: ") + eboLiveName(event.part) + " path " +
                              (refused ? "not taken: " : "taken ") + event.text);
    };
    options.on_log = [&lines](const EboLiveMessage& message) {
        lines.add(stderr, std::string(message.error ? "E " : "I ") + message.tag + " " + message.function +
                              ":" + std::to_string(message.line) + ": " + message.text);
    };
    return options;
}

void dump(EboLive& tuning) {
    EboLiveReader reader(tuning);
    const EboLiveSet& set = *reader.begin();
    dumpEboAecConfig(set.capture->aec);
    dumpEboBeamFormConfig(set.capture->bf);
    reader.end();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s TUNING-FILE\n", argv[0]);
        return 2;
    }
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const int signals = openSignals();
    Lines lines;
    EboLive tuning(optionsFor(argv[1], lines));
    if (signals < 0 || !tuning.start()) return 1;

    int signal = SIGUSR1;
    {
        const Engine engine(tuning);
        while (signal == SIGUSR1) {
            pollfd ready[] = {{signals, POLLIN, 0}, {lines.descriptor(), POLLIN, 0}};
            if (poll(ready, 2, -1) < 0) return 1;
            signalfd_siginfo came;
            if (ready[0].revents != 0 && read(signals, &came, sizeof came) == sizeof came) {
                signal = static_cast<int>(came.ssi_signo);
                if (signal == SIGUSR1) {
                    dump(tuning);
                    lines.add(stdout, "component: dumped at frame " + std::to_string(engine.frames()));
                }
            }
            lines.print();
        }
    }
    tuning.stop();
    lines.print();
    std::puts("component: stopped");
    return 0;
}
