// Loads, prints and destroys each part of each tuning in flash: what the log says between the name of a part
// and the next one is that part's dump.
#include <ebo_config.h>

#include <initializer_list>

#include "board.h"
#include "figures.h"
#include "voice_tuning.h"

namespace {

// `part` is the name of its golden file.
void begin(const char* part) {
    for (const char* text : {"part ", part, "\n"}) boardWrite(text);
}

void dumpAec(const char* path) {
    EboAecParam* aec = parseEboAecConfigs(path);
    dumpEboAecConfig(aec);
    destroyEboAecConfig(&aec);
}

void dumpBeamForm(const char* path) {
    EboBeamFormParam* bf = parseEboBeamFormConfigs(path);
    dumpEboBeamFormConfig(bf);
    destroyEboBeamFormConfig(&bf);
}

void dumpPlayback(const char* path) {
    KAEboParam* ebo = parseEboAoConfigs(path);
    if (ebo != nullptr) dumpEboAoConfig(ebo->rx);
    destroyEboAoConfig(&ebo);
}

// It has no dump of its own: the record hangs in an otherwise empty beamformer.
void dumpAgc(const char* path) {
    EboBeamFormParam bf = {};
    bf.model_en = EBO_BF_AGC;
    bf.agc = parseEboAgcConfigsFile(path);
    dumpEboBeamFormConfig(&bf);
    destroyEboAgcConfig(&bf.agc);
}

// The whole capture path holds the first two parts again.
void dumpCapture(const char* path, const char* aec, const char* beamform) {
    KAEboParam* ebo = parseEboConfigs(path);
    if (ebo == nullptr) return;
    begin(aec);
    dumpEboAecConfig(ebo->aec);
    begin(beamform);
    dumpEboBeamFormConfig(ebo->bf);
    destroyEboConfig(&ebo);
}

// The tree that is part of the program, which nobody destroys.
void dumpBuiltIn() {
    begin("two-mic-speaker.aec");
    dumpEboAecConfig(voice_tuning.aec);
    begin("two-mic-speaker.beamform");
    dumpEboBeamFormConfig(voice_tuning.bf);
}

void dumpDefaults() {
    KAEboParam* ebo = createEboConfigs();
    ebo->aec->model_aec_en &= ~EBO_AEC_DELAY;  // there is none
    dumpEboAecConfig(ebo->aec);
    dumpEboBeamFormConfig(ebo->bf);
    destroyEboConfig(&ebo);
}

struct Document {
    const char* path;
    const char* aec;
    const char* beamform;
    const char* ao;
    const char* agc;
};
#define DOCUMENT(name) \
    { name ".json", name ".aec", name ".beamform", name ".ao", name ".agc" }
constexpr Document kDocuments[] = {
    DOCUMENT("two-mic-speaker"),
    DOCUMENT("six-mic-conference"),
    DOCUMENT("minimal"),
};

}  // namespace

int main() {
    for (const Document& document : kDocuments) {
        begin(document.aec);
        dumpAec(document.path);
        begin(document.beamform);
        dumpBeamForm(document.path);
        begin(document.ao);
        dumpPlayback(document.path);
        dumpCapture(document.path, document.aec, document.beamform);
        begin(document.agc);
        dumpAgc(document.path);
    }
    dumpBuiltIn();
    begin("defaults");
    dumpDefaults();
    printFigures();
    return 0;
}
