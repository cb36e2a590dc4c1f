// Compares the trees of trees.inc with what the loaders give of their files: every byte of every record but
// the addresses, and what the addresses point at.
#include <ebo_config.h>
#include <ka/log_sink.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "trees.h"

namespace {

int g_channels = 0;

template <typename Target, typename Same>
bool sameTarget(const Target* built, const Target* loaded, Same same) {
    return built == nullptr || loaded == nullptr ? built == loaded : built != loaded && same(built, loaded);
}

bool sameText(const char* built, const char* loaded) {
    return sameTarget(built, loaded, [](const char* a, const char* b) { return std::strcmp(a, b) == 0; });
}

// Padding too, which is zero in both. `clear` takes the pointers out of a copy.
template <typename Record, typename Clear>
bool sameBytes(const Record& built, const Record& loaded, Clear clear) {
    Record copies[2];
    std::memcpy(&copies[0], &built, sizeof(Record));
    std::memcpy(&copies[1], &loaded, sizeof(Record));
    for (Record& copy : copies) clear(copy);
    return std::memcmp(&copies[0], &copies[1], sizeof(Record)) == 0;
}

template <typename Record>
bool samePlain(const Record* built, const Record* loaded) {
    return sameTarget(built, loaded,
                      [](const Record* a, const Record* b) { return sameBytes(*a, *b, [](Record&) {}); });
}

bool same(const EboWakeupParam& built, const EboWakeupParam& loaded) {
    return sameText(built.model_word1, loaded.model_word1) &&
           sameText(built.model_word2, loaded.model_word2) &&
           sameBytes(built, loaded,
                     [](EboWakeupParam& copy) { copy.model_word1 = copy.model_word2 = nullptr; });
}

bool same(const EboAiNRParam& built, const EboAiNRParam& loaded) {
    return sameText(built.model_path, loaded.model_path);
}

bool same(const EboAgcParam& built, const EboAgcParam& loaded) {
    return samePlain(&built, &loaded);
}

bool same(const EboAecParam& built, const EboAecParam& loaded) {
    const auto sameMap = [](const int16_t* a, const int16_t* b) { return std::equal(a, a + g_channels, b); };
    return samePlain(built.delay, loaded.delay) && sameTarget(built.Array_list, loaded.Array_list, sameMap) &&
           sameBytes(built, loaded, [](EboAecParam& copy) {
               copy.Array_list = nullptr;
               copy.delay = nullptr;
           });
}

bool same(const EboBeamFormParam& built, const EboBeamFormParam& loaded);
bool same(const EboRxParam& built, const EboRxParam& loaded);

template <typename Record>
bool sameRecord(const Record* built, const Record* loaded) {
    return sameTarget(built, loaded, [](const Record* a, const Record* b) { return same(*a, *b); });
}

bool same(const EboBeamFormParam& built, const EboBeamFormParam& loaded) {
    return samePlain(built.dereverb, loaded.dereverb) && samePlain(built.aes, loaded.aes) &&
           samePlain(built.nlp, loaded.nlp) && samePlain(built.anr, loaded.anr) &&
           samePlain(built.agc, loaded.agc) && samePlain(built.cng, loaded.cng) &&
           samePlain(built.dtd, loaded.dtd) && built.reserved == loaded.reserved &&
           samePlain(built.howl, loaded.howl) && samePlain(built.doa, loaded.doa) &&
           sameRecord(built.wakeup, loaded.wakeup) && sameRecord(built.ainr, loaded.ainr) &&
           std::memcmp(&built, &loaded, offsetof(EboBeamFormParam, dereverb)) == 0;
}

bool same(const EboRxParam& built, const EboRxParam& loaded) {
    return samePlain(built.anr, loaded.anr) && samePlain(built.howl, loaded.howl) &&
           built.model_en == loaded.model_en;
}

bool same(const KAEboParam& built, const KAEboParam& loaded) {
    return sameRecord(built.aec, loaded.aec) && sameRecord(built.bf, loaded.bf) &&
           sameRecord(built.rx, loaded.rx) && built.model_en == loaded.model_en;
}

template <typename Record>
bool isLoaded(const Record& built, Record* (*load)(const char*), void (*destroy)(Record**),
              const char* file) {
    Record* loaded = load(file);
    const bool equal = loaded != nullptr && same(built, *loaded);
    destroy(&loaded);
    return equal;
}

bool full(const KAEboParam& built, const char* file) {
    return isLoaded(built, parseEboConfigs, destroyEboConfig, file);
}
bool aec(const EboAecParam& built, const char* file) {
    return isLoaded<EboAecParam>(built, parseEboAecConfigs, destroyEboAecConfig, file);
}
bool beamform(const EboBeamFormParam& built, const char* file) {
    return isLoaded<EboBeamFormParam>(built, parseEboBeamFormConfigs, destroyEboBeamFormConfig, file);
}
bool ao(const KAEboParam& built, const char* file) {
    return isLoaded(built, parseEboAoConfigs, destroyEboAoConfig, file);
}
bool agc(const EboAgcParam& built, const char* file) {
    return isLoaded(built, parseEboAgcConfigsFile, destroyEboAgcConfig, file);
}

struct Tree {
    bool (*isLoaded)(const void* built, const char* file);
    const char* part;
    const void* built;
    int channels;
    const char* file;
};

template <auto kIsLoaded, typename Record>
bool checked(const void* built, const char* file) {
    return kIsLoaded(*static_cast<const Record*>(built), file);
}

const Tree kTrees[] = {
#define TREE(part, name, channels, file) {checked<part, decltype(name)>, #part, &name, channels, file},
#include "trees.inc"
#undef TREE
};

}  // namespace

int main() {
    ka_install_log_sink([](const KaLogMessage&, void*) {}, nullptr);
    size_t differing = 0;
    for (const Tree& tree : kTrees) {
        g_channels = tree.channels;
        if (tree.isLoaded(tree.built, tree.file)) continue;
        if (++differing <= 10)
            std::printf("%s: what is built in of %s is not what is loaded\n", tree.file, tree.part);
    }
    std::printf("%zu trees of %zu-bit pointers, %zu differ\n", sizeof(kTrees) / sizeof(kTrees[0]),
                8 * sizeof(void*), differing);
    return differing == 0 ? 0 : 1;
}
