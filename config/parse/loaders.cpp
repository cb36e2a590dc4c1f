// The entry points that load a whole file or one part of it.
#include <cstdlib>

#include "ebo_log.h"
#include "ebo_parse.h"
#include "loads.h"
#include "section_reader.h"

namespace {

void freeIfSet(void* block) {
    if (block != KA_NULL) std::free(block);
}

// Releases what a failed load has built, block by block with free(), in an order of its own. On purpose not
// the destroy functions: the channel map, the wake-up words and the model path stay allocated.
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

KAEboParam* parseEboConfigs(const char* path) {
    if (path == KA_NULL) return KA_NULL;
    KAJsonParser parser;
    if (parser.parseFile(path) == 0) return KA_NULL;
    auto* ebo = makeRecord<KAEboParam>("ebo != KA_NULL", EBO_HERE);
    if (eboReadSections(kEboLoads[kEboFullLoad], &parser, ebo)) return ebo;
    abandon(ebo);
    return KA_NULL;
}

EboAecParam* parseEboAecConfigs(const char* path) {
    if (path == KA_NULL) return KA_NULL;
    KAJsonParser parser;
    if (parser.parseFile(path) == 0) return KA_NULL;
    KAEboParam ebo = {};  // stands in for a root: its mask is lost
    eboReadSections(kEboLoads[kEboAecLoad], &parser, &ebo);
    return ebo.aec;
}

EboBeamFormParam* parseEboBeamFormConfigs(const char* path) {
    if (path == KA_NULL) return KA_NULL;
    KAJsonParser parser;
    if (parser.parseFile(path) == 0) return KA_NULL;
    KAEboParam ebo = {};  // stands in for a root: its mask is lost
    eboReadSections(kEboLoads[kEboBeamFormLoad], &parser, &ebo);
    return ebo.bf;
}

KAEboParam* parseEboAoConfigs(const char* path) {
    if (path == KA_NULL) return KA_NULL;
    KAJsonParser parser;
    if (parser.parseFile(path) == 0) return KA_NULL;
    auto* ebo = makeRecord<KAEboParam>("ebo != KA_NULL", EBO_HERE);
    ebo->model_en = EBO_PATH_RX;
    KAEboParam reading = {};  // the root has its container only once that is filled
    reading.rx = makeRecord<EboRxParam>("rx != KA_NULL", EBO_HERE);
    eboReadSections(kEboLoads[kEboAoLoad], &parser, &reading);
    ebo->rx = reading.rx;
    return ebo;
}

EboAgcParam* parseEboAgcConfigsFile(const char* path) {
    if (path == KA_NULL) return KA_NULL;
    KAJsonParser parser;
    if (parser.parseFile(path) == 0) return KA_NULL;
    makeRecord<EboAgcParam>("eboAgc != KA_NULL", EBO_HERE);  // leaked on purpose: the reader makes its own
    EboBeamFormParam bf = {};                                // stands in for a container: its mask is lost
    KAEboParam ebo = {};
    ebo.bf = &bf;
    eboReadSections(kEboLoads[kEboAgcLoad], &parser, &ebo);
    return bf.agc;
}
