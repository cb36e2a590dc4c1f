// Golden lists of the calls that a recorder has seen. Only inside `if constexpr (Host::kRecords)`.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "recording_framework/ka/recording.h"

// One line per call of these kinds: "malloc #1 createEboDtdConfig", "safe_free null destroyEboDtdConfig" ...
inline std::vector<std::string> calls(const ka_recording::Recorder& recorder,
                                      std::initializer_list<ka_recording::Op> ops) {
    std::vector<std::string> lines;
    for (const auto& event : recorder.only(ops)) lines.push_back(toString(event));
    return lines;
}

// What each block is called: the function that asked for it, ":2" after it for its second block and so on; a
// copied text is called by its words.
inline std::map<int, std::string> blockNames(const ka_recording::Recorder& recorder) {
    std::map<int, std::string> names;
    std::map<std::string, int> made;
    for (const auto& event : recorder.only({ka_recording::Op::Malloc, ka_recording::Op::Strdup})) {
        if (event.block == 0) continue;
        const int nth = ++made[event.name];
        names[event.block] = nth == 1 ? event.name : event.name + ":" + std::to_string(nth);
    }
    return names;
}

// One line per released block: "free parseEboDtdConfigs", or "safe_free parseEboDtdConfigs by
// destroyEboDtdConfig".
inline std::vector<std::string> releases(const ka_recording::Recorder& recorder) {
    using ka_recording::Op;
    auto names = blockNames(recorder);
    std::vector<std::string> lines;
    for (const auto& event : recorder.only({Op::Free, Op::SafeFree})) {
        if (event.op == Op::Free) lines.push_back("free " + names[event.block]);
        if (event.op == Op::SafeFree && event.block > 0)
            lines.push_back("safe_free " + names[event.block] + " by " + event.name);
    }
    return lines;
}

// The blocks that are not released yet, oldest first.
inline std::vector<std::string> leaks(const ka_recording::Recorder& recorder) {
    auto names = blockNames(recorder);
    std::vector<std::string> lines;
    for (const int block : recorder.live()) lines.push_back(names[block]);
    return lines;
}
