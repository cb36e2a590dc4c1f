#include "harness/bytes.h"
#include "lines.h"

using ka_recording::Op;
using testing::IsEmpty;

namespace {

const char* const kFunction = "dumpEboBeamFormConfig";

struct Capture {
    char word1[11] = "hello-lamp";
    char word2[11] = "good-night";
    char path[18] = "/models/noise.bin";
    EboDereverbParam dereverb = {70000, 12, -3, 0.98F, 0.45F, 1.0F};
    EboAesParam aes = {0.005F,
                       0.00125F,
                       0.004F,
                       0.0008F,
                       300,
                       -3800,
                       1,
                       2,
                       {{1.0F, 0.5F, 0.25F}, {-0.9F, 0.625F, 12345.678F}},
                       {{500, 1000}, {501, 1500}, {-32768, 32767}, {0, -1}},
                       {{0.95F, 0.9F, 0.82F, 0.7F, 0.58F, 0.45F, 0.33F, 0.22F, 0.12F, 0.05F},
                        {1.95F, 1.9F, 1.82F, 1.7F, 1.58F, 1.45F, 1.33F, 1.22F, 1.12F, 1.05F},
                        {2.95F, 2.9F, 2.82F, 2.7F, 2.58F, 2.45F, 2.33F, 2.22F, 2.12F, 2.05F},
                        {3.95F, 3.9F, 3.82F, 3.7F, 3.58F, 3.45F, 3.33F, 3.22F, 3.12F, 3.05F}},
                       {{1, 400}, {402, 1200}, {1202, 2800}, {2802, 5200}, {4464, -1}},
                       {0.45F, 0.38F, 0.3F, 0.225F}};
    EboNlpParam nlp = {{{10, 6}, {10, 10}, {-3, 10}, {5, -12}, {5, 10}, {5, 100}, {0, 6}, {-32768, 32767}}};
    EboAnrParam anr = anrRecord();
    EboAgcParam agc = {160.5F, 1800.0F, 24.0F, -1.5F, -48.0F, 1.25F, -36.5F, 7, 8,
                       900.0F, -18.0F,  0.8F,  3.0F,  -6.0F,  41,    -82,    96};
    EboCngParam cng = {12.5F, 18.0F, 0.985F, 0.3F};
    EboDtdParam dtd = {0.2F, 0.5F};
    EboHowlParam howl = howlRecord();
    EboDoaParam doa = {0.0325F, 600, -3400, 36, 7};
    EboWakeupParam wakeup = {2, 150, 4, word1, word2};
    EboAiNRParam ainr = {path};
    void* never_read = reinterpret_cast<void*>(1);
    EboBeamFormParam bf = {0,    5,    -6,   8,          7,     &dereverb, &aes,    &nlp, &anr,
                           &agc, &cng, &dtd, never_read, &howl, &doa,      &wakeup, &ainr};
};

// One block of the dump: its bit, how its record is taken away (none, or not to be taken away: null), its lines.
struct Block {
    uint32_t bit;
    void (*take)(EboBeamFormParam& bf);
    std::vector<Line> lines;
};

// In the order of the dump, which is not the order of the bits.
const std::vector<Block> kBlocks = {
    {0x1, nullptr, {{"fast_aec:", ""}, {"   enabled", ""}}},
    {0x2,
     nullptr,
     {{"wakeup:", ""},
      {"   enabled", ""},
      {"   wakeup_frames: %d", "   wakeup_frames: 150"},
      {"   wakeup_words: %d", "   wakeup_words: 4"},
      {"   mode: %d", "   mode: 2"},
      {"   word1: %s", "   word1: hello-lamp"},
      {"   word2: %s", "   word2: good-night"}}},
    {0x100, nullptr, {{"gsc:", ""}, {"   enabled", ""}}},
    {0x1000, nullptr, {{"eq:", ""}, {"   enabled", ""}}},
    {0x4,
     [](EboBeamFormParam& bf) { bf.dereverb = nullptr; },
     {{"dereverb:", ""},
      {"   rlsLg = %d, curveLg = %d, delay = %d", "   rlsLg = 70000, curveLg = 12, delay = -3"},
      {"   forgetting = %f, t60 = %f, coCoeff = %f",
       "   forgetting = 0.980000, t60 = 0.450000, coCoeff = 1.000000"}}},
    {0x8,
     [](EboBeamFormParam& bf) { bf.nlp = nullptr; },
     {{"nlp:", ""},
      {"   BandPassThd   SuperEstFactor", ""},
      {"        %2d             %2d", "        10              6"},
      {"        %2d             %2d", "        10             10"},
      {"        %2d             %2d", "        -3             10"},
      {"        %2d             %2d", "         5             -12"},
      {"        %2d             %2d", "         5             10"},
      {"        %2d             %2d", "         5             100"},
      {"        %2d             %2d", "         0              6"},
      {"        %2d             %2d", "        -32768             32767"}}},
    {0x10,
     [](EboBeamFormParam& bf) { bf.aes = nullptr; },
     {{"aes:", ""},
      {"   beta_up = %f, beta_down = %f", "   beta_up = 0.005000, beta_down = 0.001250"},
      {"   beta_up_low = %f, beta_down = %f", "   beta_up_low = 0.004000, beta_down = 0.001250"},
      {"   low_freq = %d, high_freq = %d", "   low_freq = 300, high_freq = -3800"},
      {"   thd_flag = %d, hard_flag = %d", "   thd_flag = 1, hard_flag = 2"},
      {"   LimitRatio:", ""},
      {"      %s", "      1.0000  0.5000  0.2500  "},
      {"      %s", "      -0.9000  0.6250  12345.6777  "},
      {"   ThdSplitFreq:", ""},
      {"      %s", "      500     1000    "},
      {"      %s", "      501     1500    "},
      {"      %s", "      -32768  32767   "},
      {"      %s", "      0       -1      "},
      {"   ThdSupDegree:", ""},
      {"      %s", "      0.9500  0.9000  0.8200  0.7000  0.5800  0.4500  0.3300  0.2200  0.1200  0.0500  "},
      {"      %s", "      1.9500  1.9000  1.8200  1.7000  1.5800  1.4500  1.3300  1.2200  1.1200  1.0500  "},
      {"      %s", "      2.9500  2.9000  2.8200  2.7000  2.5800  2.4500  2.3300  2.2200  2.1200  2.0500  "},
      {"      %s", "      3.9500  3.9000  3.8200  3.7000  3.5800  3.4500  3.3300  3.2200  3.1200  3.0500  "},
      {"   HardSplitFreq:", ""},
      {"      %s", "      1       400     "},
      {"      %s", "      402     1200    "},
      {"      %s", "      1202    2800    "},
      {"      %s", "      2802    5200    "},
      {"      %s", "      4464    -1      "},
      {"   HardThreshold:", ""},
      {"      %s", "      0.4500  0.3800  0.3000  0.2250  "}}},
    {0x40, [](EboBeamFormParam& bf) { bf.anr = nullptr; }, anrLines()},
    {0x20,
     [](EboBeamFormParam& bf) { bf.agc = nullptr; },
     {{"agc:", ""},
      {"   attack_time = %f, release_time = %f, attenuate_time = %f",
       "   attack_time = 160.500000, release_time = 1800.000000, attenuate_time = 900.000000"},
      {"   max_gain = %f, max_peak = %f", "   max_gain = 24.000000, max_peak = -1.500000"},
      {"   fLineGainDb = %f", "   fLineGainDb = -6.000000"},
      {"   fRth0 = %f, fRth1 = %f, fRth2 = %f",
       "   fRth0 = -48.000000, fRth1 = -36.500000, fRth2 = -18.000000"},
      {"   fRk0 = %f, fRk1 = %f, fRk1 = %f", "   fRk0 = 1.250000, fRk1 = 0.800000, fRk1 = 3.000000"},
      {"   swSmL0 = %d, swSmL1 = %d, swSmL2 = %d", "   swSmL0 = 41, swSmL1 = -82, swSmL2 = 96"}}},
    {0x800,
     [](EboBeamFormParam& bf) { bf.cng = nullptr; },
     {{"cng:", ""},
      {"   fGain = %f, fMpy = %f", "   fGain = 12.500000, fMpy = 18.000000"},
      {"   fSmoothAlpha = %f, fSpeechGain = %f", "   fSmoothAlpha = 0.985000, fSpeechGain = 0.300000"}}},
    {0x400,
     [](EboBeamFormParam& bf) { bf.dtd = nullptr; },
     {{"stdt:", ""},
      {"   ksiThd_high = %f, ksiThd_low = %f", "   ksiThd_high = 0.200000, ksiThd_low = 0.500000"}}},
    {0x4000, [](EboBeamFormParam& bf) { bf.howl = nullptr; }, howlLines()},
    {0x8000,
     [](EboBeamFormParam& bf) { bf.doa = nullptr; },
     {{"doa:", ""},
      {"   rad = %f, start_freq = %d, end_freq = %d",
       "   rad = 0.032500, start_freq = 600, end_freq = -3400"},
      {"   lg_num = %d, lg_pitch_num = %d", "   lg_num = 36, lg_pitch_num = 7"}}},
    {0x10000, nullptr, {{"wind:", ""}, {"   enabled", ""}}},
    {0x20000,
     [](EboBeamFormParam& bf) { bf.ainr = nullptr; },
     {{"ainr:", ""}, {"   model_path: %s", "   model_path: /models/noise.bin"}}},
};

// The dump of a record with this mask whose records for the bits in `taken` are null.
std::vector<ExpectedLine> linesFor(uint32_t mask, uint32_t taken) {
    std::vector<Line> lines = {
        {"****************** BeamForm Configs dump ******************", ""},
        {"model_en = 0x%x, ref_pos = %d", "model_en = 0x" + hex(mask) + ", ref_pos = 5"},
        {"targ = %d", "targ = -6"},
        {"num_ref_channel = %d, drop_ref_channel = %d", "num_ref_channel = 8, drop_ref_channel = 7"},
    };
    for (const Block& block : kBlocks)
        if ((mask & ~taken & block.bit) != 0)
            lines.insert(lines.end(), block.lines.begin(), block.lines.end());
    lines.push_back({kEnd, ""});
    return linesOf(kFunction, lines);
}

void expectDump(Capture& record, uint32_t mask, uint32_t taken) {
    SCOPED_TRACE(hex(mask) + " without the records of " + hex(taken));
    Host host;
    record.bf.model_en = static_cast<int32_t>(mask);
    dumpEboBeamFormConfig(&record.bf);
    expectLog(host, linesFor(mask, taken));
}

TEST(BeamFormDump, OfANullRecordIsEmpty) {
    Host host;
    dumpEboBeamFormConfig(nullptr);
    EXPECT_THAT(host.log(), IsEmpty());
}

TEST(BeamFormDump, OfAnAllZeroRecordHasItsHeadAndItsEnd) {
    EboBeamFormParam bf = {};
    Host host;
    dumpEboBeamFormConfig(&bf);
    expectLog(host, linesOf(kFunction, {{"****************** BeamForm Configs dump ******************", ""},
                                        {"model_en = 0x%x, ref_pos = %d", "model_en = 0x0, ref_pos = 0"},
                                        {"targ = %d", "targ = 0"},
                                        {"num_ref_channel = %d, drop_ref_channel = %d",
                                         "num_ref_channel = 0, drop_ref_channel = 0"},
                                        {kEnd, ""}}));
}

TEST(BeamFormDump, NamesTheLineOfEachCall) {
    Capture record;
    for (const Block& block : kBlocks) {
        Host host;
        record.bf.model_en = static_cast<int32_t>(block.bit);
        dumpEboBeamFormConfig(&record.bf);
        std::vector<LogCall> calls = host.log();
        calls.pop_back();  // of another source
        const auto module = calls.begin() + 4;
        expectLinesOfTheirOwn({calls.begin(), module});
        expectLinesOfTheirOwn({module, calls.end()});
    }
}

TEST(BeamFormDump, ShowsEachModuleWithItsBitOnlyInItsOrder) {
    Capture record;
    for (const uint32_t mask : masksOfUpToTwoBits()) expectDump(record, mask, 0);
    expectDump(record, 0xffffffff, 0);
}

TEST(BeamFormDump, SkipsAModuleWithoutItsRecord) {
    for (const Block& block : kBlocks) {
        if (!block.take) continue;
        Capture record;
        block.take(record.bf);
        expectDump(record, block.bit, block.bit);
        expectDump(record, 0xffffffff, block.bit);
    }
}

TEST(BeamFormDump, NeedsNoRecordForTheBitsThatAreClear) {
    EboBeamFormParam bf = {};
    bf.ref_pos = 5;
    bf.targ = -6;
    bf.num_ref_channel = 8;
    bf.drop_ref_channel = 7;
    Capture record;
    record.bf = bf;
    for (const uint32_t mask : masksOfUpToTwoBits()) {
        const uint32_t without_wakeup = mask & ~0x2U;
        expectDump(record, without_wakeup, 0x2ec7c);
    }
}

TEST(BeamFormDump, PrintsAPlaceholderForTextsThatAreMissing) {
    Capture record;
    record.wakeup.model_word1 = nullptr;
    record.wakeup.model_word2 = nullptr;
    record.ainr.model_path = nullptr;
    Host host;
    record.bf.model_en = 0x20002;
    dumpEboBeamFormConfig(&record.bf);
    std::vector<ExpectedLine> want = linesFor(0x20002, 0);
    want[9].text = "   word1: (null)";
    want[10].text = "   word2: (null)";
    want[12].text = "   model_path: (null)";
    expectLog(host, want);
}

TEST(BeamFormDump, ShowsADefaultRecord) {
    Host host;
    EboBeamFormParam* bf = createEboBeamFormConfig();
    dumpEboBeamFormConfig(bf);
    std::vector<std::string> text;
    for (const LogCall& line : host.log()) text.push_back(line.text);
    EXPECT_THAT(
        text,
        testing::ElementsAre(
            "****************** BeamForm Configs dump ******************", "model_en = 0x479, ref_pos = 1",
            "targ = 4", "num_ref_channel = 1, drop_ref_channel = 0", "fast_aec:", "   enabled",  //
            "nlp:", "   BandPassThd   SuperEstFactor", "        10              6",
            "        10             10", "        10             10", "         5             10",
            "         5             10", "         5             10", "         0              6",
            "         0              6",  //
            "aes:", "   beta_up = 0.005000, beta_down = 0.001000",
            "   beta_up_low = 0.000000, beta_down = 0.001000", "   low_freq = 0, high_freq = 0",
            "   thd_flag = 0, hard_flag = 0",  //
            "   LimitRatio:", "      0.0000  0.0000  0.0000  ", "      0.0000  0.0000  0.0000  ",
            "   ThdSplitFreq:", "      0       0       ", "      0       0       ", "      0       0       ",
            "      0       0       ",  //
            "   ThdSupDegree:",
            "      0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  ",
            "      0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  ",
            "      0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  ",
            "      0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  ",
            "   HardSplitFreq:", "      0       0       ", "      0       0       ", "      0       0       ",
            "      0       0       ", "      0       0       ",
            "   HardThreshold:", "      0.0000  0.0000  0.0000  0.0000  ",  //
            "anr:", "   noiseFactor = 0.880000, swU = 10",
            "   psiMin = 0.010000, psiMax = 0.516000, fGmin = 0.050000",
            "   Sup_Freq1 = 0, Sup_Freq2 = 0, Sup_Energy1 = 0.000000 Sup_Energy2 = 0.000000",
            "   InterV = 0, BiasMin = 0.000000, UpdateFrm = 0",
            "   NPreGammaThr = 0.000000, NPreZetaThr = 0.000000, SabsGammaThr0 = 0.000000 "
            "SabsGammaThr1 = 0.000000",
            "   InfSmooth = 0.000000, ProbSmooth = 0.000000, CompCoeff = 0.000000",
            "   PrioriMin = 0.000000, PrioriMin = 0.000000, PostMax = 0.000000, PrioriRatio = "
            "0.000000, PrioriRatioLow = 0.000000",
            "   SplitBand = 0, PrioriSmooth = 0.000000, TranMode = 0",  //
            "agc:", "   attack_time = 200.000000, release_time = 2000.000000, attenuate_time = 1000.000000",
            "   max_gain = 20.000000, max_peak = -1.000000", "   fLineGainDb = -25.000000",
            "   fRth0 = -45.000000, fRth1 = -35.000000, fRth2 = -35.000000",
            "   fRk0 = -40.000000, fRk1 = 0.800000, fRk1 = 0.400000",
            "   swSmL0 = 40, swSmL1 = 80, swSmL2 = 80",  //
            "stdt:", "   ksiThd_high = 0.600000, ksiThd_low = 0.300000",
            "********************** End ***************************"));
    destroyEboBeamFormConfig(&bf);
}

TEST(BeamFormDump, ChangesAndAllocatesNothing) {
    static Capture record;  // the bytes between its fields are defined too
    record.bf.model_en = -1;
    const auto before = bytes(record);
    Host host;
    dumpEboBeamFormConfig(&record.bf);
    EXPECT_EQ(bytes(record), before);
    if constexpr (Host::kRecords) {
        const size_t made = host.recorder().only({Op::Log, Op::Memset}).size();
        EXPECT_EQ(host.recorder().events.size(), made);
        EXPECT_EQ(host.recorder().only({Op::Log}).size(), linesFor(0xffffffff, 0).size());
    }
}

}  // namespace
