// Numbers in texts as the model reads them: with the C library's scanner, in the C locale.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace model {

// The channel map "<count> chn;map:<channel>,<channel> ...". What the text does not supply is 0.
struct ChannelMap {
    int32_t count = 0;
    std::array<int32_t, 16> channels = {};
};
ChannelMap scanChannelMap(const std::string& text);

// Numbers separated by blanks, 3, 4 or 10 of them. What the text does not supply stays as it was.
void scanFloats(const std::string& text, float (&row)[3]);
void scanFloats(const std::string& text, float (&row)[4]);
void scanFloats(const std::string& text, float (&row)[10]);

// Two integers separated by blanks; low 16 bits. Of one integer alone the upper half stands in the second place.
void scanPair(const std::string& text, int16_t (&row)[2]);

// Eight integers, each with a comma directly behind it. What the text does not supply stays as it was.
void scanBands(const std::string& text, std::array<int32_t, 8>& bands);

// One conversion; false when there is nothing to convert.
bool scanInteger(const std::string& text, int32_t& value);
bool scanFloat(const std::string& text, float& value);

}  // namespace model
