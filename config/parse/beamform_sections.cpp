// Sections "bf", "fast_aec", "gsc" and "wind": the beamformer and three switches of its chain.
#include "ebo_parse.h"
#include "section_reader.h"

namespace {

// The one key of "gsc" behind its status lives on only as a bit of the mask.
struct GscKeys {
    int32_t method;
};

// clang-format off
constexpr EboKeyRow kBfKeys[] = {
    EBO_STATUS("find bf status failed"),
    EBO_FLAG(EboBeamFormParam, drop_ref_channel, "find bf drop_ref_channel failed"),
    EBO_NUMBER(EboBeamFormParam, targ, "find bf targ failed"),
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
    EBO_NUMBER(GscKeys, method, "find gsc method failed"),
};
// clang-format on

}  // namespace

// clang-format off
const EboSection kEboBfSection = {EBO_SECTION("bf", parseEboBfConfigs, kBfKeys, EboBeamFormParam, EBO_PATH_BF, "bf != KA_NULL"), 0, "bf: not enable"};
const EboSection kEboFastAecSection = {EBO_SWITCH("fast_aec", parseEboFastAecConfigs, kFastAecKeys, EBO_BF_FAST_AEC)};
const EboSection kEboGscSection = {EBO_SWITCH("gsc", parseEboGscConfigs, kGscKeys, EBO_BF_GSC)};
const EboSection kEboWindSection = {EBO_SWITCH("wind", parseEboWindConfigs, kWindKeys, EBO_BF_WIND)};
// clang-format on

EboBeamFormParam* parseEboBfConfigs(void* parser, const char* root, int* model_en) {
    return readSection<EboBeamFormParam>(parser, root, model_en, kEboBfSection);
}

int parseEboFastAecConfigs(void* parser, const char* root, int* model_en) {
    return eboReadSwitch(parser, root, model_en, kEboFastAecSection, KA_NULL);
}

int parseEboGscConfigs(void* parser, const char* root, int* model_en) {
    GscKeys gsc = {};
    if (eboReadSwitch(parser, root, model_en, kEboGscSection, &gsc) != 0) return -1;
    if (gsc.method == 1) *model_en |= EBO_BF_GSC_METHOD;  // on purpose whatever the status
    return 0;
}

int parseEboWindConfigs(void* parser, const char* root, int* model_en) {
    return eboReadSwitch(parser, root, model_en, kEboWindSection, KA_NULL);
}
