// Preloaded into the tool: allocations fail from a given one on, counted from main(), and memory that is a
// file does not exist. FAIL_AT=0 counts alone, and says on descriptor 9 how many there were.
#include <dlfcn.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);
}

namespace {

bool counting = false;
long seen = 0;
long first = 0;
bool once = false;

bool fails() {
    if (!counting) return false;
    ++seen;
    return first > 0 && (once ? seen == first : seen >= first);
}

using Main = int (*)(int, char**, char**);
Main realMain = nullptr;

int countedMain(int argc, char** argv, char** environment) {
    const char* const at = std::getenv("FAIL_AT");
    if (at == nullptr) return realMain(argc, argv, environment);
    first = std::atol(at);
    once = std::getenv("FAIL_ONCE") != nullptr;
    counting = true;
    const int status = realMain(argc, argv, environment);
    counting = false;
    if (first == 0) dprintf(9, "%ld", seen);
    return status;
}

}  // namespace

extern "C" {

void* malloc(size_t size) {
    if (!fails()) return __libc_malloc(size);
    errno = ENOMEM;
    return nullptr;
}

void* calloc(size_t count, size_t size) {
    if (!fails()) return __libc_calloc(count, size);
    errno = ENOMEM;
    return nullptr;
}

void* realloc(void* block, size_t size) {
    if (!fails()) return __libc_realloc(block, size);
    errno = ENOMEM;
    return nullptr;
}

int memfd_create(const char* name, unsigned int flags) {
    if (std::getenv("NO_MEMORY_FILES") != nullptr) {
        errno = ENOSYS;
        return -1;
    }
    const auto real = reinterpret_cast<int (*)(const char*, unsigned int)>(dlsym(RTLD_NEXT, "memfd_create"));
    return real(name, flags);
}

int __libc_start_main(Main main, int argc, char** argv, void (*init)(), void (*fini)(), void (*dynamicFini)(),
                      void* stackEnd) {
    using Start = int (*)(Main, int, char**, void (*)(), void (*)(), void (*)(), void*);
    realMain = main;
    const auto real = reinterpret_cast<Start>(dlsym(RTLD_NEXT, "__libc_start_main"));
    return real(countedMain, argc, argv, init, fini, dynamicFini, stackEnd);
}
}
