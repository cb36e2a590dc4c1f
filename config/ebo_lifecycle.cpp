#include "ebo_lifecycle.h"

#include <cstring>

#include "ebo_log.h"

namespace {

// The shared default channel map: neighbours swapped in pairs, the last two in place. Never written; a record
// that points at it does not own it, although destroyEboAecConfig() on purpose hands it to the framework's
// release all the same.
const int16_t Array[] = {1, 0, 3, 2, 5, 4, 6, 7};

// band_pass_thd and super_est_factor of each band.
constexpr EboNlpBand kNlpDefaults[8] = {{10, 6}, {10, 10}, {10, 10}, {5, 10},
                                        {5, 10}, {5, 10},  {0, 6},   {0, 6}};

// Uncleared on purpose: fields without a default stay as the allocator returned them.
template <typename Record>
Record* allocate(const char* caller) {
    return static_cast<Record*>(ka_mem_malloc(sizeof(Record), caller));
}

// A typed pointer must not be read or written through the `void**` that the framework takes: it gets the
// address of an untyped copy.
void releasePointerAt(void* pointer, const char* caller) {
    void* block = KA_NULL;
    std::memcpy(&block, pointer, sizeof(block));
    ka_mem_safe_free(&block, caller);
    block = KA_NULL;
    std::memcpy(pointer, &block, sizeof(block));
}

// Releases what *pointer points at, null included, and leaves null there.
template <typename Pointee>
void release(Pointee** pointer, const char* caller) {
    releasePointerAt(pointer, caller);
}

}  // namespace

KAEboParam* createEboConfigs() {
    auto* param = allocate<KAEboParam>(__func__);
    if (param == KA_NULL) return KA_NULL;
    param->model_en = EBO_PATH_AEC | EBO_PATH_BF;
    param->aec = createEboAecConfig();
    if (param->aec == KA_NULL) eboAssertFailed("param->aec != KA_NULL", EBO_HERE);
    param->bf = createEboBeamFormConfig();
    if (param->bf == KA_NULL) eboAssertFailed("param->bf != KA_NULL", EBO_HERE);
    param->rx = KA_NULL;
    return param;
}

// On purpose without `rx`: roots are split by path.
void destroyEboConfig(KAEboParam** ebo) {
    if (*ebo == KA_NULL) return;
    destroyEboAecConfig(&(*ebo)->aec);
    destroyEboBeamFormConfig(&(*ebo)->bf);
    release(ebo, __func__);
}

// On purpose without `aec` and `bf`.
void destroyEboAoConfig(KAEboParam** ebo) {
    if (*ebo == KA_NULL) return;
    destroyEboRxConfig(&(*ebo)->rx);
    release(ebo, __func__);
}

// Claims a delay record that it does not have, on purpose. `filter_len` and `delay` have no defaults.
EboAecParam* createEboAecConfig() {
    auto* aec = allocate<EboAecParam>(__func__);
    if (aec == KA_NULL) return KA_NULL;
    aec->pos = 1;
    aec->drop_ref_channel = 0;
    aec->model_aec_en = EBO_AEC_DELAY;
    aec->delay_len = 0;
    aec->look_ahead = 0;
    aec->Array_list = const_cast<int16_t*>(Array);
    return aec;
}

void destroyEboAecConfig(EboAecParam** aec) {
    if (*aec != KA_NULL) {
        destroyEboDelayConfig(&(*aec)->delay);
        release(&(*aec)->Array_list, __func__);  // on purpose the shared default map too
    }
    release(aec, __func__);
}

EboBeamFormParam* createEboBeamFormConfig() {
    auto* bf = allocate<EboBeamFormParam>(__func__);
    if (bf == KA_NULL) return KA_NULL;
    bf->model_en = EBO_BF_FAST_AEC | EBO_BF_NLP | EBO_BF_AES | EBO_BF_AGC | EBO_BF_ANR | EBO_BF_DTD;
    bf->targ = 4;
    bf->ref_pos = 1;
    bf->num_ref_channel = 1;
    bf->drop_ref_channel = 0;
    bf->agc = createEboAgcConfig();
    bf->anr = createEboAnrConfig();
    bf->nlp = createEboNlpconfig();
    bf->dereverb = createEboDereverbConfig();
    bf->cng = createEboCngConfig();
    bf->dtd = createEboDtdConfig();
    bf->aes = createEboAesconfig();
    return bf;
}

void destroyEboBeamFormConfig(EboBeamFormParam** bf) {
    if (*bf == KA_NULL) return;
    destroyEboDereverbConfig(&(*bf)->dereverb);
    destroyEboNlpConfig(&(*bf)->nlp);
    destroyEboAnrConfig(&(*bf)->anr);
    destroyEboAgcConfig(&(*bf)->agc);
    destroyEboCngConfig(&(*bf)->cng);
    destroyEboDtdConfig(&(*bf)->dtd);
    destroyEboAesConfig(&(*bf)->aes);
    destroyEboHowlConfig(&(*bf)->howl);
    destroyEboDoaConfig(&(*bf)->doa);
    destroyEboWakeupConfig(&(*bf)->wakeup);
    destroyEboAiNRConfig(&(*bf)->ainr);
    release(bf, __func__);
}

EboRxParam* createEboRxconfig() {
    auto* rx = allocate<EboRxParam>(__func__);
    if (rx == KA_NULL) return KA_NULL;
    rx->model_en = EBO_RX_ANR;
    rx->anr = createEboAnrConfig();
    return rx;
}

void destroyEboRxConfig(EboRxParam** rx) {
    if (*rx != KA_NULL) {
        destroyEboAnrConfig(&(*rx)->anr);
        destroyEboHowlConfig(&(*rx)->howl);
    }
    release(rx, __func__);
}

EboAnrParam* createEboAnrConfig() {
    auto* anr = allocate<EboAnrParam>(__func__);
    if (anr == KA_NULL) return KA_NULL;
    anr->noiseFactor = 0.88F;
    anr->swU = 10;
    anr->psiMin = 0.01F;
    anr->psiMax = 0.516F;
    anr->fGmin = 0.05F;
    return anr;
}

void destroyEboAnrConfig(EboAnrParam** anr) {
    release(anr, __func__);
}

// fRk0 is of the size of a threshold, on purpose.
EboAgcParam* createEboAgcConfig() {
    auto* agc = allocate<EboAgcParam>(__func__);
    if (agc == KA_NULL) return KA_NULL;
    agc->attack_time = 200.0F;
    agc->release_time = 2000.0F;
    agc->max_gain = 20.0F;
    agc->max_peak = -1.0F;
    agc->fRth0 = -45.0F;
    agc->fRk0 = -40.0F;
    agc->fRth1 = -35.0F;
    agc->sample_rate = 16000;
    agc->frame_len = 256;
    agc->attenuate_time = 1000.0F;
    agc->fRth2 = -35.0F;
    agc->fRk1 = 0.8F;
    agc->fRk2 = 0.4F;
    agc->fLineGainDb = -25.0F;
    agc->swSmL0 = 40;
    agc->swSmL1 = 80;
    agc->swSmL2 = 80;
    return agc;
}

void destroyEboAgcConfig(EboAgcParam** agc) {
    release(agc, __func__);
}

EboCngParam* createEboCngConfig() {
    auto* cng = allocate<EboCngParam>(__func__);
    if (cng == KA_NULL) return KA_NULL;
    cng->fGain = 20.0F;
    cng->fMpy = 20.0F;
    cng->fSmoothAlpha = 0.99F;
    cng->fSpeechGain = 0.0F;
    return cng;
}

void destroyEboCngConfig(EboCngParam** cng) {
    release(cng, __func__);
}

EboDtdParam* createEboDtdConfig() {
    auto* dtd = allocate<EboDtdParam>(__func__);
    if (dtd == KA_NULL) return KA_NULL;
    dtd->ksiThd_high = 0.6F;
    dtd->ksiThd_low = 0.3F;
    return dtd;
}

void destroyEboDtdConfig(EboDtdParam** dtd) {
    release(dtd, __func__);
}

EboDereverbParam* createEboDereverbConfig() {
    auto* dereverb = allocate<EboDereverbParam>(__func__);
    if (dereverb == KA_NULL) return KA_NULL;
    dereverb->rlsLg = 4;
    dereverb->curveLg = 10;
    dereverb->delay = 2;
    dereverb->forgetting = 0.98F;
    dereverb->t60 = 0.5F;
    dereverb->coCoeff = 1.0F;
    return dereverb;
}

void destroyEboDereverbConfig(EboDereverbParam** dereverb) {
    release(dereverb, __func__);
}

EboNlpParam* createEboNlpconfig() {
    auto* nlp = allocate<EboNlpParam>(__func__);
    if (nlp == KA_NULL) return KA_NULL;
    std::memcpy(nlp->bands, kNlpDefaults, sizeof(nlp->bands));
    return nlp;
}

void destroyEboNlpConfig(EboNlpParam** nlp) {
    release(nlp, __func__);
}

EboAesParam* createEboAesconfig() {
    auto* aes = allocate<EboAesParam>(__func__);
    if (aes == KA_NULL) return KA_NULL;
    aes->beta_up = 0.005F;
    aes->beta_down = 0.001F;
    return aes;
}

void destroyEboAesConfig(EboAesParam** aes) {
    release(aes, __func__);
}

void destroyEboDelayConfig(EboDelayParam** delay) {
    release(delay, __func__);
}

void destroyEboHowlConfig(EboHowlParam** howl) {
    release(howl, __func__);
}

void destroyEboDoaConfig(EboDoaParam** doa) {
    release(doa, __func__);
}

// The null tests here and below let a default tree, which has neither record, be destroyed.
void destroyEboWakeupConfig(EboWakeupParam** wakeup) {
    if (*wakeup != KA_NULL) {
        release(&(*wakeup)->model_word1, __func__);
        release(&(*wakeup)->model_word2, __func__);
    }
    release(wakeup, __func__);
}

void destroyEboAiNRConfig(EboAiNRParam** ainr) {
    if (*ainr != KA_NULL) release(&(*ainr)->model_path, __func__);
    release(ainr, __func__);
}
