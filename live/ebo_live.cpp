// The loading thread, and the doors to it.
#include "ebo_live.h"

#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <csignal>
#include <optional>
#include <thread>
#include <utility>

#include "log.h"
#include "tuning.h"
#include "watch.h"

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr size_t kMostSets = 4;             // replaced and still in use: further files wait
constexpr milliseconds kLookAgain{5};       // whether an engine has let go
constexpr milliseconds kMostWriting{2000};  // for who is writing to the file to finish

thread_local const void* t_loading = nullptr;  // the one whose loading thread this is

// Milliseconds until then for poll(), rounded up.
int until(Clock::time_point then) {
    const auto left = std::chrono::ceil<milliseconds>(then - Clock::now()).count();
    return left < 0 ? 0 : static_cast<int>(left);
}

}  // namespace

const char* eboLiveName(EboLivePart part) {
    switch (part) {
        case EboLivePart::Capture:
            return "capture";
        case EboLivePart::Playback:
            return "playback";
        default:
            return "gain";
    }
}

struct EboLive::State {
    struct Request {
        enum class Kind { Reload, Reject } kind;
        EboLivePart part;
        bool* result;  // null: nobody waits for it
        bool* done;
    };

    explicit State(EboLiveOptions its_options)
        : options(std::move(its_options)), tuning(options, current, report), watch(options.path) {}

    bool start();
    void stop();
    bool ask(Request::Kind kind, EboLivePart part);
    void run();

    const EboLiveOptions options;
    ebo_live::Current current;
    ebo_live::Report report;

private:
    static void* runThread(void* state) {
        t_loading = state;
        static_cast<State*>(state)->run();
        return nullptr;
    }
    bool serve();
    void answer(const Request& request, bool result);
    bool mayRead() const { return first && (current.waiting() < kMostSets || !reloads.empty()); }
    void pause();
    void readWhenDue();
    void note();

    ebo_live::Tuning tuning;
    ebo_live::Watch watch;
    const ebo_live::Descriptor wake{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
    std::optional<ebo_live::LogTaken> log;
    pthread_t thread{};
    bool running = false;

    std::mutex mutex;  // of what follows
    std::condition_variable answered;
    std::vector<Request> requests;
    std::optional<bool> started;
    bool stopping = false;

    // The loading thread's: when the first change came that has not been taken yet, and when it will be.
    std::optional<Clock::time_point> first;
    Clock::time_point due;
    std::vector<Request> reloads;  // to be answered then
};

bool EboLive::State::start() {
    if (running || !wake.open() || options.path.empty()) return false;
    if (options.take_log) log.emplace(options.on_log);
    // The host's signals are for the host's threads.
    sigset_t all;
    sigset_t former;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &former);
    running = pthread_create(&thread, nullptr, runThread, this) == 0;
    pthread_sigmask(SIG_SETMASK, &former, nullptr);
    if (running) {
        std::unique_lock<std::mutex> lock(mutex);
        answered.wait(lock, [this] { return started.has_value(); });
        if (*started) return true;
    }
    stop();
    return false;
}

void EboLive::State::stop() {
    if (running) {
        {
            const std::lock_guard<std::mutex> lock(mutex);
            stopping = true;
        }
        eventfd_write(wake.get(), 1);
        pthread_join(thread, nullptr);
        running = false;
    }
    log.reset();
}

bool EboLive::State::ask(Request::Kind kind, EboLivePart part) {
    const bool waits = t_loading != this;
    bool result = false;
    bool done = false;
    std::unique_lock<std::mutex> lock(mutex);
    if (stopping || (waits && !started.value_or(false))) return false;
    requests.push_back({kind, part, waits ? &result : nullptr, waits ? &done : nullptr});
    eventfd_write(wake.get(), 1);
    if (!waits) return true;
    answered.wait(lock, [&done] { return done; });
    return result;
}

void EboLive::State::answer(const Request& request, bool result) {
    if (request.done == nullptr) return;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        *request.result = result;
        *request.done = true;
    }
    answered.notify_all();
}

// Does what was asked for. False when the thread shall end.
bool EboLive::State::serve() {
    std::vector<Request> todo;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        todo.swap(requests);
    }
    for (const Request& request : todo) {
        if (request.kind == Request::Kind::Reload) {
            due = Clock::now();
            if (!first) first = due;
            reloads.push_back(request);
            continue;
        }
        const bool result = tuning.reject(request.part);
        note();
        answer(request, result);
    }
    const std::lock_guard<std::mutex> lock(mutex);
    return !stopping;
}

void EboLive::State::pause() {
    pollfd ready[] = {{wake.get(), POLLIN, 0}, {options.watch ? watch.descriptor() : -1, POLLIN, 0}};
    int timeout = -1;
    if (current.waiting() > 0) timeout = static_cast<int>(kLookAgain.count());
    if (mayRead()) timeout = timeout < 0 ? until(due) : std::min(timeout, until(due));
    poll(ready, 2, timeout);
    eventfd_t count = 0;
    eventfd_read(wake.get(), &count);
    if (ready[1].revents != 0 && watch.changed()) {
        const Clock::time_point now = Clock::now();
        if (!first) first = now;
        due = std::min(now + milliseconds(options.quiet_ms), *first + milliseconds(options.burst_ms));
    }
}

void EboLive::State::readWhenDue() {
    const Clock::time_point now = Clock::now();
    if (!mayRead() || now < due) return;
    if (options.watch) watch.follow();
    if (tuning.readFile(now >= *first + kMostWriting)) {
        first.reset();
        note();
        for (const Request& request : std::exchange(reloads, {})) answer(request, true);
    } else {
        due = now + milliseconds(kLookAgain);
    }
}

void EboLive::State::note() {
    const std::lock_guard<std::mutex> lock(report.mutex);
    report.health.overflows = watch.overflows();
    report.health.watching = options.watch && watch.complete();
    report.health.sets_in_use = static_cast<uint32_t>(current.waiting());
}

void EboLive::State::run() {
    if (options.watch) watch.follow();
    const Clock::time_point latest = Clock::now() + kMostWriting;
    while (!tuning.start(Clock::now() >= latest)) std::this_thread::sleep_for(kLookAgain);
    const bool good = tuning.complete();
    note();
    {
        const std::lock_guard<std::mutex> lock(mutex);
        started = good;
    }
    answered.notify_all();
    while (serve()) {
        readWhenDue();
        current.reclaim();
        pause();
    }
    reloads.insert(reloads.end(), requests.begin(), requests.end());  // none is added any more
    for (const Request& request : reloads) answer(request, false);
    current.clear();
    tuning.clear();
}

EboLive::EboLive(EboLiveOptions options) : state_(std::make_unique<State>(std::move(options))) {}

EboLive::~EboLive() {
    state_->stop();
}

bool EboLive::start() {
    return state_->start();
}

void EboLive::stop() {
    state_->stop();
}

void EboLive::reload() {
    state_->ask(State::Request::Kind::Reload, {});
}

bool EboLive::reject(EboLivePart part) {
    return state_->ask(State::Request::Kind::Reject, part);
}

EboLiveHealth EboLive::health() const {
    const std::lock_guard<std::mutex> lock(state_->report.mutex);
    return state_->report.health;
}

struct EboLiveReader::Slot : ebo_live::Slot {
    explicit Slot(ebo_live::Current& its_current) : current(its_current) { current.add(this); }
    ~Slot() { current.remove(this); }
    Slot(const Slot&) = delete;
    Slot& operator=(const Slot&) = delete;

    ebo_live::Current& current;
};

EboLiveReader::EboLiveReader(EboLive& live) : slot_(std::make_unique<Slot>(live.state_->current)) {}

EboLiveReader::~EboLiveReader() = default;

const EboLiveSet* EboLiveReader::begin() {
    return slot_->current.enter(*slot_);
}

void EboLiveReader::end() {
    ebo_live::Current::leave(*slot_);
}
