#include "shared_blocks.h"

#include "ebo_log.h"

// Two lines lack a comma before their last item and PrioriMin is printed twice, on purpose.
void eboDumpAnr(const EboAnrParam& anr, const char* function) {
    eboLogLine("anr:", function, __LINE__);
    ka_log(EBO_INFO, "   noiseFactor = %f, swU = %d", function, __LINE__, anr.noiseFactor, eboAsInt(anr.swU));
    ka_log(EBO_INFO, "   psiMin = %f, psiMax = %f, fGmin = %f", function, __LINE__, anr.psiMin, anr.psiMax,
           anr.fGmin);
    ka_log(EBO_INFO, "   Sup_Freq1 = %d, Sup_Freq2 = %d, Sup_Energy1 = %f Sup_Energy2 = %f", function,
           __LINE__, anr.Sup_Freq1, anr.Sup_Freq2, anr.Sup_Energy1, anr.Sup_Energy2);
    ka_log(EBO_INFO, "   InterV = %d, BiasMin = %f, UpdateFrm = %d", function, __LINE__, anr.InterV,
           anr.BiasMin, anr.UpdateFrm);
    ka_log(EBO_INFO, "   NPreGammaThr = %f, NPreZetaThr = %f, SabsGammaThr0 = %f SabsGammaThr1 = %f",
           function, __LINE__, anr.NPreGammaThr, anr.NPreZetaThr, anr.SabsGammaThr0, anr.SabsGammaThr1);
    ka_log(EBO_INFO, "   InfSmooth = %f, ProbSmooth = %f, CompCoeff = %f", function, __LINE__, anr.InfSmooth,
           anr.ProbSmooth, anr.CompCoeff);
    ka_log(EBO_INFO, "   PrioriMin = %f, PrioriMin = %f, PostMax = %f, PrioriRatio = %f, PrioriRatioLow = %f",
           function, __LINE__, anr.PrioriMin, anr.PrioriMin, anr.PostMax, anr.PrioriRatio,
           anr.PrioriRatioLow);
    ka_log(EBO_INFO, "   SplitBand = %d, PrioriSmooth = %f, TranMode = %d", function, __LINE__,
           eboAsInt(anr.SplitBand), anr.PrioriSmooth, anr.TranMode);
}

void eboDumpHowl(const EboHowlParam& howl, const char* function) {
    eboLogLine("howl:", function, __LINE__);
    ka_log(EBO_INFO, "   mode = %d", function, __LINE__, howl.mode);
}

// Shorter than the closing line of the echo canceller's dump, on purpose.
void eboDumpEnd(const char* function) {
    eboLogLine("********************** End ***************************", function, __LINE__);
}
