#include "events.h"

#include <poll.h>
#include <signal.h>
#include <sys/inotify.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

int openSignals() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : {SIGUSR1, SIGTERM, SIGINT}) sigaddset(&set, signal);
    sigprocmask(SIG_BLOCK, &set, nullptr);
    return signalfd(-1, &set, SFD_CLOEXEC);
}

// The folder, not the file: a new file is best put in place by a rename, and is another file then.
int watchFolderOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    const int watch = inotify_init1(IN_CLOEXEC);
    if (inotify_add_watch(watch, folder.c_str(), IN_CLOSE_WRITE | IN_MOVED_TO) >= 0) return watch;
    close(watch);
    return -1;
}

}  // namespace

Events::Events(const char* path)
    : name_(std::string(path).substr(std::string(path).rfind('/') + 1)),
      signals_(openSignals()),
      folder_(watchFolderOf(path)) {}

Events::~Events() {
    close(folder_);
    close(signals_);
}

Event Events::next() {
    if (signals_ < 0 || folder_ < 0) return Event::kError;
    for (;;) {
        pollfd ready[] = {{signals_, POLLIN, 0}, {folder_, POLLIN, 0}};
        if (poll(ready, 2, -1) < 0) return Event::kError;
        if (ready[0].revents != 0) {
            signalfd_siginfo signal;
            if (read(signals_, &signal, sizeof signal) != sizeof signal) return Event::kError;
            return signal.ssi_signo == SIGUSR1 ? Event::kDump : Event::kStop;
        }
        if (fileChanged()) return Event::kChange;
    }
}

// Several changes at once are one.
bool Events::fileChanged() {
    alignas(inotify_event) char buffer[4096];
    const ssize_t size = read(folder_, buffer, sizeof buffer);
    bool changed = false;
    for (ssize_t at = 0; at < size;) {
        const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
        if (event->len > 0 && name_ == event->name) changed = true;
        at += static_cast<ssize_t>(sizeof *event + event->len);
    }
    return changed;
}
