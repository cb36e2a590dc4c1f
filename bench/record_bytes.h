// A capture path as one row of bytes, so that two loads can be compared to the last bit.
#pragma once

#include <string>

#include <cstddef>

#include <ebo_params.h>

// Every record with the padding between its fields, a null instead of every pointer, and what the pointers
// point at after it. `channels` is the length of the channel map, which the record does not hold.
std::string recordBytes(const KAEboParam& ebo, size_t channels);
