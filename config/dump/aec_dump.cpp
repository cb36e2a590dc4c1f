#include "ebo_dump.h"
#include "ebo_log.h"

void dumpEboAecConfig(EboAecParam* aec) {
    if (aec == KA_NULL) return;
    eboLogLine("********************* AEC Configs dump ******************", EBO_HERE);
    ka_log(EBO_INFO, "pos = %d, drop_ref_channel = %d", EBO_HERE, eboAsInt(aec->pos),
           eboAsInt(aec->drop_ref_channel));
    // No comma before filter_len, on purpose.
    ka_log(EBO_INFO, "model_aec_en = 0x%x, delay_len = %d, look_ahead = %d filter_len = %d", EBO_HERE,
           static_cast<unsigned int>(aec->model_aec_en), eboAsInt(aec->delay_len), eboAsInt(aec->look_ahead),
           aec->filter_len);
    if ((aec->model_aec_en & EBO_AEC_DELAY) != 0) {
        eboLogLine("delay:", EBO_HERE);
        eboLogLine("   enabled", EBO_HERE);
        // On purpose without a null test: the bit promises the record.
        const EboDelayParam& delay = *aec->delay;
        ka_log(EBO_INFO, "   MaxFrame = %d, LeastDelay = %d, JumpFrame = %d, DelayOffset = %d", EBO_HERE,
               delay.MaxFrame, delay.LeastDelay, delay.JumpFrame, delay.DelayOffset);
        ka_log(EBO_INFO, "   MicAmpThr = %d, RefAmpThr = %d, StartFreq = %d, EndFreq = %d", EBO_HERE,
               delay.MicAmpThr, delay.RefAmpThr, delay.StartFreq, delay.EndFreq);
        ka_log(EBO_INFO, "   SmoothFactor = %f", EBO_HERE, delay.SmoothFactor);
    }
    // Longer than the closing line of the other dumps, on purpose.
    eboLogLine("********************** End ******************************", EBO_HERE);
}
