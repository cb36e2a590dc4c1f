// The printer of floats against the C library's, which prints them exactly too. EBO_FLOATS is how many random
// ones.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

#include "dump/row_print.h"
#include "gtest/gtest.h"

namespace {

float floatOf(uint32_t bits) {
    float value = 0.0F;
    std::memcpy(&value, &bits, sizeof(value));
    return value;
}

// Both signs.
void expectAsInC(uint32_t bits) {
    for (const uint32_t sign : {0U, 1U << 31}) {
        const float value = floatOf(bits | sign);
        char expected[64];
        const auto length = static_cast<size_t>(std::snprintf(expected, sizeof(expected), "%.4f", value));
        char text[kEboLongestFixed];
        char* const end = text + sizeof(text);
        char* const begin = eboPrintFixed(end, value);
        if (begin < text || static_cast<size_t>(end - begin) != length ||
            std::memcmp(begin, expected, length) != 0) {
            FAIL() << std::string(begin, end) << " instead of " << expected << ", bits " << (bits | sign);
        }
    }
}

TEST(RowPrint, PrintsPowersOfTwoAndTheirNeighbours) {
    for (uint32_t exponent = 0; exponent <= 0xFF; ++exponent) {
        const uint32_t power = exponent << 23;
        for (uint32_t bits = power < 16 ? 0 : power - 16; bits < power + 16; ++bits) expectAsInC(bits);
        for (int bit = 0; bit < 23; ++bit) expectAsInC(power | 1U << bit);
    }
}

// A number lies halfway between two texts where it is an odd multiple of a thirty-second.
TEST(RowPrint, RoundsHalvesAndTheirNeighbours) {
    const char* const floats = std::getenv("EBO_FLOATS");
    const uint32_t step = floats != nullptr ? 2 : 2 * 191;
    for (uint32_t odd = 1; odd < 1U << 24; odd += step) {
        const float half = static_cast<float>(odd) / 32.0F;
        uint32_t bits = 0;
        std::memcpy(&bits, &half, sizeof(bits));
        for (uint32_t next = bits - 1; next <= bits + 1; ++next) expectAsInC(next);
    }
}

TEST(RowPrint, PrintsAnyFloat) {
    const char* const floats = std::getenv("EBO_FLOATS");
    const long count = floats != nullptr ? std::strtol(floats, nullptr, 10) : 100000;
    std::mt19937 random(1);  // NOLINT(cert-msc51-cpp): the same ones each time
    for (long i = 0; i < count; ++i) expectAsInC(static_cast<uint32_t>(random()) & 0x7FFFFFFF);
    // Where the fractions are.
    std::uniform_int_distribution<uint32_t> fractions(0x37000000, 0x4B800000);
    for (long i = 0; i < count; ++i) expectAsInC(fractions(random));
}

}  // namespace
