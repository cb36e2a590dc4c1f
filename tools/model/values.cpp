#include "model/values.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace {

template <typename T>
T load(const char* at) {
    T value;
    std::memcpy(&value, at, sizeof(value));
    return value;
}

std::string join(const void* record, const Numbers& numbers, const char* separator) {
    std::string text;
    for (size_t i = 0; i < numbers.count; ++i) {
        if (i != 0) text += separator;
        text += numberText(record, numbers, i);
    }
    return text;
}

std::string mapText(const Tuning& tuning, const void* record, const EboKeyRow& row) {
    const auto* map = load<const int16_t*>(fieldAt(record, row.offset));
    if (map == nullptr) return "";
    std::string text = std::to_string(tuning.channels) + " chn;map:";
    for (int i = 0; i < tuning.channels; ++i) {
        if (i != 0) text += ',';
        text += std::to_string(map[i]);
    }
    return text;
}

}  // namespace

std::string floatText(float value) {
    if (std::isnan(value)) return std::signbit(value) ? "-nan" : "nan";
    if (std::isinf(value)) return value < 0 ? "-inf" : "inf";
    const float size = std::fabs(value);
    const bool plain = size == 0.0F || (size >= 1e-5F && size < 1e9F);
    char text[64];
    const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
    std::string result(text, std::to_chars(text, text + sizeof(text), value, format).ptr);
    if (plain && result.find('.') == std::string::npos) result += ".0";
    return result;
}

std::string numberText(const void* record, const Numbers& numbers, size_t i) {
    const char* at = fieldAt(record, numbers.offset + i * numbers.stride);
    if (numbers.type == EboKeyKind::Float) return floatText(load<float>(at));
    if (numbers.type == EboKeyKind::Int16) return std::to_string(load<int16_t>(at));
    return std::to_string(load<int32_t>(at));
}

std::string wordText(const void* record, const EboKeyRow& row) {
    const auto* word = load<const char*>(fieldAt(record, row.offset));
    return word != nullptr ? word : "";
}

std::string valueText(const Tuning& tuning, const void* record, const EboKeyRow& row) {
    if (row.kind == EboKeyKind::Word) return wordText(record, row);
    if (row.kind == EboKeyKind::ChannelMap) return mapText(tuning, record, row);
    return join(record, numbersOf(row), row.kind == EboKeyKind::BandList ? "," : "  ");
}
