#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <type_traits>
#include <typeindex>
#include <vector>

#include "model/values.h"
#include "report/export.h"

namespace {

class Definitions;

// A field of a record, as the compiler sees it.
struct Field {
    std::type_index record;
    const char* recordName;
    const char* name;
    size_t offset;
    // The initializer of the field at `at`. What it points at is defined before, as `name`.
    std::string (*write)(Definitions& before, const char* at, const std::string& name);
};

// Every field of every record, in the order of the record.
const std::vector<Field>& fields();

std::string recordName(std::type_index record) {
    for (const Field& field : fields()) {
        if (field.record == record) return field.recordName;
    }
    return "";
}

// "{1, 2}"
std::string inBraces(const std::vector<std::string>& values) {
    std::string text = "{";
    for (const std::string& value : values) {
        if (text.size() > 1) text += ", ";
        text += value;
    }
    return text + "}";
}

// Octal escapes end after three digits, whatever comes next; and no "??" is left for a trigraph.
std::string literal(const char* text) {
    std::string quoted = "\"";
    for (; *text != '\0'; ++text) {
        const auto c = static_cast<unsigned char>(*text);
        if (c >= ' ' && c < 0x7f && std::strchr("\"\\?", c) == nullptr) {
            quoted += *text;
        } else {
            quoted += '\\';
            for (const int shift : {6, 3, 0}) quoted += static_cast<char>('0' + (c >> shift & 7));
        }
    }
    return quoted + '"';
}

std::string numberOf(float value) {
    if (std::isnan(value)) return std::signbit(value) ? "-NAN" : "NAN";
    if (std::isinf(value)) return value < 0 ? "-INFINITY" : "INFINITY";
    return floatText(value) + "F";
}

// The lowest has no literal: without its sign it is too large.
std::string numberOf(int32_t value) {
    return value == INT32_MIN ? "INT32_MIN" : std::to_string(value);
}

class Definitions {
public:
    explicit Definitions(int channels) : channels_(channels) {}

    const std::string& text() const { return text_; }
    int channels() const { return channels_; }

    void add(const std::string& definition) { text_ += "\n" + definition + ";\n"; }

    void addRecord(std::type_index type, const char* record, const char* storage, const std::string& name) {
        std::string lines;
        for (const Field& field : fields()) {
            if (field.record != type) continue;
            const std::string value = field.write(*this, record + field.offset, name + "_" + field.name);
            lines.append("    ").append(value).append(",  // ").append(field.name).append("\n");
        }
        add(storage + ("const " + recordName(type)) + " " + name + " = {\n" + lines + "}");
    }

private:
    const int channels_;  // of a channel map
    std::string text_;
};

std::string writeMap(Definitions& before, const int16_t* map, const std::string& name) {
    std::vector<std::string> channels;
    std::transform(map, map + before.channels(), std::back_inserter(channels),
                   [](int16_t channel) { return std::to_string(channel); });
    if (channels.empty()) channels.emplace_back("0");  // C has no array without elements
    before.add("static const int16_t " + name + "[] = " + inBraces(channels));
    return "(int16_t*)" + name;
}

template <typename Target>
std::string writePointer(Definitions& before, const Target* target, const std::string& name) {
    if constexpr (std::is_void_v<Target>) {
        return "NULL";  // nobody's
    } else {
        if (target == nullptr) return "NULL";
        if constexpr (std::is_same_v<Target, char>) {
            before.add("static const char " + name + "[] = " + literal(target));
            return "(char*)" + name;
        } else if constexpr (std::is_same_v<Target, int16_t>) {
            return writeMap(before, target, name);
        } else {
            before.addRecord(typeid(Target), reinterpret_cast<const char*>(target), "static ", name);
            return "(" + recordName(typeid(Target)) + "*)&" + name;
        }
    }
}

template <typename T>
std::string write(Definitions& before, const char* at, const std::string& name) {
    std::vector<std::string> parts;
    if constexpr (std::is_pointer_v<T>) {
        return writePointer(before, *reinterpret_cast<const T*>(at), name);
    } else if constexpr (std::is_array_v<T>) {
        using Element = std::remove_extent_t<T>;
        for (size_t i = 0; i < std::extent_v<T>; ++i)
            parts.push_back(write<Element>(before, at + i * sizeof(Element), name));
    } else if constexpr (std::is_class_v<T>) {
        for (const Field& field : fields()) {
            if (field.record == typeid(T)) parts.push_back(field.write(before, at + field.offset, name));
        }
    } else {
        return numberOf(*reinterpret_cast<const T*>(at));
    }
    return inBraces(parts);
}

const std::vector<Field>& fields() {
    static const std::vector<Field> fields = [] {
        std::vector<Field> all;
#define SIZE(Record, bits32, bits64) static_cast<void>(0)
#define OFFSET(Record, field, bits32, bits64) \
    all.push_back({typeid(Record), #Record, #field, offsetof(Record, field), write<decltype(Record::field)>})
#include <ebo_layout.inc>
#undef SIZE
#undef OFFSET
        return all;
    }();
    return fields;
}

// `%` is what differs.
constexpr char kDeclaration[] = R"(#include <ebo_params.h>

#ifdef __cplusplus
extern "C" {
#endif
extern const %;
#ifdef __cplusplus
}
#endif
)";

constexpr char kHeader[] =
    R"(// A tuning as constants, written by eboconf. It is never destroyed: the destroy functions write into records, and
// these stand in read-only memory. Nobody may write through its pointers.
#pragma once

)";

constexpr char kBefore[] = R"(// A tuning as constants, written by eboconf, for C99 and C++17.
#include <math.h>
#include <stddef.h>

)";

constexpr char kAfter[] = R"(
#if EBO_LAYOUT != %
#error "this tuning was written for other records: take the eboconf of this library"
#endif

// The records' pointers take what nobody writes to.
#pragma GCC diagnostic ignored "-Wcast-qual"
#ifdef __cplusplus
#pragma GCC diagnostic ignored "-Wold-style-cast"
#endif
)";

std::string with(std::string text, const std::string& value) {
    return text.replace(text.find('%'), 1, value);
}

template <typename Record>
BuiltIn builtIn(const Record* root, const Tuning& tuning, const std::string& name) {
    Definitions definitions(tuning.channels);
    definitions.addRecord(typeid(Record), reinterpret_cast<const char*>(root), "", name);
    const std::string declaration = with(kDeclaration, recordName(typeid(Record)) + " " + name);
    return {kHeader + declaration,
            kBefore + declaration + with(kAfter, std::to_string(EBO_LAYOUT) + "U") + definitions.text()};
}

}  // namespace

BuiltIn exportBuiltIn(const Tuning& tuning, const EboLoad& load, const std::string& name) {
    switch (&load - kEboLoads) {
        case kEboAecLoad:
            return builtIn(tuning.capture->aec, tuning, name);
        case kEboBeamFormLoad:
            return builtIn(tuning.capture->bf, tuning, name);
        case kEboAoLoad:
            return builtIn(tuning.playback.get(), tuning, name);
        case kEboAgcLoad:
            return builtIn(tuning.gain.get(), tuning, name);
        default:
            return builtIn(tuning.capture.get(), tuning, name);
    }
}
