// The five loads of the model.
#include <ebo_params.h>

#include "model/readers.h"

namespace model {

namespace {

const Section& aec() {
    return sectionOf("aec");
}

class Load {
public:
    Load(const Value& document, const char* root, Expectation& expectation)
        : e_(expectation), in_(document, root, expectation) {}

    void full() {
        in_.allocate("root", "parseEboConfigs", "ebo != KA_NULL");
        int32_t mask = 0;
        bool succeeds = echoCanceller(mask) && in_.read(sectionOf("bf"), &mask);
        for (const Section& section : allSections())
            succeeds = succeeds && (!inChain(section) || in_.read(section, &chain_));
        if (e_.aborts) return;
        if (!succeeds) return abandon();
        closeChain();
        root(mask);
        dumpAec(e_.parts, e_.dump);
        dumpBeamForm(e_.parts, e_.dump);
    }

    void aecFile() {
        int32_t lost = 0;
        if (!echoCanceller(lost)) return fail();
        dumpAec(e_.parts, e_.dump);
    }

    void beamFormFile() {
        int32_t lost = 0;
        if (!in_.read(sectionOf("bf"), &lost)) return fail();
        for (const Section& section : allSections())
            if (inChain(section)) in_.read(section, &chain_);
        closeChain();
        dumpBeamForm(e_.parts, e_.dump);
    }

    void aoFile() {
        in_.allocate("root", "parseEboAoConfigs", "ebo != KA_NULL");
        in_.allocate("rx", "parseEboAoConfigs", "rx != KA_NULL");
        const bool anr = in_.read(sectionOf("anr"), &chain_);
        const bool howl = in_.read(sectionOf("howl"), &chain_);
        std::string& rx = e_.parts["rx"].assign(sizeof(EboRxParam), '\0');
        put(rx, offsetof(EboRxParam, model_en), chain_);
        put(rx, offsetof(EboRxParam, anr), pointer(anr));
        put(rx, offsetof(EboRxParam, howl), pointer(howl));
        root(4);
        dumpAo(e_.parts, e_.dump);
    }

    void agcFile() {
        in_.allocate("spare", "parseEboAgcConfigsFile", "eboAgc != KA_NULL");
        if (!in_.read(sectionOf("agc"), nullptr)) return fail();
        e_.leaks = 1;
    }

private:
    static uintptr_t pointer(bool set) { return set ? UINTPTR_MAX : 0; }
    static bool inChain(const Section& section) {
        return section.name != "aec" && section.name != "delay" && section.name != "bf";
    }

    bool echoCanceller(int32_t& mask) {
        if (!in_.read(aec(), &mask)) return false;
        std::string& record = e_.parts["aec"];
        if (in_.read(sectionOf("delay"), &mask)) {
            const size_t bits = aec().key("model_aec_en").offset;
            put(record, bits, get<int32_t>(record, bits) | 0x1);
            put(record, offsetof(EboAecParam, delay), UINTPTR_MAX);
        }
        return true;
    }

    // The mask of the beamformer and the slots of those that were read.
    void closeChain() {
        std::string& record = e_.parts["bf"];
        put(record, offsetof(EboBeamFormParam, model_en), chain_);
        for (const Section& section : allSections())
            if (section.reader.slot)
                put(record, section.reader.slot, pointer(e_.parts.count(section.name) > 0));
    }

    void root(int32_t mask) {
        std::string& record = e_.parts["root"].assign(sizeof(KAEboParam), '\0');
        put(record, offsetof(KAEboParam, model_en), mask);
        put(record, offsetof(KAEboParam, aec), pointer(e_.parts.count("aec") > 0));
        put(record, offsetof(KAEboParam, bf), pointer(e_.parts.count("bf") > 0));
        put(record, offsetof(KAEboParam, rx), pointer(e_.parts.count("rx") > 0));
    }

    // Releases the records, but neither map nor words.
    void abandon() {
        for (const std::string& name : cleanUpOrder()) in_.release(name);
        fail();
    }
    void fail() {
        e_.failed = true;
        e_.parts.clear();
        e_.leaks = in_.blocks();
    }

    Expectation& e_;
    Readers in_;
    int32_t chain_ = 0;  // mask of the beamformer or of the playback path
};

}  // namespace

const char* nameOf(Loader loader) {
    static const char* const names[] = {"parseEboConfigs", "parseEboAecConfigs", "parseEboBeamFormConfigs",
                                        "parseEboAoConfigs", "parseEboAgcConfigsFile"};
    return names[static_cast<size_t>(loader)];
}

void expect(Loader loader, const std::optional<Value>& document, Expectation& e) {
    static const char* const roots[] = {"ebo_configs", "ebo_configs", "ebo_configs", "ebo_ao_configs",
                                        "ebo_agc_configs"};
    static void (Load::*const loads[])() = {&Load::full, &Load::aecFile, &Load::beamFormFile, &Load::aoFile,
                                            &Load::agcFile};
    e.failed = e.rejected = !document.has_value();
    e.calls = {"parser made", e.rejected ? "missing parseFile document-0.json" : "parseFile document-0.json"};
    if (!e.rejected) {
        Load load(*document, roots[static_cast<size_t>(loader)], e);
        (load.*loads[static_cast<size_t>(loader)])();
    }
    e.calls.emplace_back("parser gone");
}

}  // namespace model
