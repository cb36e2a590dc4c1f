// A tuning file as a host would load it, every part of it in one go.
#pragma once

#include <ka/framework.h>

#include <memory>
#include <string>
#include <vector>

#include "model/load_log.h"
#include "model/records.h"
#include "model/roots.h"

// The records of one tuning file.
struct Tuning {
    CaptureRoot capture;    // root object "ebo_configs"; null without it
    PlaybackRoot playback;  // root object "ebo_ao_configs"; null without it
    AgcRecord gain;         // root object "ebo_agc_configs"; null without it
    int gainMask = 0;       // EBO_BF_AGC when `gain` is enabled: a host that loads this part keeps no mask
    int channels = 0;       // entries of the echo canceller's channel map, which does not count them itself
};

// Whether the document has this root object.
bool hasRoot(const KAJsonParser& document, const char* root);

// The built-in defaults of all three parts.
Tuning defaultTuning();

// What of a file is loaded. File: every part that it has, each of which must load. The others are what the
// loaders of single components read.
enum class Part { File, Aec, BeamForm, Playback, Gain };

struct Load {
    Tuning tuning;
    bool loaded = false;
    const char* root = nullptr;              // root object at which the load failed; null when it is not JSON
    std::vector<LogMessage> messages;        // of the framework and of the section readers, in order
    std::unique_ptr<KAJsonParser> document;  // open as long as this object when the file is JSON
};

// `file` may be a pipe, or "-" for standard input. Runs the section readers in the loaders' order; without
// the loaders' abort on a channel map that is too long, which counts as not loaded here.
Load loadTuning(const std::string& file, Part part);

// Why `load` has failed, in the words of the log, one line; empty when it has not.
std::string whyNotLoaded(const Load& load, const std::string& file);
