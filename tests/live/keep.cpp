// keep FILE WHAT: starts a live tuning of FILE, does WHAT when a line comes in, prints the number that the
// capture path then runs with.
//   start   nothing, and waits for no line
//   reload  reads FILE again
//   reject  rejects what is in use
#include <sys/prctl.h>

#include <cstdio>

#include "files.h"

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const std::string what = argv[2];
    EboLiveOptions options;
    options.path = argv[1];
    options.watch = false;
    EboLive live(options);
    if (!live.start()) return 1;
    if (what != "start") {
        prctl(PR_SET_PTRACER, PR_SET_PTRACER_ANY);  // the one that kills it is not its parent
        std::puts("ready");
        std::fflush(stdout);
        if (std::getchar() == EOF) return 1;
        what == "reject" ? static_cast<void>(live.reject(EboLivePart::Capture)) : live.reload();
    }
    EboLiveReader reader(live);
    std::printf("%d\n", live_test::numberIn(*reader.begin()->capture));
    reader.end();
    return 0;
}
