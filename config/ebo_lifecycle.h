// Making and destroying parameter records.
//
// A create function allocates a record with ka_mem_malloc() and writes its built-in defaults; fields without
// a default stay as the allocator returned them. It returns null when the allocation fails; only
// createEboConfigs() aborts the process for two of its three. The caller owns the result.
//
// A destroy function takes the address of the caller's pointer, which must not be null, releases the record
// and everything that it owns through ka_mem_safe_free() and leaves the caller's pointer null. A pointer that
// is null already stays null. A default record may be destroyed as it is, because ka_mem_malloc() hands out
// zero bytes: what has no default reads as null.
#pragma once

#include "ebo_params.h"

#pragma GCC visibility push(default)

// A whole default tree: echo canceller and beamformer with their modules, `rx` null. Null when the root
// cannot be allocated; the process is aborted, with a message, when one of the two containers cannot be.
KAEboParam* createEboConfigs();
// Releases `aec` and `bf`, not `rx`: for roots of createEboConfigs() and parseEboConfigs().
void destroyEboConfig(KAEboParam** ebo);
// Releases `rx`, not `aec` and `bf`: for roots of parseEboAoConfigs().
void destroyEboAoConfig(KAEboParam** ebo);

// The default container points at the shared default channel map and has bit EBO_AEC_DELAY set although it
// has no delay record: attach one, or clear the bit, before dumping it.
EboAecParam* createEboAecConfig();
void destroyEboAecConfig(EboAecParam** aec);

// A module that could not be allocated is left null.
EboBeamFormParam* createEboBeamFormConfig();
void destroyEboBeamFormConfig(EboBeamFormParam** bf);

// `anr` is left null when it could not be allocated.
EboRxParam* createEboRxconfig();  // the small c here, and below, on purpose: names are an interface
void destroyEboRxConfig(EboRxParam** rx);

EboAnrParam* createEboAnrConfig();  // the first five fields only
void destroyEboAnrConfig(EboAnrParam** anr);
EboAgcParam* createEboAgcConfig();
void destroyEboAgcConfig(EboAgcParam** agc);
EboCngParam* createEboCngConfig();
void destroyEboCngConfig(EboCngParam** cng);
EboDtdParam* createEboDtdConfig();
void destroyEboDtdConfig(EboDtdParam** dtd);
EboDereverbParam* createEboDereverbConfig();
void destroyEboDereverbConfig(EboDereverbParam** dereverb);
EboNlpParam* createEboNlpconfig();
void destroyEboNlpConfig(EboNlpParam** nlp);
EboAesParam* createEboAesconfig();  // `beta_up` and `beta_down` only
void destroyEboAesConfig(EboAesParam** aes);

// Records without defaults: only their section readers make them.
void destroyEboDelayConfig(EboDelayParam** delay);
void destroyEboHowlConfig(EboHowlParam** howl);
void destroyEboDoaConfig(EboDoaParam** doa);
void destroyEboWakeupConfig(EboWakeupParam** wakeup);
void destroyEboAiNRConfig(EboAiNRParam** ainr);

#pragma GCC visibility pop
