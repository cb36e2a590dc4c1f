// A product's tuning while it runs: loaded at the start, taken anew whenever its file changes, and never
// worse than the last good one. Linux only; links the static library.
//
//     EboLiveOptions options;
//     options.path = "/etc/voice/tuning.json";
//     EboLive live(options);
//     if (!live.start()) return 1;            // no memory
//
//     // on the engine's thread:
//     EboLiveReader reader(live);             // once
//     const EboLiveSet& set = *reader.begin();
//     work(frame, *set.capture);
//     reader.end();
//
// Each part of a file is taken or refused on its own. A part that would not load, or whose load would abort
// the process, is never handed to its loader: nothing leaks, nothing ends. What is tried and what is loaded
// are the same bytes, whoever writes to the file meanwhile. Only memory that runs out still aborts.
#pragma once

#include <ebo_config.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#pragma GCC visibility push(default)

enum class EboLivePart : uint8_t {
    Capture,   // "ebo_configs", as parseEboConfigs() reads it
    Playback,  // "ebo_ao_configs", as parseEboAoConfigs() reads it
    Gain,      // "ebo_agc_configs", as parseEboAgcConfigsFile() reads it, without its leak
};
constexpr size_t kEboLiveParts = 3;

// "capture", "playback", "gain". Static storage.
const char* eboLiveName(EboLivePart part);

// Where a part's records come from.
enum class EboLiveSource : uint8_t { Nowhere, File, Kept, Defaults };

// What happened to a part. The texts are lent for the call.
struct EboLiveEvent {
    enum class Kind : uint8_t {
        Accepted,  // new records are in use; `text` says where they come from
        Refused,   // those in use stay; `text` is the reason
        Rejected,  // the host's reject(): Accepted follows for what takes their place
    };
    Kind kind;
    EboLivePart part;
    EboLiveSource source;  // of the records in use after it
    const char* text;
};

// A message of the library's or the framework's. The texts are lent for the call.
struct EboLiveMessage {
    int level;  // 2 error, 4 notice, 5 information
    bool error;
    const char* tag;
    const char* function;
    int line;
    const char* text;  // without colours, and without newlines at its end
};

struct EboLiveOptions {
    std::string path;  // of the tuning file; it need not exist
    bool parts[kEboLiveParts] = {true, false, false};

    // Takes changes by itself; otherwise only when reload() asks for it.
    bool watch = true;
    // Changes are taken when none came for `quiet_ms`, and `burst_ms` after the first one at the latest;
    // while somebody has the file open for writing, later, by 2 s at the most.
    unsigned quiet_ms = 20;
    unsigned burst_ms = 200;
    size_t most_bytes = 1U << 20;  // a larger file is refused unread

    // A playback path is taken also when one of its sections is missing or incomplete: as the loader does,
    // its record is null then.
    bool incomplete_playback = false;

    // For each part a child process loads first what this one is about to load: then not even a fault of the
    // framework's ends this one. Costs a fork of the process for each part of a changed file.
    bool guard = false;

    // Keeps the last good file as NAME.good-PART, the one before it as NAME.before-PART, and what the host
    // has rejected as NAME.rejected-PART, in `kept_folder`; empty: beside the file. The folder must exist and
    // be on storage that outlives a restart.
    bool keep = true;
    std::string kept_folder;

    // Takes the log of a framework with <ka/log_sink.h> for as long as the object runs, in place of a sink
    // that was installed before: standard error, when it blocks, would stop a load. stop() leaves no sink.
    bool take_log = true;
    // Gets every message then, on its sender's thread, which for loads is the loading thread; null: they are
    // dropped. Of several objects in a process the one started first gets those of foreign threads.
    std::function<void(const EboLiveMessage&)> on_log;
    // Called on the loading thread, one call at a time. What they do there delays the next load only.
    std::function<void(const EboLiveEvent&)> on_event;
};

// What an engine works with. Borrowed, and read-only, from begin() to end(); a part that was not asked for is
// null.
struct EboLiveSet {
    const KAEboParam* capture = nullptr;   // a root with `aec` and `bf`
    const KAEboParam* playback = nullptr;  // a root with `rx`
    const EboAgcParam* gain = nullptr;
    uint32_t generation[kEboLiveParts] = {};  // of each part: another number, other records; from 1
};

// For a product's health page. Counters begin with start().
struct EboLiveHealth {
    struct Part {
        EboLiveSource source = EboLiveSource::Nowhere;
        uint32_t generation = 0;
        uint32_t accepted = 0;
        uint32_t refused = 0;    // each content once, until another one comes
        uint32_t unchanged = 0;  // read again, but the same as before
        uint32_t rejected = 0;
        std::string refusal;  // the last one's reason, also after a good file
    };
    Part parts[kEboLiveParts];
    uint32_t reads = 0;          // of the file
    uint32_t overflows = 0;      // of the kernel's queue of changes; the file was read again
    uint32_t keep_failures = 0;  // a file could not be kept; `keep_failure` says why
    std::string keep_failure;
    bool watching = false;     // changes of the file will be seen
    uint32_t sets_in_use = 0;  // replaced, but an engine is still between begin() and end()
};

class EboLive {
public:
    explicit EboLive(EboLiveOptions options);
    ~EboLive();  // stops
    EboLive(const EboLive&) = delete;
    EboLive& operator=(const EboLive&) = delete;

    // Starts the loading thread and returns once each part has records: of the file, else of the last good
    // one, else the defaults. False when there is no memory, thread or descriptor for it. Once per object.
    bool start();

    // Ends the loading thread and destroys all records: no reader may be between begin() and end(). Not from
    // a callback.
    void stop();

    // Reads the file now and returns when that is done, which may take 2 s while somebody is writing to it;
    // asked for by a callback, it is done after that.
    void reload();

    // The engine cannot work with the records in use: goes back to those before, at last to the defaults.
    // The same bytes are refused from now on, also after a restart. False when there is nothing to reject:
    // the defaults are in use already. From a callback: done after it, and true.
    bool reject(EboLivePart part);

    EboLiveHealth health() const;

private:
    friend class EboLiveReader;
    struct State;
    std::unique_ptr<State> state_;
};

// An engine thread's way to the records. Making and ending one takes a lock; begin() and end() take a handful
// of instructions, without lock, loop, allocation or call of the system. Each thread has its own, which ends
// before the EboLive.
class EboLiveReader {
public:
    explicit EboLiveReader(EboLive& live);
    ~EboLiveReader();
    EboLiveReader(const EboLiveReader&) = delete;
    EboLiveReader& operator=(const EboLiveReader&) = delete;

    // The newest records, which live until end(); null before start() and after stop(). Not nested.
    const EboLiveSet* begin();
    void end();

private:
    struct Slot;
    std::unique_ptr<Slot> slot_;
};

#pragma GCC visibility pop
