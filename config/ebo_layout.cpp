// Pins the layout of every record for 32-bit and 64-bit pointers, and its number: the engine is compiled
// against it.
#include <cstddef>

#include "ebo_params.h"
#include "ebo_version.h"

namespace {

constexpr size_t forPointers(size_t bits32, size_t bits64) {
    return sizeof(void*) == 4 ? bits32 : bits64;
}

#define SIZE(Record, bits32, bits64) \
    static_assert(sizeof(Record) == forPointers(bits32, bits64), "size of " #Record)
#define OFFSET(Record, field, bits32, bits64) \
    static_assert(offsetof(Record, field) == forPointers(bits32, bits64), "offset of " #Record "::" #field)

#include "ebo_layout.inc"

#undef SIZE
#undef OFFSET

// A number for all of that list.
constexpr uint32_t mixed(uint32_t sum, uint32_t bits32, uint32_t bits64) {
    return ((sum ^ bits32) * 16777619 ^ bits64) * 16777619;
}
constexpr uint32_t layoutSum() {
    uint32_t sum = 2166136261;
#define SIZE(Record, bits32, bits64) sum = mixed(sum, bits32, bits64)
#define OFFSET(Record, field, bits32, bits64) sum = mixed(sum, bits32, bits64)
#include "ebo_layout.inc"
    return sum;
}
template <uint32_t kSum>
constexpr bool isTheNumberOfTheLayout() {
    static_assert(kSum == EBO_LAYOUT, "another layout: EBO_LAYOUT must be kSum");
    return true;
}
static_assert(isTheNumberOfTheLayout<layoutSum()>(), "");

}  // namespace

const char* eboVersion(void) {
    return EBO_VERSION;
}

uint32_t eboLayout(void) {
    return EBO_LAYOUT;
}
