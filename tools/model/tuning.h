// A tuning file as a host would load it, every part of it in one go.
#pragma once

#include <ka/framework.h>
#include <parse/loads.h>

#include <memory>
#include <string>
#include <vector>

#include "model/load_log.h"
#include "model/records.h"

// The records of one tuning file.
struct Tuning {
    CaptureRoot capture;    // root object "ebo_configs"; null without it
    PlaybackRoot playback;  // root object "ebo_ao_configs"; null without it
    AgcRecord gain;         // root object "ebo_agc_configs"; null without it
    int gainMask = 0;       // EBO_BF_AGC when `gain` is enabled: a host that loads this part keeps no mask
    int channels = 0;       // entries of the echo canceller's channel map, which does not count them itself
};

// The load that somebody asks for; null: of every root object that the file has, the load of the whole of it.
using Part = const EboLoad*;
// Their names: "auto", then those of the loads.
std::vector<std::string> partNames();
Part partNamed(const std::string& name);

// What a load gives, in words: "capture path", "echo canceller" ...
const char* componentOf(const EboLoad& load);

// The loads that `part` means for this document; that of the capture path when it has no root object at all.
std::vector<const EboLoad*> loadsOf(Part part, const KAJsonParser& document);

// How a device ends when a channel map asks for too many channels.
inline constexpr char kMapAssertion[] = "Assertion chns <= 16 failed";

// The built-in defaults of all three parts.
Tuning defaultTuning();

struct Load {
    Tuning tuning;
    bool loaded = false;                // every one of `loads`
    std::vector<const EboLoad*> loads;  // in order, up to the first that failed; none when it is not JSON
    std::vector<LogMessage> messages;   // of the framework and of the section readers, in order
    std::unique_ptr<KAJsonParser> document;  // open as long as this object when the file is JSON
    std::string text;                        // of the file, when it was to be kept

    // The one of `loads` that reads this root object; null without one.
    const EboLoad* of(const char* root) const;
};

enum class FileText { NotKept, Kept };

// `file` may be a pipe, or "-" for standard input. Runs the section readers in the loaders' order; without
// the loaders' abort on a channel map that is too long, which counts as not loaded here.
Load loadTuning(const std::string& file, Part part, FileText text = FileText::NotKept);

// Why `load` has failed, in the words of the log, one line; empty when it has not.
std::string whyNotLoaded(const Load& load, const std::string& file);
