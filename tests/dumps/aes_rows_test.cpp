// The table rows of the echo suppressor: how they are written, cut off and cleared.
#include <cfloat>
#include <cmath>

#include "harness/comma_locale.h"
#include "lines.h"

using ka_recording::Op;
using testing::ElementsAre;

namespace {

// The rows of a dump, without the blanks before them.
std::vector<std::string> rowsOf(EboAesParam& aes, Host& host) {
    EboBeamFormParam bf = {};
    bf.model_en = 0x10;
    bf.aes = &aes;
    dumpEboBeamFormConfig(&bf);
    std::vector<std::string> rows;
    for (const LogCall& line : host.log())
        if (line.format == "      %s") rows.push_back(line.text.substr(6));
    return rows;
}

std::string tenTimes(const std::string& text) {
    std::string row;
    for (int i = 0; i < 10; ++i) row += text;
    return row;
}

const std::string kMax = "340282346638528859811704183484516925440.0000  ";  // the largest float
const std::string kZeros = "0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  ";

struct RowCase {
    const char* name;
    float values[10];
    std::string row;  // as it is printed
};

constexpr float kInf = HUGE_VALF;

// The buffer takes 127 characters; what does not fit is cut off, even inside a number.
const RowCase kRows[] = {
    {"Zeros", {}, kZeros},
    {"Rounded",
     {0.03125F, 0.09375F, 0.99996F, 0.99994F},
     "0.0312  0.0938  1.0000  0.9999  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  "},
    {"Negative",
     {-1.0F, -0.5F, -0.0F, -9999.5F},
     "-1.0000  -0.5000  -0.0000  -9999.5000  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  "},
    {"NotNumbers",
     {kInf, -kInf, NAN, -NAN},
     "inf  -inf  nan  -nan  0.0000  0.0000  0.0000  0.0000  0.0000  0.0000  "},
    {"FittingExactly",
     {1e5F, 1e5F, 1e5F, 1e5F, 1e5F, 1e5F, 1e5F, 1e4F, 1e4F, 1e4F},
     "100000.0000  100000.0000  100000.0000  100000.0000  100000.0000  100000.0000  100000.0000  10000.0000  "
     "10000.0000  10000.0000  "},
    {"OneCharacterTooLong",
     {1e5F, 1e5F, 1e5F, 1e5F, 1e5F, 1e5F, 1e5F, 1e5F, 1e4F, 1e4F},
     "100000.0000  100000.0000  100000.0000  100000.0000  100000.0000  100000.0000  100000.0000  100000.0000 "
     " 10000.0000  10000.0000 "},
    {"CutInsideANumber",
     {1e6F, 1e6F, 1e6F, 1e6F, 1e6F, 1e6F, 1e6F, 1e6F, 1e6F, 1e6F},
     tenTimes("1000000.0000  ").substr(0, 127)},
    {"FullBeforeItsEnd",
     {FLT_MAX, FLT_MAX, FLT_MAX, FLT_MAX, 1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F},
     (kMax + kMax + kMax).substr(0, 127)},
    {"FullAtAnEnd",
     {FLT_MAX, FLT_MAX, 1e20F, 1e5F, 5.0F, 6.0F, 7.0F, 8.0F, 9.0F, 10.0F},
     (kMax + kMax + "100000002004087734272.0000  100000.0000  ").substr(0, 127)},
    {"Enormous",
     {-FLT_MAX, -FLT_MAX, -FLT_MAX, -FLT_MAX, -FLT_MAX, -FLT_MAX, -FLT_MAX, -FLT_MAX, -FLT_MAX, -FLT_MAX},
     tenTimes("-" + kMax).substr(0, 127)},
};

// The name of the test.
void PrintTo(const RowCase& row, std::ostream* out) {
    *out << row.name;
}

class AesRow : public testing::TestWithParam<RowCase> {};

INSTANTIATE_TEST_SUITE_P(, AesRow, testing::ValuesIn(kRows));

// The rows around it stay whole.
TEST_P(AesRow, IsWrittenAsFarAsItFits) {
    EboAesParam aes = {};
    for (size_t i = 0; i < 10; ++i) aes.ThdSupDegree[1][i] = GetParam().values[i];
    Host host;
    const std::vector<std::string> rows = rowsOf(aes, host);
    ASSERT_EQ(rows.size(), 16U);
    EXPECT_EQ(rows[6], kZeros);
    EXPECT_EQ(rows[7], GetParam().row);
    EXPECT_EQ(rows[8], kZeros);
}

TEST_P(AesRow, IsTheSameUnderALocaleWithADecimalComma) {
    const CommaLocale locale;
    EboAesParam aes = {};
    for (size_t i = 0; i < 10; ++i) aes.ThdSupDegree[3][i] = GetParam().values[i];
    Host host;
    EXPECT_EQ(rowsOf(aes, host).at(9), GetParam().row);
}

TEST(AesRows, OfEveryTableAreCutOff) {
    EboAesParam aes = {};
    for (float& value : aes.LimitRatio[0]) value = FLT_MAX;
    for (float& value : aes.ThdSupDegree[3]) value = FLT_MAX;
    for (float& value : aes.HardThreshold) value = FLT_MAX;
    Host host;
    const std::vector<std::string> rows = rowsOf(aes, host);
    const std::string cut = (kMax + kMax + kMax).substr(0, 127);
    ASSERT_EQ(rows.size(), 16U);
    EXPECT_EQ(rows[0], cut);
    EXPECT_EQ(rows[1], "0.0000  0.0000  0.0000  ");
    EXPECT_EQ(rows[9], cut);
    EXPECT_EQ(rows[10], "0       0       ");
    EXPECT_EQ(rows[15], cut);
}

TEST(AesRows, OfIntegersAreSixteenCharactersWide) {
    EboAesParam aes = {};
    aes.ThdSplitFreq[0][0] = -32768;
    aes.ThdSplitFreq[0][1] = -32768;
    aes.ThdSplitFreq[3][1] = 32767;
    aes.HardSplitFreq[4][0] = 1;
    Host host;
    const std::vector<std::string> rows = rowsOf(aes, host);
    ASSERT_EQ(rows.size(), 16U);
    EXPECT_EQ(rows[2], "-32768  -32768  ");
    EXPECT_EQ(rows[5], "0       32767   ");
    EXPECT_EQ(rows[14], "1       0       ");
}

// The whole buffer text of the last row is cleared after each table, through the framework.
TEST(AesRows, AreClearedAfterEachTable) {
    EboAesParam aes = {};
    aes.LimitRatio[1][0] = -1.0F;
    for (float& value : aes.ThdSupDegree[3]) value = FLT_MAX;
    aes.HardThreshold[0] = 10.0F;
    Host host;
    rowsOf(aes, host);
    if constexpr (Host::kRecords) {
        std::vector<std::string> steps;
        for (const auto& event : host.recorder().only({Op::Log, Op::Memset})) {
            if (event.op == Op::Memset)
                steps.push_back(std::to_string(event.size) + " x " + std::to_string(event.value));
            else if (event.line.text.back() == ':')
                steps.push_back(event.line.text);
        }
        EXPECT_THAT(steps, ElementsAre("aes:", "   LimitRatio:", "25 x 0", "   ThdSplitFreq:", "16 x 0",
                                       "   ThdSupDegree:", "127 x 0", "   HardSplitFreq:", "16 x 0",
                                       "   HardThreshold:", "33 x 0"));
    }
}

}  // namespace
