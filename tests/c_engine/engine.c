// An engine in C: what the records are to it, and what a loaded tree holds.
#include "engine.h"

#include <ebo_version.h>
#include <stddef.h>
#include <stdio.h>
#include <string.h>

// C99 has no assertions at compile time: an array of -1 elements is one.
#define HOLDS(name, condition) typedef char name[(condition) ? 1 : -1]
#define FOR_POINTERS(bits32, bits64) (sizeof(void*) == 4 ? (bits32) : (bits64))
#define SIZE(Record, bits32, bits64) HOLDS(sizeOf##Record, sizeof(Record) == FOR_POINTERS(bits32, bits64))
#define OFFSET(Record, field, bits32, bits64) \
    HOLDS(offsetOf##Record##_##field, offsetof(Record, field) == FOR_POINTERS(bits32, bits64))
#include <ebo_layout.inc>

int engineStart(const KAEboParam* ebo) {
    if (eboLayout() != EBO_LAYOUT || strcmp(eboVersion(), EBO_VERSION) != 0) return 1;
    const EboAecParam* aec = ebo->aec;
    printf("aec %d: channels %d, %d; filter %d, delay %.4f\n", (ebo->model_en & EBO_PATH_AEC) != 0,
           aec->Array_list[0], aec->Array_list[1], aec->filter_len, aec->delay->SmoothFactor);
    const EboBeamFormParam* bf = ebo->bf;
    if ((bf->model_en & EBO_BF_AES) == 0) return 1;
    printf("aes %.4f, %d, %.4f\n", bf->aes->ThdSupDegree[3][9], bf->aes->HardSplitFreq[4][0],
           bf->aes->LimitRatio[0][2]);
    printf("nlp %d of %d\n", bf->nlp->bands[7].super_est_factor,
           (int)(sizeof(bf->nlp->bands) / sizeof(EboNlpBand)));
    printf("agc %.3f, %d\n", bf->agc->fRk2, (int)bf->agc->swSmL2);
    printf("wakeup %s\n", bf->wakeup->model_word2);
    return ebo->rx != NULL;
}
