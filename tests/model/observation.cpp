#include "model/observation.h"

#include <ebo_config.h>

namespace model {

bool g_inside_library = false;

namespace {

class InsideLibrary {
public:
    InsideLibrary() { g_inside_library = true; }
    ~InsideLibrary() { g_inside_library = false; }
    InsideLibrary(const InsideLibrary&) = delete;
    InsideLibrary& operator=(const InsideLibrary&) = delete;
};

template <typename Record>
void* destroyedBy(void (*destroy)(Record**), void* result) {
    auto* record = static_cast<Record*>(result);
    destroy(&record);
    return record;
}

void hide(std::string& bytes, size_t offset) {
    if (get<uintptr_t>(bytes, offset) != 0) put(bytes, offset, UINTPTR_MAX);
}

std::string bytesOf(const void* record, size_t size) {
    return {static_cast<const char*>(record), size};
}

// A section's record, and the texts or the map on which it points.
void add(Parts& parts, const Section& section, const void* record, int channels) {
    if (!record) return;
    std::string& bytes = parts[section.name] = bytesOf(record, section.reader.size);
    for (const Key& key : section.keys) {
        if (key.kind != Kind::Word && key.kind != Kind::Map) continue;
        const auto* const value = get<const char*>(bytes, key.offset);
        hide(bytes, key.offset);
        if (!value) continue;
        parts[section.name + "." + key.name] =
            key.kind == Kind::Word ? value : bytesOf(value, static_cast<size_t>(channels) * sizeof(int16_t));
    }
}

void addAec(Parts& parts, const EboAecParam* aec, int channels) {
    add(parts, sectionOf("aec"), aec, channels);
    if (!aec) return;
    hide(parts["aec"], offsetof(EboAecParam, delay));
    add(parts, sectionOf("delay"), aec->delay, 0);
}

void addBeamForm(Parts& parts, const EboBeamFormParam* bf) {
    add(parts, sectionOf("bf"), bf, 0);
    if (!bf) return;
    hide(parts["bf"], offsetof(EboBeamFormParam, reserved));
    for (const Section& section : allSections()) {
        if (section.reader.slot == 0) continue;
        add(parts, section, get<const void*>(parts["bf"], section.reader.slot), 0);
        hide(parts["bf"], section.reader.slot);
    }
}

void addRoot(Parts& parts, const KAEboParam* ebo, int channels) {
    if (!ebo) return;
    std::string& root = parts["root"] = bytesOf(ebo, sizeof *ebo);
    for (const size_t pointer :
         {offsetof(KAEboParam, aec), offsetof(KAEboParam, bf), offsetof(KAEboParam, rx)})
        hide(root, pointer);
    addAec(parts, ebo->aec, channels);
    addBeamForm(parts, ebo->bf);
    if (!ebo->rx) return;
    std::string& rx = parts["rx"] = bytesOf(ebo->rx, sizeof *ebo->rx);
    hide(rx, offsetof(EboRxParam, anr));
    hide(rx, offsetof(EboRxParam, howl));
    add(parts, sectionOf("anr"), ebo->rx->anr, 0);
    add(parts, sectionOf("howl"), ebo->rx->howl, 0);
}

std::string toString(const std::string& bytes) {
    static const char kDigits[] = "0123456789abcdef";
    std::string hex;
    for (const char c : bytes) {
        hex += kDigits[static_cast<unsigned char>(c) >> 4];
        hex += kDigits[static_cast<unsigned char>(c) & 0xF];
    }
    return hex;
}

std::string toString(const Log& log, size_t i) {
    if (i >= log.size()) return "nothing";
    const Line& line = log[i];
    return (line.error ? "err " : "log ") + std::to_string(line.level) + " " + line.function + ": " +
           line.text + " {" + line.format + "}";
}

}  // namespace

Parts partsOf(const Section& section, const void* record, int channels) {
    Parts parts;
    add(parts, section, record, channels);
    return parts;
}

Parts partsOf(Loader loader, const void* result, int channels) {
    Parts parts;
    if (loader == Loader::Aec) addAec(parts, static_cast<const EboAecParam*>(result), channels);
    if (loader == Loader::BeamForm) addBeamForm(parts, static_cast<const EboBeamFormParam*>(result));
    if (loader == Loader::Agc) add(parts, sectionOf("agc"), result, 0);
    if (loader == Loader::Full || loader == Loader::Ao)
        addRoot(parts, static_cast<const KAEboParam*>(result), channels);
    return parts;
}

void* load(Loader loader, const char* path) {
    const InsideLibrary inside;
    switch (loader) {
        case Loader::Full:
            return parseEboConfigs(path);
        case Loader::Aec:
            return parseEboAecConfigs(path);
        case Loader::BeamForm:
            return parseEboBeamFormConfigs(path);
        case Loader::Ao:
            return parseEboAoConfigs(path);
        case Loader::Agc:
            return parseEboAgcConfigsFile(path);
    }
    return nullptr;
}

void dump(Loader loader, const void* result) {
    const InsideLibrary inside;
    auto* const root = static_cast<const KAEboParam*>(result);
    if (loader == Loader::Full) dumpEboAecConfig(root->aec);
    if (loader == Loader::Full) dumpEboBeamFormConfig(root->bf);
    if (loader == Loader::Aec) dumpEboAecConfig(static_cast<EboAecParam*>(const_cast<void*>(result)));
    if (loader == Loader::BeamForm)
        dumpEboBeamFormConfig(static_cast<EboBeamFormParam*>(const_cast<void*>(result)));
    if (loader == Loader::Ao) dumpEboAoConfig(root->rx);
}

void* destroyed(Loader loader, void* result) {
    const InsideLibrary inside;
    switch (loader) {
        case Loader::Full:
            return destroyedBy(destroyEboConfig, result);
        case Loader::Aec:
            return destroyedBy(destroyEboAecConfig, result);
        case Loader::BeamForm:
            return destroyedBy(destroyEboBeamFormConfig, result);
        case Loader::Ao:
            return destroyedBy(destroyEboAoConfig, result);
        case Loader::Agc:
            return destroyedBy(destroyEboAgcConfig, result);
    }
    return nullptr;
}

Observation observe(Loader loader, const char* path, int channels, const std::function<Log()>& take) {
    Observation seen;
    void* const result = load(loader, path);
    seen.failed = result == nullptr;
    seen.parts = partsOf(loader, result, channels);
    seen.log = take();
    if (!result) return seen;
    dump(loader, result);
    if (destroyed(loader, result) != nullptr) seen.parts["pointer left by the destroy function"] = "";
    seen.dump = take();
    return seen;
}

std::string differences(const Parts& expected, const Parts& observed) {
    std::string out;
    for (const auto& [name, bytes] : expected)
        if (observed.count(name) == 0) out += name + " is not there\n";
    for (const auto& [name, bytes] : observed) {
        const auto want = expected.find(name);
        if (want == expected.end()) {
            out += name + " is there\n";
        } else if (want->second != bytes) {
            out += name + "\n  expected " + toString(want->second) + "\n  observed " + toString(bytes) + "\n";
        }
    }
    return out;
}

std::string differences(const Log& expected, const Log& observed) {
    std::string out;
    for (size_t i = 0; i < expected.size() || i < observed.size(); ++i) {
        if (i < expected.size() && i < observed.size() && expected[i] == observed[i]) continue;
        out += "line " + std::to_string(i) + "\n  expected " + toString(expected, i) + "\n  observed " +
               toString(observed, i) + "\n";
    }
    return out;
}

std::string differences(const Expectation& expected, const Observation& observed) {
    std::string out = expected.failed == observed.failed ? ""
                      : observed.failed                  ? "fails\n"
                                                         : "does not fail\n";
    return out + differences(expected.parts, observed.parts) + differences(expected.log, observed.log) +
           differences(expected.dump, observed.dump);
}

bool readsAec(Loader loader) {
    return loader == Loader::Full || loader == Loader::Aec;
}

}  // namespace model
