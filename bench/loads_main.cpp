// Loads a file some times by one loader, for the programs that count instructions, allocations and system
// calls: ebo_bench_loads LOADER FILE COUNT. Twice the count less the count is what one load takes, without
// the start of the process.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <ebo_config.h>
#include <ka/log_sink.h>

#include "loaders.h"

namespace {

using Load = KAEboParam* (*)(const char* path, Rows rows);

Load find(const char* name) {
    if (std::strcmp(name, "ours") == 0) return [](const char* path, Rows) { return parseEboConfigs(path); };
    for (size_t i = 0; i < kPeerCount; ++i) {
        if (std::strcmp(name, kPeers[i].name) == 0) return kPeers[i].load;
    }
    return nullptr;
}

}  // namespace

int main(int argc, char** argv) {
    const Load load = argc == 4 ? find(argv[1]) : nullptr;
    if (load == nullptr) {
        std::fprintf(stderr, "usage: ebo_bench_loads LOADER FILE COUNT\n");
        return 2;
    }
    ka_install_log_sink([](const KaLogMessage&, void*) {}, nullptr);
    for (int i = std::atoi(argv[3]); i > 0; --i) {
        KAEboParam* ebo = load(argv[2], Rows::Sscanf);
        if (ebo == nullptr) return 1;
        destroyEboConfig(&ebo);
    }
    return 0;
}
