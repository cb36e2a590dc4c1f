// Loading of tuning files: the entry points, and the section readers that they are made of.
#pragma once

#include "ebo_params.h"

#pragma GCC visibility push(default)

// ---- entry points
//
// Each opens the file at `path` with a parser of its own and closes it before it returns. Null, without a
// message of this library's, when `path` is null or the framework rejects the file. A record that cannot be
// allocated, and a channel map of more than 16 channels, abort the process with an assertion message. Safe to
// call from several threads at once.

// The whole capture path, root object "ebo_configs". All or nothing: null when a section fails, after the
// message of its reader. "delay" and "wakeup" never fail the load; every other section must be there and
// complete, enabled or not. `rx` is null. The caller owns the tree: destroyEboConfig(). After a failure the
// channel map, the wake-up words and the model path that had been read stay allocated.
KAEboParam* parseEboConfigs(const char* path);

// Sections "aec" and "delay" of "ebo_configs". Null when "aec" fails; without "delay" its record is left
// null. The caller owns it: destroyEboAecConfig().
EboAecParam* parseEboAecConfigs(const char* path);

// Section "bf" of "ebo_configs" and the modules that work on its output. Null when "bf" fails; the record of
// any other section that fails is left null, which `wakeup` never is. The caller owns it:
// destroyEboBeamFormConfig().
EboBeamFormParam* parseEboBeamFormConfigs(const char* path);

// Playback path, root object "ebo_ao_configs": a root with `model_en` EBO_PATH_RX and only `rx` filled; the
// record of a section that fails is left null. The caller owns it: destroyEboAoConfig().
KAEboParam* parseEboAoConfigs(const char* path);

// Section "agc" of root object "ebo_agc_configs". Null when it fails. The caller owns it:
// destroyEboAgcConfig(). Each call that opens its file leaks one cleared record.
EboAgcParam* parseEboAgcConfigsFile(const char* path);

// ---- section readers
//
// Each reads one section of the root object `root` from `parser`, an open KAJsonParser, and ORs its enable
// bit into `*model_en` when the section's "status" is "enable" in any case. Bits are never cleared, and a bit
// once set stays set when the reader fails afterwards. All keys are read and required whatever the status,
// unless stated otherwise.
//
// A record reader returns a new record, or null: after one message that names the first missing key, or
// without a message when an argument is null. The caller owns the record and releases it with its destroy
// function. A switch reader fills no record: it returns 0, or -1 where a record reader returns null.

// On the root's mask.

// "aec": EBO_PATH_AEC. "mic_chn_map" is optional; a map that was read before a failure leaks. A disabled
// section is reported.
EboAecParam* parseEboAecConfigs(void* parser, const char* root, int* model_en);
// "delay": no bit, the mask is not touched. A disabled section is reported and yields null; its keys are not
// read.
EboDelayParam* parseEboDelayConfigs(void* parser, const char* root, int* model_en);
// "bf": EBO_PATH_BF. A disabled section is reported.
EboBeamFormParam* parseEboBfConfigs(void* parser, const char* root, int* model_en);

// On the beamformer's mask.

// "fast_aec": EBO_BF_FAST_AEC. A missing status is reported in the words of "bf".
int parseEboFastAecConfigs(void* parser, const char* root, int* model_en);
// "gsc": EBO_BF_GSC, and EBO_BF_GSC_METHOD when "method" is 1, whatever the status.
int parseEboGscConfigs(void* parser, const char* root, int* model_en);
// "wind": EBO_BF_WIND. A missing status is reported in the words of "bf".
int parseEboWindConfigs(void* parser, const char* root, int* model_en);
// "agc": EBO_BF_AGC. `model_en` may be null: no bit is set then.
EboAgcParam* parseEboAgcConfigs(void* parser, const char* root, int* model_en);
// "nlp": EBO_BF_NLP
EboNlpParam* parseEboNlpConfigs(void* parser, const char* root, int* model_en);
// "dereverb": EBO_BF_DEREVERB
EboDereverbParam* parseEboDereverbConfigs(void* parser, const char* root, int* model_en);
// "cng": EBO_BF_CNG
EboCngParam* parseEboCngConfigs(void* parser, const char* root, int* model_en);
// "dtd": EBO_BF_DTD
EboDtdParam* parseEboDtdConfigs(void* parser, const char* root, int* model_en);
// "aes": EBO_BF_AES
EboAesParam* parseEboAesConfigs(void* parser, const char* root, int* model_en);
// "doa": EBO_BF_DOA
EboDoaParam* parseEboDoaConfigs(void* parser, const char* root, int* model_en);
// "wakeup": EBO_BF_WAKEUP. Null only for a null argument: the status and every key are optional. The keys are
// read when the bit is set in the mask once the status was looked at, by this section or before; otherwise
// the record is all zero. Doubtful values are reported and kept.
EboWakeupParam* parseEboWakeupConfigs(void* parser, const char* root, int* model_en);
// "ainr": EBO_BF_AINR. Spelt otherwise than its record and destroy function, on purpose. Only the status is
// required; "model_path" is read only when the section is enabled.
EboAiNRParam* parseEboAINRConfigs(void* parser, const char* root, int* model_en);

// On either path: under the root "ebo_ao_configs", in any case, the mask is the playback container's; under
// any other root it is the beamformer's.

// "anr": EBO_BF_ANR or EBO_RX_ANR
EboAnrParam* parseEboAnrConfigs(void* parser, const char* root, int* model_en);
// "howl": EBO_BF_HOWL or EBO_RX_HOWL
EboHowlParam* parseEboHowlConfigs(void* parser, const char* root, int* model_en);

#pragma GCC visibility pop
