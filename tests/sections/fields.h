// Readers of record fields, for the list of keys.
#pragma once

#include "sections/sections.h"

template <auto Member>
struct MemberOf;

template <class R, class T, T R::*Member>
struct MemberOf<Member> {
    using Record = R;
    using Type = T;
    static const T& in(const void* record) { return static_cast<const R*>(record)->*Member; }
};

template <class T>
json number(T value) {
    if constexpr (std::is_floating_point_v<T>) return static_cast<double>(value);
    return static_cast<int>(value);
}

template <auto Member>
json readMember(const void* record) {
    const auto& value = MemberOf<Member>::in(record);
    if constexpr (std::is_pointer_v<std::decay_t<decltype(value)>>) {
        return value ? json(value) : json(nullptr);
    } else {
        return number(value);
    }
}

template <auto Member, size_t Row>
json readRow(const void* record) {
    const auto& table = MemberOf<Member>::in(record);
    json row = json::array();
    if constexpr (std::rank_v<typename MemberOf<Member>::Type> == 2) {
        for (const auto value : table[Row]) row.push_back(number(value));
    } else {
        for (const auto value : table) row.push_back(number(value));
    }
    return row;
}

template <class T>
constexpr Kind kindOf() {
    if (std::is_same_v<T, float>) return Kind::Float;
    if (std::is_same_v<T, int16_t>) return Kind::Int16;
    if (std::is_same_v<T, int32_t>) return Kind::Int32;
    return Kind::Text;
}

// The field of a number or of a text.
template <auto Member>
constexpr Field at = {readMember<Member>, kindOf<typename MemberOf<Member>::Type>()};

// A field that is 0 or 1.
template <auto Member>
constexpr Field flag = {readMember<Member>, Kind::Flag};

// One row of a table, or a table of one row.
template <auto Member, size_t Row = 0>
constexpr Field row = {readRow<Member, Row>, Kind::Row};

constexpr Field kNoField = {nullptr, Kind::None};
