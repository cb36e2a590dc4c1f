// Sections "bf", "fast_aec", "gsc" and "wind": the beamformer and three switches of its chain.
#include "ebo_parse.h"
#include "section_reader.h"
#include "section_table.h"

namespace {

// clang-format off
constexpr EboKeyRow kBfKeys[] = {
    EBO_STATUS("find bf status failed"),
    EBO_FLAG(EboBeamFormParam, drop_ref_channel, "find bf drop_ref_channel failed"),
    EBO_NUMBER(EboBeamFormParam, targ, "find bf targ failed"),
    EBO_NO_KEY(EboBeamFormParam, ref_pos),
    EBO_NO_KEY(EboBeamFormParam, num_ref_channel),
};

// "fast_aec" and "wind" report a missing status in the words of "bf" on purpose; the function name tells them
// apart.
constexpr EboKeyRow kFastAecKeys[] = {
    EBO_STATUS("find bf status failed"),
};
constexpr EboKeyRow kWindKeys[] = {
    EBO_STATUS("find bf status failed"),
};

constexpr EboKeyRow kGscKeys[] = {
    EBO_STATUS("find gsc status failed"),
    EBO_MASK_BIT("method", EBO_BF_GSC_METHOD, "find gsc method failed"),
};
// clang-format on

}  // namespace

// clang-format off
constexpr EboSection kEboBfSection = EBO_SECTION("bf", parseEboBfConfigs, kBfKeys, EboBeamFormParam, EBO_PATH_BF, Root, KAEboParam, bf, "bf != KA_NULL")
    .disabled(EboDisabled::IsRead, "bf: not enable");
EBO_SOUND(kEboBfSection);
constexpr EboSection kEboFastAecSection = EBO_SWITCH("fast_aec", parseEboFastAecConfigs, kFastAecKeys, EBO_BF_FAST_AEC);
EBO_SOUND(kEboFastAecSection);
constexpr EboSection kEboGscSection = EBO_SWITCH("gsc", parseEboGscConfigs, kGscKeys, EBO_BF_GSC);
EBO_SOUND(kEboGscSection);
constexpr EboSection kEboWindSection = EBO_SWITCH("wind", parseEboWindConfigs, kWindKeys, EBO_BF_WIND);
EBO_SOUND(kEboWindSection);
// clang-format on

EboBeamFormParam* parseEboBfConfigs(void* parser, const char* root, int* model_en) {
    return readSection<EboBeamFormParam>(parser, root, model_en, kEboBfSection);
}

int parseEboFastAecConfigs(void* parser, const char* root, int* model_en) {
    return readSwitch(parser, root, model_en, kEboFastAecSection);
}

int parseEboGscConfigs(void* parser, const char* root, int* model_en) {
    return readSwitch(parser, root, model_en, kEboGscSection);
}

int parseEboWindConfigs(void* parser, const char* root, int* model_en) {
    return readSwitch(parser, root, model_en, kEboWindSection);
}
