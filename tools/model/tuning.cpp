#include "model/tuning.h"

#include <ka/json_table.h>
#include <parse/row_scan.h>

#include <algorithm>
#include <cstring>

#include "model/places.h"
#include "model/spool.h"

namespace {

constexpr char kAuto[] = "auto";

KAEboParam* newRoot() {
    return static_cast<KAEboParam*>(ka_mem_malloc(sizeof(KAEboParam), __func__));
}

bool hasRoot(const KAJsonParser& document, const char* root) {
    KAJsonTable table(document);
    for (KaJsonItem item = {}; table.next(&item);) {
        if (item.level == 1 && item.name_length == std::strlen(root) && std::strcmp(item.name, root) == 0)
            return true;
    }
    return false;
}

// The number of channels that a map asks for, as the section's reader takes it.
int channelsAskedFor(KAJsonParser& document, const EboLoad& load, const EboSection& section,
                     const EboKeyRow& row) {
    KaMetaData keys;
    document.getOptions(load.root, section.name, &keys);
    const char* status = nullptr;
    const char* map = nullptr;
    int32_t channels = 0;
    if (keys.findCString(section.rows[0].key, &status) && keys.findCString(row.key, &map)) {
        EboScanner(map).integer(&channels);
    }
    return std::max(channels, 0);
}

// False when a map would abort the process.
bool takeChannels(Load& result, const EboLoad& load) {
    for (size_t i = 0; i < load.sectionCount; ++i) {
        const EboSection& section = *load.sections[i];
        for (const EboKeyRow* row : keysOf(section)) {
            if (row->kind != EboKeyKind::ChannelMap) continue;
            const int channels = channelsAskedFor(*result.document, load, section, *row);
            result.tuning.channels = channels;
            if (channels <= row->count) continue;
            ka_err(0, 2, "eboconf", "%s asks for %d channels: a device aborts, %s", section.function,
                   __LINE__, row->key, channels, kMapAssertion);
            return false;
        }
    }
    return true;
}

bool readCapture(Load& result, const EboLoad& load) {
    result.tuning.capture.reset(newRoot());
    return takeChannels(result, load) &&
           eboReadSections(load, result.document.get(), result.tuning.capture.get());
}

bool readPlayback(Load& result, const EboLoad& load) {
    result.tuning.playback.reset(newRoot());
    KAEboParam& root = *result.tuning.playback;
    root.model_en = EBO_PATH_RX;
    root.rx = static_cast<EboRxParam*>(ka_mem_malloc(sizeof(EboRxParam), __func__));
    return eboReadSections(load, result.document.get(), &root);
}

bool readGain(Load& result, const EboLoad& load) {
    EboBeamFormParam bf = {};  // stands in for a container
    KAEboParam ebo = {};
    ebo.bf = &bf;
    const bool read = eboReadSections(load, result.document.get(), &ebo);
    result.tuning.gain.reset(bf.agc);
    result.tuning.gainMask = bf.model_en;
    return read;
}

bool read(Load& result, const EboLoad& load) {
    result.loads.push_back(&load);
    if (load.maskless != 0) return readGain(result, load);
    return load.playback != 0 ? readPlayback(result, load) : readCapture(result, load);
}

}  // namespace

std::vector<std::string> partNames() {
    std::vector<std::string> names = {kAuto};
    for (const EboLoad& load : kEboLoads) names.emplace_back(load.name);
    return names;
}

Part partNamed(const std::string& name) {
    for (const EboLoad& load : kEboLoads) {
        if (name == load.name) return &load;
    }
    return nullptr;
}

const char* componentOf(const EboLoad& load) {
    static const char* const words[kEboLoadCount] = {"capture path", "echo canceller", "beamformer",
                                                     "playback path", "gain control"};
    return words[&load - kEboLoads];
}

std::vector<const EboLoad*> loadsOf(Part part, const KAJsonParser& document) {
    if (part != nullptr) return {part};
    std::vector<const EboLoad*> loads;
    for (const EboLoad* load : rootLoads()) {
        if (hasRoot(document, load->root)) loads.push_back(load);
    }
    if (loads.empty()) loads.push_back(rootLoads().front());
    return loads;
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
    Load result;
    result.document = std::make_unique<KAJsonParser>();
    result.messages = messagesOf([&] {
        if (result.document->parseFile(spooled.path().c_str()) == 0) return;
        const std::vector<const EboLoad*> loads = loadsOf(part, *result.document);
        result.loaded = std::all_of(loads.begin(), loads.end(),
                                    [&result](const EboLoad* load) { return read(result, *load); });
    });
    for (LogMessage& message : result.messages) message.text = spooled.named(message.text);
    if (!result.loaded) result.tuning = Tuning();
    return result;
}

std::string whyNotLoaded(const Load& load, const std::string& file) {
    if (load.loaded) return "";
    const auto last = std::find_if(load.messages.rbegin(), load.messages.rend(),
                                   [](const LogMessage& message) { return message.error; });
    if (last == load.messages.rend()) return file + ": does not load";
    if (load.loads.empty()) return last->text;  // names the file itself
    std::string section;
    for (const SectionPlace& place : sectionPlaces()) {
        if (place.root == load.loads.back()->root && last->function == place.section->function)
            section.append("\"").append(place.section->name).append("\" of ");
    }
    return file + ": does not load: " + last->text + ", in " + section + "\"" + load.loads.back()->root +
           "\"";
}
