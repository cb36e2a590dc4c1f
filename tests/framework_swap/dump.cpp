// dump PART FILE prints the dump of one loader's records, as this framework's log has kept it; dump defaults
// that of the built-in ones.
#include <ebo_config.h>
#include <ka/log_ring.h>

#include <cstdio>
#include <map>
#include <string>

namespace {

void aec(const char* path) {
    EboAecParam* record = parseEboAecConfigs(path);
    dumpEboAecConfig(record);
    destroyEboAecConfig(&record);
}

void beamform(const char* path) {
    EboBeamFormParam* record = parseEboBeamFormConfigs(path);
    dumpEboBeamFormConfig(record);
    destroyEboBeamFormConfig(&record);
}

void ao(const char* path) {
    KAEboParam* root = parseEboAoConfigs(path);
    if (root != nullptr) dumpEboAoConfig(root->rx);
    destroyEboAoConfig(&root);
}

// It has no dump of its own: the record is hung in an otherwise empty beamformer.
void agc(const char* path) {
    EboAgcParam* record = parseEboAgcConfigsFile(path);
    EboBeamFormParam bf = {};
    bf.model_en = EBO_BF_AGC;
    bf.agc = record;
    dumpEboBeamFormConfig(&bf);
    destroyEboAgcConfig(&record);
}

void defaults(const char*) {
    KAEboParam* root = createEboConfigs();
    root->aec->model_aec_en &= ~EBO_AEC_DELAY;
    dumpEboAecConfig(root->aec);
    dumpEboBeamFormConfig(root->bf);
    destroyEboConfig(&root);
}

}  // namespace

int main(int argc, char** argv) {
    const std::map<std::string, void (*)(const char*)> parts = {
        {"aec", aec}, {"beamform", beamform}, {"ao", ao}, {"agc", agc}, {"defaults", defaults}};
    const std::string part = argc > 1 ? argv[1] : "";
    parts.at(part)(argc > 2 ? argv[2] : nullptr);

    // Of the gain control's beamformer only the block counts.
    bool shown = part != "agc";
    for (const KaLogEntry& entry : ka_log_since(0)) {
        if (entry.text == "agc:") shown = true;
        if (part == "agc" && entry.text.find("* End *") != std::string::npos) shown = false;
        if (shown && entry.function.rfind("dump", 0) == 0) std::puts(entry.text.c_str());
    }
    return 0;
}
