#include "watch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>

namespace ebo_live {
namespace {

constexpr uint32_t kEvents = IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_CREATE | IN_DELETE;
constexpr int kMostLinks = 40;  // as the kernel follows

std::string absolute(const std::string& path) {
    if (!path.empty() && path[0] == '/') return path;
    char here[PATH_MAX];
    return getcwd(here, sizeof here) != nullptr ? std::string(here) + "/" + path : path;
}

// Takes the first name off the path; empty when it has none.
std::string takeName(std::string& path) {
    const size_t first = path.find_first_not_of('/');
    if (first == std::string::npos) return "";
    const size_t end = std::min(path.find('/', first), path.size());
    std::string name = path.substr(first, end - first);
    path.erase(0, end);
    return name;
}

}  // namespace

Watch::Watch(const std::string& path) : fd_(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)), path_(absolute(path)) {}

Watch::~Watch() {
    if (fd_ >= 0) close(fd_);
}

void Watch::follow() {
    std::vector<Step> steps;
    std::string folder = "/";  // without links, ends in a slash
    std::string rest = path_;
    int links = 0;
    complete_ = true;
    for (std::string name = takeName(rest); !name.empty(); name = takeName(rest)) {
        if (name == ".") continue;
        if (name == "..") {
            if (folder.size() > 1) folder.erase(folder.rfind('/', folder.size() - 2) + 1);
            continue;
        }
        // First the watch, then a look at what the name is: it cannot change unseen in between.
        const int watch = inotify_add_watch(fd_, folder.c_str(), kEvents | IN_ONLYDIR);
        if (watch >= 0) {
            steps.push_back({watch, name});
        } else if (errno == ENOENT || errno == ENOTDIR) {
            break;  // the folder before it will tell of a new one
        } else {
            complete_ = false;
        }
        char target[PATH_MAX];
        const ssize_t length = readlink((folder + name).c_str(), target, sizeof target);
        if (length < 0) {
            folder.append(name).append("/");
            continue;
        }
        if (++links > kMostLinks) break;
        rest.insert(0, "/").insert(0, target, static_cast<size_t>(length));
        if (rest[0] == '/') folder = "/";
    }
    for (const Step& former : steps_) {
        const auto same = [&former](const Step& step) { return step.watch == former.watch; };
        if (std::none_of(steps.begin(), steps.end(), same)) inotify_rm_watch(fd_, former.watch);
    }
    steps_ = std::move(steps);
}

bool Watch::changed() {
    alignas(inotify_event) char buffer[16384];
    bool ours = false;
    for (;;) {
        const ssize_t size = read(fd_, buffer, sizeof buffer);
        if (size < 0 && errno == EINTR) continue;
        if (size <= 0) return ours;
        for (ssize_t at = 0; at < size;) {
            const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
            at += static_cast<ssize_t>(sizeof *event + event->len);
            if ((event->mask & IN_Q_OVERFLOW) != 0) {
                ++overflows_;
                ours = true;
            } else if (!ours) {
                ours = std::any_of(steps_.begin(), steps_.end(), [event](const Step& step) {
                    return step.watch == event->wd && (event->len == 0 || step.name == event->name);
                });
            }
        }
    }
}

}  // namespace ebo_live
