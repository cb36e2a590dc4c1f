#include "sections/sections.h"

#include <ebo_config.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

using ka_recording::Op;

namespace {

template <class T>
Outcome own(T* record, void (*destroy)(T**)) {
    if (!record) return {true, nullptr};
    return {false, std::shared_ptr<void>(record, [destroy](void* last) {
                T* typed = static_cast<T*>(last);
                destroy(&typed);
            })};
}

template <class T>
using RecordReader = T* (*)(void*, const char*, int*);

template <class T, RecordReader<T> Read, void (*Destroy)(T**)>
constexpr Reader record = {
    [](void* parser, const char* root, int* model_en) { return own(Read(parser, root, model_en), Destroy); },
    sizeof(T)};

template <int (*Read)(void*, const char*, int*)>
constexpr Reader toggle = {[](void* parser, const char* root, int* model_en) {
                               const int result = Read(parser, root, model_en);
                               EXPECT_TRUE(result == 0 || result == -1) << result;
                               return Outcome{result != 0, nullptr};
                           },
                           0};

}  // namespace

// One section, one line.
// clang-format off
const std::vector<Section>& allSections() {
    static const std::vector<Section> sections = {
        {"aec", "parseEboAecConfigs", 0x1, "aec != KA_NULL", Op::Free, "aec: not enable",
         record<EboAecParam, parseEboAecConfigs, destroyEboAecConfig>},
        {"delay", "parseEboDelayConfigs", 0, "delay != KA_NULL", Op::Free, "delay: not enable",
         record<EboDelayParam, parseEboDelayConfigs, destroyEboDelayConfig>},
        {"bf", "parseEboBfConfigs", 0x2, "bf != KA_NULL", Op::Free, "bf: not enable",
         record<EboBeamFormParam, parseEboBfConfigs, destroyEboBeamFormConfig>},
        {"fast_aec", "parseEboFastAecConfigs", 0x1, nullptr, Op::Free, nullptr,
         toggle<parseEboFastAecConfigs>},
        {"gsc", "parseEboGscConfigs", 0x80, nullptr, Op::Free, nullptr, toggle<parseEboGscConfigs>},
        {"wind", "parseEboWindConfigs", 0x10000, nullptr, Op::Free, nullptr, toggle<parseEboWindConfigs>},
        {"wakeup", "parseEboWakeupConfigs", 0x2, "wakeup != KA_NULL", Op::Free, nullptr,
         record<EboWakeupParam, parseEboWakeupConfigs, destroyEboWakeupConfig>},
        {"doa", "parseEboDoaConfigs", 0x8000, "doa != KA_NULL", Op::Free, nullptr,
         record<EboDoaParam, parseEboDoaConfigs, destroyEboDoaConfig>},
        {"howl", "parseEboHowlConfigs", 0x4000, "howl != KA_NULL", Op::Free, nullptr,
         record<EboHowlParam, parseEboHowlConfigs, destroyEboHowlConfig>},
        {"anr", "parseEboAnrConfigs", 0x40, "anr != KA_NULL", Op::Free, nullptr,
         record<EboAnrParam, parseEboAnrConfigs, destroyEboAnrConfig>},
        {"aes", "parseEboAesConfigs", 0x10, "aes != KA_NULL", Op::Free, nullptr,
         record<EboAesParam, parseEboAesConfigs, destroyEboAesConfig>},
        {"nlp", "parseEboNlpConfigs", 0x8, "nlp != KA_NULL", Op::Free, nullptr,
         record<EboNlpParam, parseEboNlpConfigs, destroyEboNlpConfig>},
        {"ainr", "parseEboAINRConfigs", 0x20000, "ainr != KA_NULL", Op::SafeFree, nullptr,
         record<EboAiNRParam, parseEboAINRConfigs, destroyEboAiNRConfig>},
        {"dereverb", "parseEboDereverbConfigs", 0x4, "dereverb != KA_NULL", Op::Free, nullptr,
         record<EboDereverbParam, parseEboDereverbConfigs, destroyEboDereverbConfig>},
        {"cng", "parseEboCngConfigs", 0x800, "cng != KA_NULL", Op::Free, nullptr,
         record<EboCngParam, parseEboCngConfigs, destroyEboCngConfig>},
        {"dtd", "parseEboDtdConfigs", 0x400, "sdtd != KA_NULL", Op::Free, nullptr,
         record<EboDtdParam, parseEboDtdConfigs, destroyEboDtdConfig>},
        {"agc", "parseEboAgcConfigs", 0x20, "agc != KA_NULL", Op::Free, nullptr,
         record<EboAgcParam, parseEboAgcConfigs, destroyEboAgcConfig>},
    };
    return sections;
}
// clang-format on

const Section& sectionOf(const std::string& name) {
    for (const Section& section : allSections())
        if (name == section.name) return section;
    throw std::out_of_range(name);
}

std::vector<Key> keysOf(const std::string& section) {
    std::vector<Key> keys;
    for (const Key& key : allKeys())
        if (section == key.section) keys.push_back(key);
    return keys;
}

namespace {

// The numbers of a complete, well-formed row: those behind "map:" where there is one.
json numbersOf(const std::string& text) {
    json numbers = json::array();
    const char* const map = std::strstr(text.c_str(), "map:");
    const char* next = map ? map + 4 : text.c_str();
    while (*next) {
        char* end = nullptr;
        numbers.push_back(static_cast<double>(std::strtof(next, &end)));
        next = *end == ',' ? end + 1 : end;
    }
    return numbers;
}

}  // namespace

json stored(const Key& key, const json& value) {
    switch (key.field.kind) {
        case Kind::Float:
            return static_cast<double>(value.get<float>());
        case Kind::Flag:
            return value == 0 ? 0 : 1;
        case Kind::Int16:
            return static_cast<int>(static_cast<int16_t>(value.get<int>()));
        case Kind::Row:
            return numbersOf(value);
        default:
            return value;
    }
}
