#include "model/tuning.h"

#include <ka/json_table.h>
#include <parse/row_scan.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>

#include "model/places.h"
#include "model/spool.h"
#include "model/values.h"

namespace {

constexpr char kAuto[] = "auto";

template <typename Record>
Record* notNull(Record* record) {
    if (record == nullptr) throw std::bad_alloc();
    return record;
}

template <typename Record>
Record* newRecord() {
    return notNull(static_cast<Record*>(ka_mem_malloc(sizeof(Record), __func__)));
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
    result.tuning.capture.reset(newRecord<KAEboParam>());
    return takeChannels(result, load) &&
           eboReadSections(load, result.document.get(), result.tuning.capture.get());
}

bool readPlayback(Load& result, const EboLoad& load) {
    result.tuning.playback.reset(newRecord<KAEboParam>());
    KAEboParam& root = *result.tuning.playback;
    root.model_en = EBO_PATH_RX;
    root.rx = newRecord<EboRxParam>();
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

// A word that could not be copied is null, like none.
void expectWords(const Load& result, const EboLoad& load) {
    for (const SectionPlace& place : sectionPlaces()) {
        const void* const record = place.recordOf(result.tuning);
        if (std::strcmp(place.root, load.root) != 0 || record == nullptr || !isEnabled(place, result.tuning))
            continue;
        KaMetaData keys;
        result.document->getOptions(load.root, place.section->name, &keys);
        for (const EboKeyRow* row : keysOf(*place.section)) {
            const char* word = nullptr;
            if (row->kind == EboKeyKind::Word && keys.findCString(row->key, &word) && word[0] != '\0' &&
                wordText(record, *row).empty())
                throw std::bad_alloc();
        }
    }
}

bool read(Load& result, const EboLoad& load) {
    result.loads.push_back(&load);
    if (load.maskless != 0) return readGain(result, load);
    if (!(load.playback != 0 ? readPlayback(result, load) : readCapture(result, load))) return false;
    expectWords(result, load);
    return true;
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
    errno = 0;  // a module that lacks memory stays null, and nothing else tells
    messagesOf([&tuning] { tuning.capture.reset(notNull(createEboConfigs())); });
    tuning.channels = 8;
    tuning.playback.reset(newRecord<KAEboParam>());
    tuning.playback->model_en = EBO_PATH_RX;
    tuning.playback->rx = notNull(createEboRxconfig());
    if (errno == ENOMEM) throw std::bad_alloc();
    tuning.gain.reset(notNull(createEboAgcConfig()));
    tuning.gainMask = tuning.capture->bf->model_en & EBO_BF_AGC;
    return tuning;
}

const EboLoad* Load::of(const char* root) const {
    for (const EboLoad* load : loads) {
        if (std::strcmp(load->root, root) == 0) return load;
    }
    return nullptr;
}

Load loadTuning(const std::string& file, Part part, FileText text) {
    const bool kept = text == FileText::Kept;
    const SpooledFile spooled(file, kept ? SpooledFile::Copy::Always : SpooledFile::Copy::WhenNeeded);
    Load result;
    result.document = std::make_unique<KAJsonParser>();
    result.messages = messagesOf([&] {
        if (!spooled.error().empty())
            return ka_err(0, 2, "eboconf", "%s", "loadTuning", __LINE__, spooled.error().c_str());
        if (result.document->parseFile(spooled.path().c_str()) == 0) return;
        const std::vector<const EboLoad*> loads = loadsOf(part, *result.document);
        result.loaded = std::all_of(loads.begin(), loads.end(),
                                    [&result](const EboLoad* load) { return read(result, *load); });
    });
    for (LogMessage& message : result.messages) {
        message.text = spooled.named(message.text);
        message.logged = spooled.named(message.logged);
    }
    if (kept) result.text = spooled.text();
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
