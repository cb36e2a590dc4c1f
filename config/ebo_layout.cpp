// Pins the layout of every record for 32-bit and 64-bit pointers: the engine is compiled against it.
#include <cstddef>

#include "ebo_params.h"

namespace {

constexpr size_t forPointers(size_t bits32, size_t bits64) {
    return sizeof(void*) == 4 ? bits32 : bits64;
}

#define SIZE(Record, bits32, bits64) \
    static_assert(sizeof(Record) == forPointers(bits32, bits64), "size of " #Record)
#define OFFSET(Record, field, bits32, bits64) \
    static_assert(offsetof(Record, field) == forPointers(bits32, bits64), "offset of " #Record "::" #field)

#include "ebo_layout.inc"

}  // namespace
