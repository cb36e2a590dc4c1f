#include <locale.h>
#include <strings.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <mutex>

#include "ka/framework.h"
#include "ledger.h"

// The linker sends free() and strdup() of everything it links to the __wrap_ functions, and __real_ to the
// originals.
extern "C" {
void __real_free(void* memory);
char* __real_strdup(const char* text);
void __wrap_free(void* memory);
char* __wrap_strdup(const char* text);
}

namespace ka_recording {

namespace {

struct Block {
    const Recorder* owner;  // null when its thread kept no record
    int number;
    size_t size;
};

using Blocks = std::map<uintptr_t, Block>;

struct Ledger {
    std::mutex mutex;
    Blocks blocks;
};

// Never destroyed: blocks may be released after the end of main().
Ledger& ledger() {
    static Ledger* const instance = new Ledger;
    return *instance;
}

uintptr_t address(const void* memory) {
    return reinterpret_cast<uintptr_t>(memory);
}

int add(const void* memory, size_t size) {
    Recorder* const owner = Recorder::current();
    const int number = owner ? ++owner->blocks : 0;
    const std::lock_guard<std::mutex> lock(ledger().mutex);
    ledger().blocks[address(memory)] = {owner, number, size};
    return number;
}

// Takes the block out of the ledger, its number kForeign when it is not there. The node is freed after the
// lock was given back: where operator delete is linked statically, its free() comes through here.
Block take(const void* memory) {
    Blocks::node_type node;
    const std::lock_guard<std::mutex> lock(ledger().mutex);
    node = ledger().blocks.extract(address(memory));
    return node ? node.mapped() : Block{nullptr, kForeign, 0};
}

int blockAround(const void* memory) {
    const std::lock_guard<std::mutex> lock(ledger().mutex);
    auto next = ledger().blocks.upper_bound(address(memory));
    if (next == ledger().blocks.begin()) return kForeign;
    const auto& [start, block] = *--next;
    return address(memory) < start + block.size ? block.number : kForeign;
}

Event event(Op op, const char* name, int block, size_t size) {
    Event made{op, name ? name : "(null)"};
    made.block = block;
    made.size = size;
    return made;
}

Event release(Op op, const char* name, const void* memory, const Block& block) {
    Event made = event(op, name, block.number, 0);
    if (block.size > 0) made.bytes.assign(static_cast<const char*>(memory), block.size);
    return made;
}

// The linker's names for the begin and the end of a program.
extern "C" const char __executable_start;
extern "C" const char end;

bool isStatic(const void* memory) {
    return address(memory) >= address(&__executable_start) && address(memory) < address(&end);
}

bool toldToFail(int Recorder::*countdown) {
    Recorder* const recorder = Recorder::current();
    return recorder && recorder->*countdown > 0 && --(recorder->*countdown) == 0;
}

}  // namespace

std::vector<int> liveBlocksOf(const Recorder* owner) {
    const std::lock_guard<std::mutex> lock(ledger().mutex);
    std::vector<int> live;
    for (const auto& [start, block] : ledger().blocks)
        if (block.owner == owner) live.push_back(block.number);
    std::sort(live.begin(), live.end());
    return live;
}

void releaseBlocksOf(const Recorder* owner) {
    std::vector<uintptr_t> leaked;
    {
        const std::lock_guard<std::mutex> lock(ledger().mutex);
        for (const auto& [start, block] : ledger().blocks)
            if (block.owner == owner) leaked.push_back(start);
    }
    for (const uintptr_t start : leaked) {
        take(reinterpret_cast<void*>(start));
        __real_free(reinterpret_cast<void*>(start));
    }
}

}  // namespace ka_recording

using namespace ka_recording;

void* ka_mem_malloc(size_t size, const char* caller) {
    void* memory = nullptr;
    if (!toldToFail(&Recorder::fail_malloc)) {
        memory = std::malloc(size);
        const Recorder* const recorder = Recorder::current();
        if (memory) std::memset(memory, recorder && recorder->garbage ? 0xa5 : 0, size);
    }
    record(event(Op::Malloc, caller, memory ? add(memory, size) : 0, size));
    return memory;
}

void ka_mem_safe_free(void** pointer, const char* caller) {
    if (!pointer) return;
    const Block block = *pointer ? take(*pointer) : Block{};
    record(release(Op::SafeFree, caller, *pointer, block));
    if (block.number != kForeign || !isStatic(*pointer)) __real_free(*pointer);
    *pointer = nullptr;
}

void* ka_memset(void* memory, int value, size_t size) {
    Event made = event(Op::Memset, "", blockAround(memory), size);
    made.value = value;
    record(made);
    return memory ? std::memset(memory, value, size) : nullptr;
}

int util_strcasecmp(const char* a, const char* b) {
    if (!a || !b) return (a != nullptr) - (b != nullptr);
    record(event(Op::Compare, (std::string(a) + "|" + b).c_str(), 0, 0));
    static const locale_t c = newlocale(LC_ALL_MASK, "C", nullptr);
    return strcasecmp_l(a, b, c);
}

void __wrap_free(void* memory) {
    const Block block = memory ? take(memory) : Block{nullptr, kForeign, 0};
    if (block.number != kForeign) record(release(Op::Free, "", memory, block));
    __real_free(memory);
}

char* __wrap_strdup(const char* text) {
    char* const copy = toldToFail(&Recorder::fail_strdup) ? nullptr : __real_strdup(text);
    const size_t size = std::strlen(text) + 1;
    record(event(Op::Strdup, text, copy ? add(copy, size) : 0, size));
    return copy;
}
