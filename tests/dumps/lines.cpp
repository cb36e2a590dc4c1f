#include "lines.h"

#include <sstream>

std::vector<ExpectedLine> linesOf(const std::string& function, const std::vector<Line>& lines) {
    std::vector<ExpectedLine> expected;
    for (const Line& line : lines)
        expected.push_back(info(function, line.format, line.text.empty() ? line.format : line.text));
    return expected;
}

void expectLinesOfTheirOwn(const std::vector<LogCall>& calls) {
    for (size_t i = 1; i < calls.size(); ++i) {
        if (calls[i].format == calls[i - 1].format) continue;
        EXPECT_NE(calls[i].line, calls[i - 1].line) << calls[i].text;
    }
}

std::string hex(uint32_t mask) {
    std::ostringstream text;
    text << std::hex << mask;
    return text.str();
}

const std::vector<Line>& anrLines() {
    static const std::vector<Line> lines = {
        {"anr:", ""},
        {"   noiseFactor = %f, swU = %d", "   noiseFactor = 0.880000, swU = -100000"},
        {"   psiMin = %f, psiMax = %f, fGmin = %f",
         "   psiMin = 0.012500, psiMax = 0.516000, fGmin = 0.056200"},
        {"   Sup_Freq1 = %d, Sup_Freq2 = %d, Sup_Energy1 = %f Sup_Energy2 = %f",
         "   Sup_Freq1 = 3600, Sup_Freq2 = -5200, Sup_Energy1 = 100000.000000 Sup_Energy2 = 250000.500000"},
        {"   InterV = %d, BiasMin = %f, UpdateFrm = %d",
         "   InterV = -1, BiasMin = 1.670000, UpdateFrm = 15"},
        {"   NPreGammaThr = %f, NPreZetaThr = %f, SabsGammaThr0 = %f SabsGammaThr1 = %f",
         "   NPreGammaThr = 4.600000, NPreZetaThr = 1.670300, SabsGammaThr0 = 1.000000 SabsGammaThr1 = "
         "3.000000"},
        {"   InfSmooth = %f, ProbSmooth = %f, CompCoeff = %f",
         "   InfSmooth = 0.925000, ProbSmooth = 0.810000, CompCoeff = 1.475000"},
        {"   PrioriMin = %f, PrioriMin = %f, PostMax = %f, PrioriRatio = %f, PrioriRatioLow = %f",
         "   PrioriMin = 0.003162, PrioriMin = 0.003162, PostMax = 40.000000, PrioriRatio = 0.950000, "
         "PrioriRatioLow = 0.850000"},
        {"   SplitBand = %d, PrioriSmooth = %f, TranMode = %d",
         "   SplitBand = 65537, PrioriSmooth = 0.700000, TranMode = -2"},
    };
    return lines;
}

EboAnrParam anrRecord() {
    return {0.88F,  -100000,   0.0125F, 0.516F, 0.0562F, 3600,  -5200, 100000.0F, 250000.5F,
            -1,     1.67F,     15,      4.6F,   1.6703F, 1.0F,  3.0F,  0.925F,    0.81F,
            1.475F, 0.003162F, 40.0F,   0.95F,  0.85F,   65537, 0.7F,  -2};
}

const std::vector<Line>& howlLines() {
    static const std::vector<Line> lines = {{"howl:", ""}, {"   mode = %d", "   mode = -7"}};
    return lines;
}

EboHowlParam howlRecord() {
    return {-7};
}

const char* const kEnd = "********************** End ***************************";

std::vector<uint32_t> masksOfUpToTwoBits() {
    std::vector<uint32_t> masks = {0};
    for (int i = 0; i < 32; ++i)
        for (int j = i; j < 32; ++j) masks.push_back(uint32_t{1} << i | uint32_t{1} << j);
    return masks;
}
