// Records compared byte for byte, unused bytes between the fields included.
#pragma once

#include <cstring>
#include <vector>

template <typename Record>
std::vector<unsigned char> bytes(const Record& record) {
    std::vector<unsigned char> copy(sizeof record);
    std::memcpy(copy.data(), &record, sizeof record);
    return copy;
}
