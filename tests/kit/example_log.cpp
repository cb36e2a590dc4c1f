// What the kit may know of the example framework: its log is in memory.
#include <ka/log_ring.h>

#include "kit_host.h"

std::string kitTakeLog() {
    static uint64_t seen = 0;
    std::string text;
    for (const KaLogEntry& entry : ka_log_since(seen)) text += entry.text + "\n";
    seen = ka_log_last();
    return text;
}
