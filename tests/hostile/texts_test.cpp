// Texts and values that are at the edge of JSON or beyond, through the loader of the echo canceller and the
// loader of the beamformer.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "model/memory_file.h"
#include "model/observation.h"

using namespace model;

namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();

// What the loader of the echo canceller logs, "refused: " and the reason without its place if the framework
// does.
std::string loadAec(const std::string& text, int* delay_len = nullptr) {
    const MemoryFile file(text);
    const Observation seen = observe(Loader::Aec, file.path(), 0);
    if (!seen.refusals.empty()) {
        EXPECT_TRUE(seen.parts.empty() && seen.log.empty());
        return "refused" + seen.refusals[0].substr(seen.refusals[0].rfind(": "));
    }
    if (delay_len && !seen.parts.empty())
        *delay_len = get<int32_t>(seen.parts.at("aec"), sectionOf("aec").key("delay_len").offset);
    std::string log;  // but for the delay estimator, which the files leave out
    for (const Line& line : seen.log) {
        std::string bare = line.text;
        if (line.error) bare = bare.substr(9, bare.size() - 13);  // without its colours
        if (bare.find(" delay ") == std::string::npos) log += bare;
    }
    EXPECT_EQ(seen.parts.empty(), !log.empty());
    return log;
}

std::string aecFile(const std::string& keys) {
    return R"({"ebo_configs": {"aec": {"status": "enable", "drop_ref_channel": 0, "look_ahead": 0,)"
           R"( "filter_len": 0, )" +
           keys + "}}}";
}

struct Text {
    const char* name;
    std::string text;
    std::string said;  // "" when it loads
};

std::ostream& operator<<(std::ostream& out, const Text& text) {
    return out << text.name;
}
template <typename Case>
std::string nameOf(const testing::TestParamInfo<Case>& instance) {
    return instance.param.name;
}

class HostileText : public testing::TestWithParam<Text> {};

TEST_P(HostileText, HasItsOutcome) {
    EXPECT_EQ(loadAec(GetParam().text), GetParam().said);
}

std::string nested(size_t depth) {
    return std::string(depth, '[') + std::string(depth, ']');
}

// clang-format off
const std::string kGood = aecFile(R"("delay_len": 7)");
INSTANTIATE_TEST_SUITE_P(, HostileText, testing::Values(
    Text{"ByteOrderMark", "\xEF\xBB\xBF" + kGood, "refused: save the file as UTF-8 without one"},
    Text{"NulByteInText", aecFile(std::string("\"delay_len\": 7, \"x\": \"a\0b\"", 26)), "refused: a NUL byte"},
    Text{"NulByteAtTheEnd", kGood + std::string(1, '\0'), "refused: a NUL byte"},
    Text{"InvalidUtf8", aecFile("\"delay_len\": 7, \"x\": \"\xC0\xAF\""), "refused: a string that is not UTF-8"},
    Text{"MillionLevelsInAKey", aecFile("\"delay_len\": 7, \"x\": " + nested(1000000)), ""},
    Text{"MillionLevelsUnclosed", std::string(1000000, '['), "refused: the text ends too early"},
    Text{"NoObjectAtTheTop", "[]", "find aec status failed"},
    Text{"RootIsText", R"({"ebo_configs": "aec"})", "find aec status failed"},
    Text{"SectionIsText", R"({"ebo_configs": {"aec": "status"}})", "find aec status failed"},
    Text{"SectionIsArray", R"({"ebo_configs": {"aec": [{"status": "enable"}]}})", "find aec status failed"},
    Text{"SectionTwiceTheLastCounts", R"({"ebo_configs": {"aec": {"status": "enable"}, "aec": {}}})", "find aec status failed"},
    Text{"RootTwiceTheLastCounts", R"({"ebo_configs": {"aec": {"status": "enable"}}, "ebo_configs": {}})", "find aec status failed"},
    Text{"KeyDiffersInCase", aecFile(R"("Delay_len": 7)"), "find aec delay_len failed"},
    Text{"SectionDiffersInCase", R"({"ebo_configs": {"AEC": {"status": "enable"}}})", "find aec status failed"},
    Text{"KeyIsText", aecFile(R"("delay_len": "7")"), "find aec delay_len failed"}), nameOf<Text>);
// clang-format on

struct Integer {
    const char* name;
    std::string keys;
    int value;
    bool missing = false;
};

std::ostream& operator<<(std::ostream& out, const Integer& integer) {
    return out << integer.name;
}

class HostileInteger : public testing::TestWithParam<Integer> {};

TEST_P(HostileInteger, HasItsValueOrIsMissing) {
    int delay_len = 0;
    const std::string said = loadAec(aecFile(GetParam().keys), &delay_len);
    EXPECT_EQ(said, GetParam().missing ? "find aec delay_len failed" : "");
    EXPECT_EQ(delay_len, GetParam().value);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(, HostileInteger, testing::Values(
    Integer{"KeyTwiceTheLastCounts", R"("delay_len": 1, "delay_len": 2)", 2},
    Integer{"KeyTwiceTheLastOfWrongType", R"("delay_len": 1, "delay_len": "2")", 0, true},
    Integer{"KeyWithEscape", R"("\u0064elay_len": 3)", 3},
    Integer{"KeyWithEscapedNul", R"("delay_len\u0000": 3)", 0, true},
    Integer{"Largest", R"("delay_len": 2147483647)", 2147483647},
    Integer{"Smallest", R"("delay_len": -2147483648)", -2147483647 - 1},
    Integer{"BeyondTheLargest", R"("delay_len": 2147483648)", 0, true},
    Integer{"BeyondTheSmallest", R"("delay_len": -2147483649)", 0, true},
    Integer{"MinusZero", R"("delay_len": -0)", 0},
    Integer{"WithFraction", R"("delay_len": 1.0)", 0, true},
    Integer{"WithExponent", R"("delay_len": 1e3)", 0, true}), nameOf<Integer>);
// clang-format on

struct Float {
    const char* name;
    const char* text;
    float value;
};

std::ostream& operator<<(std::ostream& out, const Float& number) {
    return out << number.name;
}

class HostileFloat : public testing::TestWithParam<Float> {};

TEST_P(HostileFloat, IsTheNearest) {
    const MemoryFile file(R"({"ebo_configs": {"bf": {"status": "enable", "drop_ref_channel": 0, "targ": 0}, )"
                          R"("dtd": {"status": "enable", "ksiThd_low": 0, "ksiThd_high": )" +
                          std::string(GetParam().text) + "}}}");
    const Observation seen = observe(Loader::BeamForm, file.path(), 0);
    const auto value = get<float>(seen.parts.at("dtd"), sectionOf("dtd").key("ksiThd_high").offset);
    EXPECT_EQ(value, GetParam().value);
    EXPECT_EQ(std::signbit(value), std::signbit(GetParam().value));
}

INSTANTIATE_TEST_SUITE_P(
    , HostileFloat,
    testing::Values(Float{"TooLarge", "1e400", kInfinity}, Float{"TooLargeNegative", "-1e400", -kInfinity},
                    Float{"TooSmall", "-1e-400", -0.0F}, Float{"MinusZero", "-0", -0.0F},
                    Float{"MinusZeroPoint", "-0.0", -0.0F}, Float{"SmallestDenormal", "1e-45", 0x1p-149F},
                    Float{"Denormal", "1e-40", 0x1.16c2p-133F}, Float{"HalfToEven", "16777217", 0x1p24F},
                    Float{"HalfToEvenUpwards", "16777219", 0x1.000004p24F},
                    Float{"JustAboveTheHalf", "1.000000059604644775390625000000000001", 0x1.000002p0F},
                    Float{"LargestFloat", "3.4028234663852886e38", 0x1.fffffep127F},
                    Float{"HalfBeyondTheLargest", "340282356779733661637539395458142568448", kInfinity}),
    nameOf<Float>);

}  // namespace
