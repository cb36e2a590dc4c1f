#include "guard.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "forecast.h"
#include "log.h"
#include "tree.h"

namespace ebo_live {
namespace {

constexpr int kMostMilliseconds = 5000;

// In the child: without a word, and without the host's handlers of a crash.
[[noreturn]] void load(EboLivePart part, const char* path, bool whole, int done) {
    fallSilent();
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    for (const int signal : {SIGABRT, SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGTRAP}) std::signal(signal, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    pthread_sigmask(SIG_SETMASK, &none, nullptr);  // the loading thread blocks all
    const rlimit no_core = {0, 0};
    setrlimit(RLIMIT_CORE, &no_core);
    KAJsonParser parser;
    if (parser.parseFile(path) != 0 && forecast(parser, loadOf(part), whole).reason.empty())
        loadTree(part, path);
    _exit(write(done, "", 1) == 1 ? 0 : 1);
}

}  // namespace

// A byte says that it has survived, not its exit status: the host may let the system forget its children.
Trial tryLoad(EboLivePart part, const std::string& path, bool whole) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return Trial::Untried;
    const pid_t child = fork();
    if (child == 0) load(part, path.c_str(), whole, ends[1]);
    close(ends[1]);
    Trial trial = Trial::Untried;
    if (child > 0) {
        pollfd done = {ends[0], POLLIN, 0};
        int ready = 0;
        do {
            ready = poll(&done, 1, kMostMilliseconds);
        } while (ready < 0 && errno == EINTR);
        char byte = 0;
        if (ready > 0) trial = read(ends[0], &byte, 1) == 1 ? Trial::Survived : Trial::Died;
        if (trial == Trial::Untried) kill(child, SIGKILL);
        while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
    close(ends[0]);
    return trial;
}

}  // namespace ebo_live
