#include "model/values.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <random>

namespace {

struct FloatCase {
    float value;
    const char* text;
};

TEST(FloatText, IsShortAndPlainWhereThatIsReadable) {
    const FloatCase cases[] = {
        {0.0F, "0.0"},
        {-0.0F, "-0.0"},
        {1.0F, "1.0"},
        {-35.0F, "-35.0"},
        {0.1F, "0.1"},
        {0.003162F, "0.003162"},
        {100000.0F, "100000.0"},
        {16777216.0F, "16777216.0"},
        {1e-5F, "0.00001"},
        {9e-6F, "9e-06"},
        {999999936.0F, "999999936.0"},
        {1e9F, "1e+09"},
        {std::numeric_limits<float>::max(), "3.4028235e+38"},
        {std::numeric_limits<float>::denorm_min(), "1e-45"},
        {std::numeric_limits<float>::infinity(), "inf"},
        {-std::numeric_limits<float>::infinity(), "-inf"},
        {std::numeric_limits<float>::quiet_NaN(), "nan"},
        {-std::numeric_limits<float>::quiet_NaN(), "-nan"},
    };
    for (const FloatCase& c : cases) EXPECT_EQ(floatText(c.value), c.text);
}

TEST(FloatText, ReadsBackAsTheSameBits) {
    std::mt19937 random(1);
    for (int i = 0; i < 200000; ++i) {
        const uint32_t bits = static_cast<uint32_t>(random());
        float value;
        std::memcpy(&value, &bits, sizeof(value));
        if (value != value) continue;
        const float back = std::strtof(floatText(value).c_str(), nullptr);
        ASSERT_EQ(std::memcmp(&back, &value, sizeof(value)), 0) << floatText(value);
    }
}

}  // namespace
