// Numbers in texts, by the C library's scanner in the C locale, whatever locale the process has set. What the
// text does not supply stays as it was; an integer beyond 32 bits, of which the scanner says nothing, is the
// nearest that fits.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace model {

// The channel map "<count> chn;map:<channel>,<channel> ...".
struct ChannelMap {
    int32_t count = 0;
    std::array<int32_t, 16> channels = {};
};
ChannelMap scanChannelMap(const std::string& text);

// 3, 4 or 10 numbers separated by blanks.
void scanFloats(const std::string& text, float* row, size_t count);

// Two integers separated by blanks; low 16 bits. Without the second one it is the upper half of the first.
void scanPair(const std::string& text, int16_t (&row)[2]);

// Eight integers, each with a comma directly after it.
void scanBands(const std::string& text, std::array<int32_t, 8>& bands);

// One conversion; false when there is nothing to convert.
bool scanFloat(const std::string& text, float& value);
bool scanInteger(const std::string& text, int32_t& value);

}  // namespace model
