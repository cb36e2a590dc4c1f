// soak SECONDS [CHANGES-PER-SECOND]: a product under a storm of changes of its file, of every kind, with
// standard output and error that block. Ends with status 0 when
// - the process has lived, and every set of records was whole and each part of it of one file;
// - the engine's threads never had to wait in begin() and end();
// - the resident memory stayed within 200 kB;
// - the last file won.
#include <fcntl.h>
#include <pthread.h>
#include <sched.h>
#include <sys/resource.h>
#include <time.h>

#include <atomic>
#include <cinttypes>
#include <random>

#include "files.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define SOAK_UNDER_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define SOAK_UNDER_SANITIZER 1
#endif
#endif

#ifdef SOAK_UNDER_SANITIZER
#include <sanitizer/common_interface_defs.h>
#endif

using live_test::numbered;
using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;
using std::chrono::milliseconds;
namespace fs = std::filesystem;

namespace {

constexpr int kContents = 50;
constexpr int kLast = 20000;
constexpr long kFlat = 200;  // kB

// Standard output and error as a pipe that is full and that nobody reads.
class Blocked {
public:
    Blocked() : report_(fdopen(dup(STDOUT_FILENO), "w")) {
        if (pipe(ends_) != 0) std::abort();
#ifdef SOAK_UNDER_SANITIZER
        __sanitizer_set_report_fd(reinterpret_cast<void*>(static_cast<intptr_t>(fileno(report_))));
#endif
        fcntl(ends_[1], F_SETFL, O_NONBLOCK);
        const char bytes[4096] = {};
        while (write(ends_[1], bytes, sizeof bytes) > 0) {
        }
        fcntl(ends_[1], F_SETFL, 0);
        dup2(ends_[1], STDOUT_FILENO);
        dup2(ends_[1], STDERR_FILENO);
    }
    FILE* report() const {
        return report_;
    }

private:
    int ends_[2];
    FILE* const report_;
};

long residentKilobytes() {
    long size = 0;
    long resident = 0;
    FILE* const file = fopen("/proc/self/statm", "r");
    if (fscanf(file, "%ld %ld", &size, &resident) != 2) resident = 0;
    fclose(file);
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

long waits() {
    rusage usage = {};
    getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_nvcsw;
}

// A signal-processing engine: a frame every 4 ms, of which it works for `busy`.
class Engine {
public:
    Engine(EboLive& live, microseconds busy) : thread_(&Engine::run, this, std::ref(live), busy) {}
    ~Engine() { stop(); }
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;
    void stop() {
        stop_ = true;
        if (thread_.joinable()) thread_.join();
    }

    int64_t frames = 0;
    int64_t others = 0;  // frames with other records than the frame before
    int64_t torn = 0;
    int64_t waited = 0;      // for something, in begin() or end()
    microseconds latest{0};  // a frame's beginning
    bool realtime = false;   // where this process may have such threads

private:
    void run(EboLive& live, microseconds busy) {
        const sched_param high = {50};
        realtime = pthread_setschedparam(pthread_self(), SCHED_FIFO, &high) == 0;
        EboLiveReader reader(live);
        Clock::time_point due = Clock::now();
        uint32_t generation = 0;
        while (!stop_) {
            due += milliseconds(4);
            std::this_thread::sleep_until(due);
            latest = std::max(latest, std::chrono::duration_cast<microseconds>(Clock::now() - due));
            if (Clock::now() > due + milliseconds(4)) due = Clock::now();
            long before = waits();
            const EboLiveSet& set = *reader.begin();
            waited += waits() - before;
            ++frames;
            if (std::exchange(generation, set.generation[0]) != set.generation[0]) ++others;
            check(set);
            const Clock::time_point end = Clock::now() + busy;
            while (Clock::now() < end) {
            }
            check(set);
            before = waits();
            reader.end();
            waited += waits() - before;
        }
    }
    void check(const EboLiveSet& set) {
        if (live_test::numberIn(*set.capture) < 0) ++torn;
        if (live_test::playbackIn(*set.playback) < 0) ++torn;
        if (live_test::gainIn(*set.gain) < 0) ++torn;
    }

    std::atomic<bool> stop_{false};
    std::thread thread_;
};

// Everybody who ever changed a file.
class Storm {
public:
    explicit Storm(std::string folder) : folder_(std::move(folder)), file_(folder_ + "/tuning.json") {
        for (int i = 0; i < kContents; ++i) {
            auto document = numbered(1000 + i);
            good_.push_back(document.dump(2));  // all of one length
            document["ebo_configs"]["aec"]["mic_chn_map"] = "17 chn;map:1,2";
            aborting_.push_back(document.dump(2));
            document = numbered(1000 + i);
            document["ebo_configs"]["anr"].erase("TranMode");
            incomplete_.push_back(document.dump(2));
        }
        fs::create_directories(folder_);
    }

    void change() {
        const std::string& good = pick(good_);
        ++changes;
        switch (random_() % 12) {
            case 0:
            case 1:
                return replace(good);
            case 2:
                return live_test::writeText(file_, good);
            case 3:
                return overwrite(good);
            case 4:
                return link(good);
            case 5:
                return live_test::writeText(file_, good.substr(0, random_() % good.size()));
            case 6:
                return replace(good.substr(0, random_() % good.size()));
            case 7:
                return replace(torn(good, pick(good_)));
            case 8:
                return replace(pick(aborting_));
            case 9:
                return replace("");
            case 10:
                return replace(pick(incomplete_));
            default:
                if (random_() % 8 == 0) return remake(good);
                return replace(good);
        }
    }
    void finish() { replace(numbered(kLast).dump(2)); }

    int64_t changes = 0;

private:
    const std::string& pick(const std::vector<std::string>& texts) { return texts[random_() % texts.size()]; }

    // As a loss of power leaves it: of one content the first half, of another the second, and a hole between.
    static std::string torn(const std::string& one, const std::string& other) {
        return one.substr(0, one.size() / 2) + std::string(512, '\0') + other.substr(other.size() / 2);
    }
    void replace(const std::string& text) {
        live_test::writeText(folder_ + "/fresh", text);
        rename((folder_ + "/fresh").c_str(), file_.c_str());
    }
    // In place and bit by bit, without making it shorter first.
    void overwrite(const std::string& text) const {
        const int fd = open(file_.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        for (size_t at = 0; at < text.size(); at += 1000) {
            if (write(fd, text.data() + at, std::min<size_t>(1000, text.size() - at)) < 0) break;
            std::this_thread::yield();
        }
        if (ftruncate(fd, static_cast<off_t>(text.size())) != 0) std::abort();
        close(fd);
    }
    void link(const std::string& text) {
        const std::string target = "version-" + std::to_string(random_() % 2);
        live_test::writeText(folder_ + "/" + target, text);
        unlink((folder_ + "/link").c_str());
        if (symlink(target.c_str(), (folder_ + "/link").c_str()) != 0) std::abort();
        rename((folder_ + "/link").c_str(), file_.c_str());
    }
    void remake(const std::string& text) {
        const std::string away = folder_ + "-away";
        rename(folder_.c_str(), away.c_str());
        std::error_code ignored;  // the component may be keeping a file there
        fs::remove_all(away, ignored);
        fs::create_directories(folder_);
        replace(text);
    }

    const std::string folder_;
    const std::string file_;
    std::vector<std::string> good_;
    std::vector<std::string> aborting_;
    std::vector<std::string> incomplete_;
    std::mt19937 random_{1};
};

// Whether the last file is in use in the end.
bool lastWins(EboLive& live) {
    EboLiveReader reader(live);
    return live_test::eventually([&reader] {
        const EboLiveSet& set = *reader.begin();
        const bool last = live_test::numberIn(*set.capture) == kLast &&
                          live_test::playbackIn(*set.playback) == kLast &&
                          live_test::gainIn(*set.gain) == kLast;
        reader.end();
        return last;
    });
}

}  // namespace

int main(int argc, char** argv) {
    const std::chrono::seconds seconds(argc > 1 ? std::atoi(argv[1]) : 20);
    const int per_second = argc > 2 ? std::atoi(argv[2]) : 1000;
    const Blocked blocked;
    FILE* const report = blocked.report();
    const live_test::Scratch scratch;
    Storm storm(scratch / "product");
    storm.finish();

    EboLiveOptions options;
    options.path = scratch / "product/tuning.json";
    options.parts[1] = options.parts[2] = true;
    options.quiet_ms = 2;
    options.burst_ms = 10;
    EboLive live(options);
    if (!live.start()) return 1;

    microseconds idle{0};
    {
        Engine engine(live, microseconds(100));
        std::this_thread::sleep_for(std::min<std::chrono::seconds>(seconds / 4, std::chrono::seconds(10)));
        engine.stop();
        idle = engine.latest;
    }

    Engine engine(live, microseconds(100));
    Engine slow(live, milliseconds(1));
    const Clock::time_point begin = Clock::now();
    long early = 0;
    long latest = 0;
    Clock::time_point sampled = begin;
    for (Clock::time_point due = begin; Clock::now() < begin + seconds;
         due += microseconds(1000000 / per_second)) {
        std::this_thread::sleep_until(due);
        storm.change();
        if (Clock::now() < sampled + milliseconds(100)) continue;
        sampled = Clock::now();
        const long resident = residentKilobytes();
        if (sampled < begin + seconds / 3) {
            early = std::max(early, resident);
        } else {
            latest = std::max(latest, resident);
        }
    }
    const double took = std::chrono::duration<double>(Clock::now() - begin).count();
    storm.finish();
    const bool last = lastWins(live);
    engine.stop();
    slow.stop();
    const EboLiveHealth health = live.health();
    live.stop();

    fprintf(report, "changes      %" PRId64 ", %.0f a second\n", storm.changes,
            static_cast<double>(storm.changes) / took);
    fprintf(report, "read         %u times, overflows %u, keep failures %u (%s)\n", health.reads,
            health.overflows, health.keep_failures, health.keep_failure.c_str());
    for (const EboLivePart part : {EboLivePart::Capture, EboLivePart::Playback, EboLivePart::Gain}) {
        const auto& of = health.parts[static_cast<size_t>(part)];
        fprintf(report, "%-12s accepted %u, refused %u, unchanged %u\n", eboLiveName(part), of.accepted,
                of.refused, of.unchanged);
    }
    for (const Engine* one : {&engine, &slow}) {
        fprintf(report,
                "engine       %" PRId64 " frames, %" PRId64 " with new records, torn %" PRId64
                ", waited %" PRId64 ", at most %" PRId64 " us late (idle %" PRId64 " us), %s\n",
                one->frames, one->others, one->torn, one->waited, static_cast<int64_t>(one->latest.count()),
                static_cast<int64_t>(idle.count()), one->realtime ? "real-time" : "as any thread");
    }
    fprintf(report, "memory       %ld kB in the first third, %ld kB after it\n", early, latest);
    fprintf(report, "last file    %s\n", last ? "wins" : "IS NOT IN USE");
    bool good = last;
    for (const Engine* one : {&engine, &slow})
        good = good && one->torn == 0 && one->waited == 0 && one->frames > 0 && one->others > 0;
    for (const auto& part : health.parts) good = good && part.accepted > 0 && part.refused > 0;
#ifndef SOAK_UNDER_SANITIZER
    good = good && latest <= early + kFlat;
#endif
    fprintf(report, "%s\n", good ? "good" : "FAILED");
    fclose(report);
    return good ? 0 : 1;
}
