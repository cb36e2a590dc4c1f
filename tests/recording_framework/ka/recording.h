// What the recording framework has seen, and what it can be told to do. Standard headers only, so that code
// which is built over another framework may name these types.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

namespace ka_recording {

enum class Op {
    ParserMade,
    ParseFile,   // name: path; found: accepted
    GetOptions,  // name: "<root>/<section>"; found: such a section exists
    ParserGone,
    MetaMade,
    FindInt32,    // name: key; found
    FindFloat,    // name: key; found
    FindCString,  // name: key; found
    MetaGone,
    Malloc,    // ka_mem_malloc(); name: caller; size; block, 0 when it was told to fail
    Strdup,    // strdup(); name: the text; size: its length and the zero; block, 0 when it was told to fail
    SafeFree,  // ka_mem_safe_free(); name: caller; block, 0 for null, kForeign for static storage and the
               // like; bytes
    Free,      // free() of a known block; block; bytes
    Memset,    // ka_memset(); block, kForeign for memory inside none; size; value
    Compare,   // util_strcasecmp(); name: "<a>|<b>"
    Log,       // ka_err() or ka_log(); line
};

constexpr int kForeign = -1;

// One log line as it was handed over.
struct LogCall {
    bool error = false;  // ka_err(), else ka_log()
    unsigned int channel = 0;
    int level = 0;
    std::string tag;
    std::string format;
    std::string function;
    int line = 0;
    std::string text;  // the format filled with its arguments
};

// One call. Blocks are numbered from 1 in the order in which they were handed out.
struct Event {
    Op op;
    std::string name = {};
    bool found = false;
    int block = 0;
    size_t size = 0;
    int value = 0;
    LogCall line = {};
    std::string bytes = {};  // what a known block holds at its release
};

// Records the calls of the thread that made it, from its making to its end; one at a time per thread. Each
// thread may have its own, and a block may be released by any thread.
class Recorder {
public:
    Recorder();
    ~Recorder();  // frees what is still live of its blocks
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    static Recorder* current();  // of this thread, or null

    std::map<std::string, std::string> documents;  // path -> JSON text, before any file of that name

    std::vector<Event> events;
    std::vector<Event> only(std::initializer_list<Op> ops) const;  // the events of these kinds, in order
    std::vector<Event> log() const { return only({Op::Log}); }

    std::vector<int> live() const;  // blocks not yet released, ascending
    int live_parsers = 0;
    int live_metas = 0;

    int fail_malloc = 0;     // fails the n-th ka_mem_malloc() from now on; 0: none
    int fail_strdup = 0;     // fails the n-th strdup() from now on; 0: none
    bool garbage = false;    // hands out memory full of 0xa5 instead of zeros
    int file_result = 1;     // what parseFile() returns on success
    int section_result = 1;  // what getOptions() returns for a section that there is
    bool echo = false;       // writes each log line to standard error, for death tests
    int blocks = 0;          // blocks handed out

private:
    Recorder* const former_;
};

// "[err 0x1818180a 2 KAAEboConfig parseEboDtdConfigs:12] <text>{<format>}"
std::string toString(const LogCall& line);

// One line per call, for golden lists and failure messages: "findFloat t60", "missing findFloat t60", "free
// #1" ...
std::string toString(const Event& event);

}  // namespace ka_recording
