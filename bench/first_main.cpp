// The first load of a process, as a host pays it: ebo_bench_first load|quiet|read FILE prints nanoseconds.
// `load` formats the log lines of a load, which `quiet` does not, as a host that logs errors alone. Links
// nothing but the library, so that no other library's start is measured.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <ebo_config.h>
#include <ka/log_sink.h>

namespace {

bool readAlone(const char* path) {
    const int fd = open(path, O_RDONLY | O_CLOEXEC);
    struct stat status;
    if (fd < 0 || fstat(fd, &status) != 0) return false;
    const auto size = static_cast<size_t>(status.st_size);
    void* text = std::malloc(size);
    const bool done = read(fd, text, size) == status.st_size;
    close(fd);
    std::free(text);
    return done;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const bool load = std::strcmp(argv[1], "read") != 0;
    if (std::strcmp(argv[1], "quiet") == 0) ka_set_log_level(2);
    ka_install_log_sink([](const KaLogMessage&, void*) {}, nullptr);
    const auto start = std::chrono::steady_clock::now();
    const bool done = load ? parseEboConfigs(argv[2]) != nullptr : readAlone(argv[2]);
    const auto end = std::chrono::steady_clock::now();
    std::printf("%lld\n", static_cast<long long>(std::chrono::nanoseconds(end - start).count()));
    return done ? 0 : 1;
}
