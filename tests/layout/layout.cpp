// Prints docs/layout.md. Ends with status 1 when the list of fields leaves one out.
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <type_traits>

#include "ebo_params.h"

namespace {

// The compiler's own word for a record, as the header spells it.
template <class T>
std::string typeName() {
    if constexpr (std::is_pointer_v<T>) {
        return typeName<std::remove_pointer_t<T>>() + "*";
    } else if constexpr (std::is_same_v<T, char>) {
        return "char";
    } else if constexpr (std::is_integral_v<T>) {
        return "int" + std::to_string(8 * sizeof(T));
    } else {
        const std::string words = __PRETTY_FUNCTION__;
        const size_t begin = words.find("T = ") + 4;
        return words.substr(begin, words.find_first_of(";]", begin) - begin);
    }
}

template <class T>
std::string extents() {
    if constexpr (std::is_array_v<T>) {
        return "[" + std::to_string(std::extent_v<T>) + "]" + extents<std::remove_extent_t<T>>();
    } else {
        return "";
    }
}

std::string g_rows;  // of the record whose fields come
size_t g_end = 0;    // after the last field so far

size_t alignUp(size_t offset, size_t align) {
    return (offset + align - 1) / align * align;
}

template <class Record>
void expect(bool complete, const char* before) {
    if (complete) return;
    std::fprintf(stderr, "layout: %s has a field before %s that the list leaves out\n",
                 typeName<Record>().c_str(), before);
    std::exit(1);
}

template <class Record, class Field>
void field(const char* name, size_t offset, size_t bits32, size_t bits64) {
    expect<Record>(alignUp(g_end, alignof(Field)) == offset, name);
    g_end = offset + sizeof(Field);
    const std::string bytes = std::is_pointer_v<Field> ? "4, 8" : std::to_string(sizeof(Field));
    g_rows += std::string("| `") + name + "` | " + typeName<std::remove_all_extents_t<Field>>() +
              extents<Field>() + " | " + bytes + " | " + std::to_string(bits32) + " | " +
              std::to_string(bits64) + " |\n";
}

template <class Record>
void record(size_t bits32, size_t bits64) {
    expect<Record>(alignUp(g_end, alignof(Record)) == sizeof(Record), "its end");
    std::printf("\n## %s\n\n", typeName<Record>().c_str());
    if (bits32 == bits64) {
        std::printf("%zu bytes.\n", bits32);
    } else {
        std::printf("%zu bytes with 32-bit pointers, %zu with 64-bit pointers.\n", bits32, bits64);
    }
    std::printf("\n| field | type | bytes | offset, 32-bit | offset, 64-bit |\n|---|---|--:|--:|--:|\n%s",
                g_rows.c_str());
    g_rows.clear();
    g_end = 0;
}

const char* const kHead =
    R"(# Layout of the records

Written by a program of the tests, `tests/layout`, from the list that the library itself is compiled against; do not edit.

What an engine sees that is not built against `ebo_params.h`, or that wants to check that it was built against the same
one. Offsets and sizes are in bytes. Integers are signed, in two's complement; `float` is IEEE 754 single precision; all
in the byte order of the machine. Bytes between fields are padding: zero in a record that was loaded, never read. What
the fields mean, and which pointers may be null, stands in [ebo_params.h](../config/ebo_params.h).
)";

}  // namespace

#define SIZE(Record, bits32, bits64) record<Record>(bits32, bits64)
#define OFFSET(Record, name, bits32, bits64) \
    field<Record, decltype(Record::name)>(#name, offsetof(Record, name), bits32, bits64)

int main() {
    std::printf("%s", kHead);
#include "ebo_layout.inc"
    return 0;
}
