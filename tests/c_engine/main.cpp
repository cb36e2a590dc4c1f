#include <ebo_config.h>

#include "engine.h"

int main(int argc, char** argv) {
    KAEboParam* ebo = argc > 1 ? parseEboConfigs(argv[1]) : nullptr;
    if (ebo == nullptr) return 2;
    const int status = engineStart(ebo);
    destroyEboConfig(&ebo);
    return status;
}
