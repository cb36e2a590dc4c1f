#include "model/rows.h"

#include <algorithm>
#include <cstdio>

namespace model {

namespace {

using Wide = long long;

// The C library's scanner says nothing about an integer beyond the width of its type; the nearest 32-bit
// value stands for it.
int32_t nearest32(Wide value) {
    return static_cast<int32_t>(std::clamp<Wide>(value, INT32_MIN, INT32_MAX));
}

int16_t low16(int32_t value) {
    return static_cast<int16_t>(static_cast<uint32_t>(value) & 0xFFFFU);
}

}  // namespace

ChannelMap scanChannelMap(const std::string& text) {
    Wide n = 0;
    Wide c[16] = {};
    std::sscanf(
        text.c_str(),
        "%lld chn;map:%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld", &n,
        &c[0], &c[1], &c[2], &c[3], &c[4], &c[5], &c[6], &c[7], &c[8], &c[9], &c[10], &c[11], &c[12], &c[13],
        &c[14], &c[15]);
    ChannelMap map;
    map.count = nearest32(n);
    std::transform(c, c + 16, map.channels.begin(), nearest32);
    return map;
}

void scanFloats(const std::string& text, float (&row)[3]) {
    std::sscanf(text.c_str(), "%f  %f  %f", &row[0], &row[1], &row[2]);
}

void scanFloats(const std::string& text, float (&row)[4]) {
    std::sscanf(text.c_str(), "%f  %f  %f  %f", &row[0], &row[1], &row[2], &row[3]);
}

void scanFloats(const std::string& text, float (&row)[10]) {
    std::sscanf(text.c_str(), "%f  %f  %f  %f  %f  %f  %f  %f  %f  %f", &row[0], &row[1], &row[2], &row[3],
                &row[4], &row[5], &row[6], &row[7], &row[8], &row[9]);
}

void scanPair(const std::string& text, int16_t (&row)[2]) {
    Wide first = 0;
    Wide second = 0;
    const int found = std::sscanf(text.c_str(), "%lld  %lld", &first, &second);
    if (found < 1) return;
    const int32_t whole = nearest32(first);
    row[0] = low16(whole);
    row[1] = found == 2 ? low16(nearest32(second))
                        : low16(static_cast<int32_t>(static_cast<uint32_t>(whole) >> 16));
}

void scanBands(const std::string& text, std::array<int32_t, 8>& bands) {
    Wide b[8];
    std::copy(bands.begin(), bands.end(), b);
    std::sscanf(text.c_str(), "%lld,%lld,%lld,%lld,%lld,%lld,%lld,%lld", &b[0], &b[1], &b[2], &b[3], &b[4],
                &b[5], &b[6], &b[7]);
    std::transform(b, b + 8, bands.begin(), nearest32);
}

bool scanInteger(const std::string& text, int32_t& value) {
    Wide wide = 0;
    if (std::sscanf(text.c_str(), "%lld", &wide) != 1) return false;
    value = nearest32(wide);
    return true;
}

bool scanFloat(const std::string& text, float& value) {
    return std::sscanf(text.c_str(), "%f", &value) == 1;
}

}  // namespace model
