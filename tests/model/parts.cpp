// Record trees as lists of their parts.
#include <cstring>

#include "model/observation.h"

namespace model {

namespace {

class PartsList {
public:
    Parts parts;

    // A record; of the pointers among its fields only whether they are null.
    template <typename Record, typename... Pointers>
    void add(const char* name, const Record* record, Pointers Record::*... pointers) {
        if (!record) return;
        std::string bytes(reinterpret_cast<const char*>(record), sizeof *record);
        (hide(bytes, record, &(record->*pointers), record->*pointers != nullptr), ...);
        parts.push_back({name, std::move(bytes)});
    }
    void text(const char* name, const char* text) {
        if (text) parts.push_back({name, text});
    }
    void map(const int16_t* map, int channels) {
        if (!map) return;
        const size_t size = static_cast<size_t>(channels) * sizeof *map;
        parts.push_back({"map", std::string(reinterpret_cast<const char*>(map), size)});
    }

private:
    static void hide(std::string& bytes, const void* record, const void* pointer, bool set) {
        const auto offset = static_cast<const char*>(pointer) - static_cast<const char*>(record);
        std::memset(&bytes[static_cast<size_t>(offset)], set ? 0xFF : 0, sizeof(void*));
    }
};

void addAec(PartsList& list, const EboAecParam* aec, int channels) {
    list.add("aec", aec, &EboAecParam::Array_list, &EboAecParam::delay);
    if (!aec) return;
    list.map(aec->Array_list, channels);
    list.add("delay", aec->delay);
}

void addBeamForm(PartsList& list, const EboBeamFormParam* bf) {
    using B = EboBeamFormParam;
    list.add("bf", bf, &B::dereverb, &B::aes, &B::nlp, &B::anr, &B::agc, &B::cng, &B::dtd, &B::reserved,
             &B::howl, &B::doa, &B::wakeup, &B::ainr);
    if (!bf) return;
    list.add("dereverb", bf->dereverb);
    list.add("aes", bf->aes);
    list.add("nlp", bf->nlp);
    list.add("anr", bf->anr);
    list.add("agc", bf->agc);
    list.add("cng", bf->cng);
    list.add("dtd", bf->dtd);
    list.add("howl", bf->howl);
    list.add("doa", bf->doa);
    list.add("wakeup", bf->wakeup, &EboWakeupParam::model_word1, &EboWakeupParam::model_word2);
    if (bf->wakeup) {
        list.text("model_word1", bf->wakeup->model_word1);
        list.text("model_word2", bf->wakeup->model_word2);
    }
    list.add("ainr", bf->ainr, &EboAiNRParam::model_path);
    if (bf->ainr) list.text("model_path", bf->ainr->model_path);
}

void addRoot(PartsList& list, const KAEboParam* ebo, int channels) {
    list.add("ebo", ebo, &KAEboParam::aec, &KAEboParam::bf, &KAEboParam::rx);
    if (!ebo) return;
    addAec(list, ebo->aec, channels);
    addBeamForm(list, ebo->bf);
    list.add("rx", ebo->rx, &EboRxParam::anr, &EboRxParam::howl);
    if (!ebo->rx) return;
    list.add("anr", ebo->rx->anr);
    list.add("howl", ebo->rx->howl);
}

}  // namespace

Parts partsOf(Loader loader, const void* result, int channels) {
    PartsList list;
    switch (loader) {
        case Loader::Full:
        case Loader::Ao:
            addRoot(list, static_cast<const KAEboParam*>(result), channels);
            break;
        case Loader::Aec:
            addAec(list, static_cast<const EboAecParam*>(result), channels);
            break;
        case Loader::BeamForm:
            addBeamForm(list, static_cast<const EboBeamFormParam*>(result));
            break;
        case Loader::Agc:
            list.add("agc", static_cast<const EboAgcParam*>(result));
            break;
    }
    return std::move(list.parts);
}

}  // namespace model
