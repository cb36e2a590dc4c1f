#include "check/types.h"

#include <charconv>
#include <cmath>
#include <optional>

#include "model/kinds.h"
#include "text/odd_characters.h"
#include "text/words.h"

namespace {

bool isInteger(const EboKeyRow& row) {
    return kindOf(row).type == ValueType::Integer;
}

bool isText(const EboKeyRow& row) {
    return kindOf(row).type == ValueType::Text;
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

// The text that an array of numbers makes, such as "1,0" of [1, 0]; empty when the row takes no such text.
std::string textOf(const EboKeyRow& row, std::string_view array) {
    const char* separator = kindOf(row).separator;
    if (separator == nullptr) return {};
    const bool isMap = row.kind == EboKeyKind::ChannelMap;
    const bool isFloats = row.kind == EboKeyKind::FloatRow;
    if (array.find_first_not_of(isFloats ? "0123456789+-.eE, \t\r\n" : "0123456789-, \t\r\n") !=
        std::string_view::npos)
        return {};
    std::string text;
    size_t count = 1;
    for (const char c : array) {
        if (c == ',') {
            text += separator;
            ++count;
        } else if (c > ' ') {
            text += c;
        }
    }
    if (text.empty() || count > row.count || (!isMap && count < row.count)) return {};
    return isMap ? std::to_string(count) + " chn;map:" + text : text;
}

}  // namespace

std::string typeOf(const KaJsonItem& item) {
    switch (item.kind) {
        case KaJsonKind::kNull:
            return "null";
        case KaJsonKind::kBool:
            return "a boolean";
        case KaJsonKind::kNumber:
            return CheckSource::value(item).find_first_of(".eE") == std::string_view::npos
                       ? "a number"
                       : "a number with a fraction or exponent";
        case KaJsonKind::kString:
            return "a string";
        case KaJsonKind::kArray:
            return "an array";
        default:
            return "an object";
    }
}

bool isIntegerBeyond32Bits(const EboKeyRow& row, const KaJsonItem& item) {
    return isInteger(row) && item.kind == KaJsonKind::kNumber &&
           CheckSource::value(item).find_first_of(".eE") == std::string_view::npos;
}

std::string helpWithStatus(std::string_view status) {
    const std::optional<OddCharacter> odd = firstOddCharacter(status);
    const bool hasBlanks = status.find_first_of(" \t\r\n") != std::string_view::npos;
    const std::string which = odd         ? ", without " + nameOfCharacter(odd->code)
                              : hasBlanks ? ", without blanks"
                                          : std::string();
    return "write \"enable\" or \"disable\"" + which;
}

std::string howToMend(const EboKeyRow& row, const KaJsonItem& item, std::string_view array) {
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
    if (row.kind == EboKeyKind::Flag && item.kind == KaJsonKind::kBool)
        return "write 1 for true, 0 for false";
    if (row.kind == EboKeyKind::Status) return "write \"enable\" or \"disable\"";
    if (isText(row) && item.kind == KaJsonKind::kNumber) return "put it in quotes: " + inQuotes(value);
    const std::string text = textOf(row, array);
    return "write " + (text.empty() ? exampleFor(row) : inQuotes(text));
}
