#include "model/tuning.h"

#include <ka/json_table.h>
#include <parse/row_scan.h>
#include <parse/section.h>

#include <algorithm>
#include <cstring>

#include "model/spool.h"

namespace {

KAEboParam* newRoot() {
    return static_cast<KAEboParam*>(ka_mem_malloc(sizeof(KAEboParam), __func__));
}

// The number of channels that the file's map asks for, as the reader takes it.
int channelsAskedFor(KAJsonParser& document) {
    KaMetaData keys;
    document.getOptions(kCaptureRoot, kEboAecSection.name, &keys);
    const char* status = nullptr;
    const char* map = nullptr;
    int32_t channels = 0;
    if (keys.findCString("status", &status) && keys.findCString("mic_chn_map", &map)) {
        EboScanner(map).integer(&channels);
    }
    return std::max(channels, 0);
}

bool isOf(Part part, const EboSection* section) {
    if (part == Part::File) return true;
    const bool echo = section == &kEboAecSection || section == &kEboDelaySection;
    return (part == Part::Aec) == echo;
}

bool loadCapture(Load& load, Part part) {
    constexpr int kMaxChannels = 16;
    load.root = kCaptureRoot;
    Tuning& tuning = load.tuning;
    tuning.capture.reset(newRoot());
    tuning.channels = part == Part::BeamForm ? 0 : channelsAskedFor(*load.document);
    if (tuning.channels > kMaxChannels) {
        ka_err(0, 2, "eboconf",
               "mic_chn_map asks for %d channels: a device aborts, Assertion chns <= 16 failed",
               kEboAecSection.function, __LINE__, tuning.channels);
        return false;
    }
    for (const EboLoadStep& step : kEboLoadOrder) {
        if (!isOf(part, step.section)) continue;
        const bool loaded = step.load(load.document.get(), kCaptureRoot, tuning.capture.get());
        const bool lenient = part == Part::BeamForm && step.section != &kEboBfSection;
        if (!loaded && !lenient) return false;
    }
    return true;
}

// The loader itself takes a playback path of which nothing could be read; at the desk that is a file without
// one.
bool loadPlayback(Load& load) {
    load.root = kPlaybackRoot;
    load.tuning.playback.reset(newRoot());
    KAEboParam& root = *load.tuning.playback;
    root.model_en = EBO_PATH_RX;
    root.rx = static_cast<EboRxParam*>(ka_mem_malloc(sizeof(EboRxParam), __func__));
    root.rx->anr = parseEboAnrConfigs(load.document.get(), kPlaybackRoot, &root.rx->model_en);
    root.rx->howl = parseEboHowlConfigs(load.document.get(), kPlaybackRoot, &root.rx->model_en);
    return root.rx->anr != nullptr || root.rx->howl != nullptr;
}

bool loadGain(Load& load) {
    load.root = kGainRoot;
    Tuning& tuning = load.tuning;
    tuning.gain.reset(parseEboAgcConfigs(load.document.get(), kGainRoot, &tuning.gainMask));
    return tuning.gain != nullptr;
}

bool loadParts(Load& load, Part part) {
    if (part == Part::Playback) return loadPlayback(load);
    if (part == Part::Gain) return loadGain(load);
    if (part != Part::File) return loadCapture(load, part);
    const bool playback = hasRoot(*load.document, kPlaybackRoot);
    const bool gain = hasRoot(*load.document, kGainRoot);
    const bool capture = hasRoot(*load.document, kCaptureRoot) || (!playback && !gain);
    return (!capture || loadCapture(load, part)) && (!playback || loadPlayback(load)) &&
           (!gain || loadGain(load));
}

}  // namespace

bool hasRoot(const KAJsonParser& document, const char* root) {
    KAJsonTable table(document);
    for (KaJsonItem item = {}; table.next(&item);) {
        if (item.level == 1 && std::strcmp(item.name, root) == 0) return true;
    }
    return false;
}

Tuning defaultTuning() {
    Tuning tuning;
    tuning.capture.reset(createEboConfigs());
    tuning.channels = 8;
    tuning.playback.reset(newRoot());
    tuning.playback->model_en = EBO_PATH_RX;
    tuning.playback->rx = createEboRxconfig();
    tuning.gain.reset(createEboAgcConfig());
    tuning.gainMask = tuning.capture->bf->model_en & EBO_BF_AGC;
    return tuning;
}

Load loadTuning(const std::string& file, Part part) {
    const SpooledFile spooled(file);
    Load load;
    load.document = std::make_unique<KAJsonParser>();
    load.messages = messagesOf([&] {
        load.loaded = load.document->parseFile(spooled.path().c_str()) != 0 && loadParts(load, part);
    });
    for (LogMessage& message : load.messages) message.text = spooled.named(message.text);
    if (!load.loaded) load.tuning = Tuning();
    return load;
}

std::string whyNotLoaded(const Load& load, const std::string& file) {
    if (load.loaded) return "";
    const auto last = std::find_if(load.messages.rbegin(), load.messages.rend(),
                                   [](const LogMessage& message) { return message.error; });
    if (last == load.messages.rend()) return file + ": does not load";
    if (load.root == nullptr) return last->text;  // names the file itself
    std::string section;
    for (const EboLoadStep& step : kEboLoadOrder) {
        if (last->function != step.section->function) continue;
        section.append("\"").append(step.section->name).append("\" of ");
    }
    return file + ": does not load: " + last->text + ", in " + section + "\"" + load.root + "\"";
}
