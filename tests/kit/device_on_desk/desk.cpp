// The board of examples/bare_metal is a process: its console standard error, its flash what the kit puts
// there, and all memory of the process comes from the device's pools.
#include <board.h>
#include <file_buffer.h>
#include <kit_host.h>
#include <reent.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <map>

extern "C" {
void* _malloc_r(_reent*, size_t size);
void* _calloc_r(_reent*, size_t count, size_t size);
void* _realloc_r(_reent*, void* block, size_t size);
void _free_r(_reent*, void* block);
}

namespace {

// The device's pools align to eight bytes, a desk's compiler counts on sixteen.
constexpr size_t kAlignment = 16;

size_t rounded(size_t size) {
    return size > SIZE_MAX - kAlignment ? size : (size + kAlignment - 1) & ~(kAlignment - 1);
}

std::map<std::string, std::string>& flash() {
    static auto* const documents = new std::map<std::string, std::string>;
    return *documents;
}

}  // namespace

extern "C" {
void* malloc(size_t size) noexcept {
    return _malloc_r(nullptr, rounded(size));
}
void* calloc(size_t count, size_t size) noexcept {
    return _calloc_r(nullptr, count, rounded(size));
}
void* realloc(void* block, size_t size) noexcept {
    return _realloc_r(nullptr, block, rounded(size));
}
void free(void* block) noexcept {
    _free_r(nullptr, block);
}
void* memalign(size_t alignment, size_t size) noexcept {
    return alignment <= kAlignment ? malloc(size) : nullptr;
}
void* aligned_alloc(size_t alignment, size_t size) noexcept {
    return memalign(alignment, size);
}
int posix_memalign(void** out, size_t alignment, size_t size) noexcept {
    *out = memalign(alignment, size);
    return *out ? 0 : ENOMEM;
}
}

void boardWrite(const char* text) {
    if (write(STDERR_FILENO, text, strlen(text)) < 0) _exit(1);
}

void kitPutDocument(const char* name, const char* text, size_t size) {
    flash()[name].assign(text, size);
}

const char* readFile(const char* path, FileBuffer* file, int* system_error) {
    *system_error = 0;
    const auto found = path ? flash().find(path) : flash().end();
    if (found == flash().end()) return "there is no such document";
    const std::string& text = found->second;
    file->text = static_cast<char*>(malloc(text.size() + kFilePadding));
    if (!file->text) return "out of memory";
    memcpy(file->text, text.data(), text.size());
    memset(file->text + text.size(), 0, kFilePadding);
    file->size = static_cast<uint32_t>(text.size());
    return nullptr;
}
