#include "check_types.h"

#include <charconv>
#include <cmath>

#include "check_words.h"

namespace {

bool isInteger(const EboKeyRow& row) {
    return row.kind == EboKeyKind::Int32 || row.kind == EboKeyKind::Int16 || row.kind == EboKeyKind::Flag;
}

bool isText(const EboKeyRow& row) {
    return !isInteger(row) && row.kind != EboKeyKind::Float;
}

bool isNumberText(std::string_view text, double* value) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), *value);
    return !text.empty() && error == std::errc() && end == text.data() + text.size() && std::isfinite(*value);
}

// The nearest integer that a key can hold, written as such.
std::string wholeNumber(double value) {
    const double rounded = std::round(value);
    return std::abs(rounded) < 2147483648.0 ? std::to_string(static_cast<int32_t>(rounded)) : std::string();
}

}  // namespace

std::string typeOf(const KaJsonItem& item) {
    switch (item.kind) {
        case KaJsonKind::kNull:
            return "null";
        case KaJsonKind::kBool:
            return "true or false";
        case KaJsonKind::kNumber:
            return CheckSource::value(item).find_first_of(".eE") == std::string_view::npos
                       ? "a number"
                       : "a number with a fraction or exponent";
        case KaJsonKind::kString:
            return "a text";
        case KaJsonKind::kArray:
            return "an array";
        default:
            return "an object";
    }
}

std::string typeWanted(const EboKeyRow& row) {
    if (isInteger(row)) return "an integer";
    if (row.kind == EboKeyKind::Float) return "a number";
    return "a text";
}

bool isIntegerBeyond32Bits(const EboKeyRow& row, const KaJsonItem& item) {
    return isInteger(row) && item.kind == KaJsonKind::kNumber &&
           CheckSource::value(item).find_first_of(".eE") == std::string_view::npos;
}

std::string howToMend(const EboKeyRow& row, const KaJsonItem& item) {
    const std::string value(CheckSource::value(item));
    double number = 0;
    if (!isText(row) && item.kind == KaJsonKind::kString && isNumberText(value, &number)) {
        if (!isInteger(row)) return "leave out the quotes: " + value;
        const std::string whole = wholeNumber(number);
        if (!whole.empty()) return "leave out the quotes: " + whole;
    }
    if (isInteger(row) && item.kind == KaJsonKind::kNumber && isNumberText(value, &number)) {
        const std::string whole = wholeNumber(number);
        if (!whole.empty()) return "write it without fraction and exponent: " + whole;
    }
    if (isInteger(row) && item.kind == KaJsonKind::kBool) return "write 1 for true, 0 for false";
    if (row.kind == EboKeyKind::Status) return "write \"enable\" or \"disable\"";
    if (isText(row) && item.kind == KaJsonKind::kNumber) return "put it in quotes: " + quoted(value);
    return "write " + placeholder(row);
}

std::string placeholder(const EboKeyRow& row) {
    const std::string count = std::to_string(row.count);
    switch (row.kind) {
        case EboKeyKind::Status:
            return "\"enable\" or \"disable\"";
        case EboKeyKind::Flag:
            return "0 or 1";
        case EboKeyKind::Int16:
            return "an integer from -32768 to 32767";
        case EboKeyKind::Int32:
            return "an integer";
        case EboKeyKind::Float:
            return "a number";
        case EboKeyKind::FloatRow:
            return count + " numbers in quotes, separated by blanks";
        case EboKeyKind::IntRow:
            return count + " integers in quotes, separated by blanks";
        case EboKeyKind::IntList:
            return count + " integers in quotes, separated by commas";
        case EboKeyKind::ChannelMap:
            return "\"4 chn;map:1,0,3,2\", for four channels";
        default:
            return "a text in quotes";
    }
}
