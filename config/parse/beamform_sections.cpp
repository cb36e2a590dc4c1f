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

const EboSection kEboBfSection =
    eboSection<EboBeamFormParam>("bf", kBfKeys, EBO_PATH_BF, "bf != KA_NULL", "bf: not enable");
const EboSection kEboFastAecSection = eboSwitch("fast_aec", kFastAecKeys, EBO_BF_FAST_AEC);
const EboSection kEboGscSection = eboSwitch("gsc", kGscKeys, EBO_BF_GSC);
const EboSection kEboWindSection = eboSwitch("wind", kWindKeys, EBO_BF_WIND);

EboBeamFormParam* parseEboBfConfigs(void* parser, const char* root, int* model_en) {
    return readSection<EboBeamFormParam>(kEboBfSection, parser, root, model_en, EBO_HERE);
}

int parseEboFastAecConfigs(void* parser, const char* root, int* model_en) {
    return eboReadSwitch(kEboFastAecSection, parser, root, model_en, __func__, KA_NULL);
}

int parseEboGscConfigs(void* parser, const char* root, int* model_en) {
    GscKeys gsc = {};
    if (eboReadSwitch(kEboGscSection, parser, root, model_en, __func__, &gsc) != 0) return -1;
    if (gsc.method == 1) *model_en |= EBO_BF_GSC_METHOD;  // whatever the status
    return 0;
}

int parseEboWindConfigs(void* parser, const char* root, int* model_en) {
    return eboReadSwitch(kEboWindSection, parser, root, model_en, __func__, KA_NULL);
}
