#include "ebo_dump.h"
#include "ebo_log.h"
#include "shared_blocks.h"

void dumpEboAoConfig(EboRxParam* rx) {
    if (rx == KA_NULL) return;
    eboLogLine("****************** AO Configs dump ******************", EBO_HERE);
    ka_log(EBO_INFO, "model_en = 0x%x", EBO_HERE, static_cast<unsigned int>(rx->model_en));
    if ((rx->model_en & EBO_RX_ANR) != 0 && rx->anr != KA_NULL) eboDumpAnr(*rx->anr, __func__);
    if ((rx->model_en & EBO_RX_HOWL) != 0 && rx->howl != KA_NULL) eboDumpHowl(*rx->howl, __func__);
    eboDumpEnd(__func__);
}
