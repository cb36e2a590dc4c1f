// Loads each of the tunings in flash, as a whole, and destroys it again.
#include <ebo_config.h>

#include <initializer_list>

#include "figures.h"

int main() {
    for (const char* name : {"two-mic-speaker.json", "six-mic-conference.json", "minimal.json"}) {
        KAEboParam* ebo = parseEboConfigs(name);
        if (ebo == nullptr) return 1;
        destroyEboConfig(&ebo);
    }
    printFigures();
    return 0;
}
