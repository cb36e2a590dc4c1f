// The entry points that load a whole file or one part of it.
#include <cstdlib>

#include "ebo_parse.h"
#include "section.h"
#include "section_reader.h"

namespace {

constexpr char kCaptureRoot[] = "ebo_configs";
constexpr char kPlaybackRoot[] = "ebo_ao_configs";
constexpr char kGainRoot[] = "ebo_agc_configs";

bool loadAec(void* parser, const char* root, KAEboParam* ebo) {
    ebo->aec = parseEboAecConfigs(parser, root, &ebo->model_en);
    return ebo->aec != KA_NULL;
}

// On purpose never fails a load: without a record there is no delay estimation.
bool loadDelay(void* parser, const char* root, KAEboParam* ebo) {
    ebo->aec->delay = parseEboDelayConfigs(parser, root, &ebo->model_en);
    if (ebo->aec->delay != KA_NULL) ebo->aec->model_aec_en |= EBO_AEC_DELAY;
    return true;
}

bool loadBf(void* parser, const char* root, KAEboParam* ebo) {
    ebo->bf = parseEboBfConfigs(parser, root, &ebo->model_en);
    return ebo->bf != KA_NULL;
}

template <auto Read>
bool loadSwitch(void* parser, const char* root, KAEboParam* ebo) {
    return Read(parser, root, &ebo->bf->model_en) == 0;
}

template <auto Slot, auto Read>
bool loadModule(void* parser, const char* root, KAEboParam* ebo) {
    ebo->bf->*Slot = Read(parser, root, &ebo->bf->model_en);
    return ebo->bf->*Slot != KA_NULL;
}

void freeIfSet(void* block) {
    if (block != KA_NULL) std::free(block);
}

// Releases what a failed load has built, block by block with free(). On purpose not the destroy functions:
// the channel map, the wake-up words and the model path stay allocated.
void abandon(KAEboParam* ebo) {
    if (EboAecParam* aec = ebo->aec; aec != KA_NULL) {
        freeIfSet(aec->delay);
        freeIfSet(aec);
    }
    if (EboBeamFormParam* bf = ebo->bf; bf != KA_NULL) {
        freeIfSet(bf->anr);
        freeIfSet(bf->agc);
        freeIfSet(bf->nlp);
        freeIfSet(bf->dereverb);
        freeIfSet(bf->cng);
        freeIfSet(bf->dtd);
        freeIfSet(bf->aes);
        freeIfSet(bf->howl);
        freeIfSet(bf->doa);
        freeIfSet(bf->wakeup);
        freeIfSet(bf->ainr);
        freeIfSet(bf);
    }
    freeIfSet(ebo);
}

template <typename Record>
Record* makeRecord(const char* assertion, const char* function, int line) {
    return static_cast<Record*>(eboMakeBlock(sizeof(Record), assertion, function, line));
}

}  // namespace

const EboLoadStep kEboLoadOrder[kEboSectionCount] = {
    {&kEboAecSection, loadAec},
    {&kEboDelaySection, loadDelay},
    {&kEboBfSection, loadBf},
    {&kEboFastAecSection, loadSwitch<parseEboFastAecConfigs>},
    {&kEboGscSection, loadSwitch<parseEboGscConfigs>},
    {&kEboWindSection, loadSwitch<parseEboWindConfigs>},
    {&kEboAgcSection, loadModule<&EboBeamFormParam::agc, parseEboAgcConfigs>},
    {&kEboAnrSection, loadModule<&EboBeamFormParam::anr, parseEboAnrConfigs>},
    {&kEboNlpSection, loadModule<&EboBeamFormParam::nlp, parseEboNlpConfigs>},
    {&kEboDereverbSection, loadModule<&EboBeamFormParam::dereverb, parseEboDereverbConfigs>},
    {&kEboCngSection, loadModule<&EboBeamFormParam::cng, parseEboCngConfigs>},
    {&kEboDtdSection, loadModule<&EboBeamFormParam::dtd, parseEboDtdConfigs>},
    {&kEboAesSection, loadModule<&EboBeamFormParam::aes, parseEboAesConfigs>},
    {&kEboHowlSection, loadModule<&EboBeamFormParam::howl, parseEboHowlConfigs>},
    {&kEboDoaSection, loadModule<&EboBeamFormParam::doa, parseEboDoaConfigs>},
    {&kEboWakeupSection, loadModule<&EboBeamFormParam::wakeup, parseEboWakeupConfigs>},
    {&kEboAinrSection, loadModule<&EboBeamFormParam::ainr, parseEboAINRConfigs>},
};

constexpr size_t kBehindBf = 3;  // the first section that fills the beamformer's container

KAEboParam* parseEboConfigs(const char* path) {
    if (path == KA_NULL) return KA_NULL;
    KAJsonParser parser;
    if (parser.parseFile(path) == 0) return KA_NULL;
    auto* ebo = makeRecord<KAEboParam>("ebo != KA_NULL", EBO_HERE);
    for (const EboLoadStep& step : kEboLoadOrder) {
        if (!step.load(&parser, kCaptureRoot, ebo)) {
            abandon(ebo);
            return KA_NULL;
        }
    }
    return ebo;
}

EboAecParam* parseEboAecConfigs(const char* path) {
    if (path == KA_NULL) return KA_NULL;
    KAJsonParser parser;
    if (parser.parseFile(path) == 0) return KA_NULL;
    KAEboParam ebo = {};  // stands in for a root: its mask is lost
    if (loadAec(&parser, kCaptureRoot, &ebo)) loadDelay(&parser, kCaptureRoot, &ebo);
    return ebo.aec;
}

// On purpose lenient behind "bf": a section that fails leaves its slot null.
EboBeamFormParam* parseEboBeamFormConfigs(const char* path) {
    if (path == KA_NULL) return KA_NULL;
    KAJsonParser parser;
    if (parser.parseFile(path) == 0) return KA_NULL;
    KAEboParam ebo = {};  // stands in for a root: its mask is lost
    if (!loadBf(&parser, kCaptureRoot, &ebo)) return KA_NULL;
    for (size_t i = kBehindBf; i < kEboSectionCount; ++i) kEboLoadOrder[i].load(&parser, kCaptureRoot, &ebo);
    return ebo.bf;
}

KAEboParam* parseEboAoConfigs(const char* path) {
    if (path == KA_NULL) return KA_NULL;
    KAJsonParser parser;
    if (parser.parseFile(path) == 0) return KA_NULL;
    auto* ebo = makeRecord<KAEboParam>("ebo != KA_NULL", EBO_HERE);
    ebo->model_en = EBO_PATH_RX;
    auto* rx = makeRecord<EboRxParam>("rx != KA_NULL", EBO_HERE);
    rx->anr = parseEboAnrConfigs(&parser, kPlaybackRoot, &rx->model_en);
    rx->howl = parseEboHowlConfigs(&parser, kPlaybackRoot, &rx->model_en);
    ebo->rx = rx;
    return ebo;
}

EboAgcParam* parseEboAgcConfigsFile(const char* path) {
    if (path == KA_NULL) return KA_NULL;
    KAJsonParser parser;
    if (parser.parseFile(path) == 0) return KA_NULL;
    makeRecord<EboAgcParam>("eboAgc != KA_NULL", EBO_HERE);  // leaked on purpose: the reader makes its own
    return parseEboAgcConfigs(&parser, kGainRoot, KA_NULL);
}
