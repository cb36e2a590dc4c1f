// A small audio component: runs an engine with a tuning file, prints the parameters on SIGUSR1 and takes a
// changed file over while it runs. A bad file never mutes it: the last good parameters stay, at first the
// built-in ones.
#include <cstdio>

#include "engine.h"
#include "events.h"
#include "tuning.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s TUNING-FILE\n", argv[0]);
        return 2;
    }
    const char* const path = argv[1];
    std::setvbuf(stdout, nullptr, _IOLBF, 0);

    Events events(path);
    KAEboParam* tuning = loadTuning(path);
    std::printf("component: %s\n", tuning != nullptr ? "loaded" : "not loaded, runs with defaults");
    if (tuning == nullptr) tuning = defaultTuning();
    if (tuning == nullptr) return 1;

    Event event;
    {
        Engine engine(*tuning);
        while ((event = events.next()) == Event::kDump || event == Event::kChange) {
            if (event == Event::kDump) {
                dumpTuning(*tuning);
                std::printf("component: dumped at frame %ld\n", engine.frames());
            } else if (KAEboParam* fresh = loadTuning(path)) {
                engine.use(*fresh);
                destroyEboConfig(&tuning);
                tuning = fresh;
                std::printf("component: loaded anew\n");
            } else {
                std::printf("component: not loaded, keeps the last good one\n");
            }
        }
    }
    destroyEboConfig(&tuning);
    std::printf("component: stopped\n");
    return event == Event::kStop ? 0 : 1;
}
