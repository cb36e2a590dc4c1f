#include <algorithm>
#include <charconv>
#include <string>

#include "check/syntax/mends.h"
#include "check/syntax/scan.h"

namespace {

constexpr char kForm[] =
    "write numbers as 5, -5, 0.5 or 1e-3: no '+', no leading zeros, digits on both sides of the point";
constexpr char kUnits[] =
    "write the number with digits and a decimal point only: no unit, nothing between the digits";
constexpr char kInNumbers[] = "0123456789+-.eE";

// What a comma after a digit, and before `rest`, is: in "0,5" a decimal one, in "100,000.0" one between
// thousands.
enum class Comma { Decimal, Thousands, Either };

Comma commaBefore(std::string_view rest) {
    const auto isGroup = [rest](size_t at) {
        const std::string_view group = rest.substr(std::min(at, rest.size()), 3);
        return group.size() == 3 && std::all_of(group.begin(), group.end(), isDigit) &&
               !(rest.size() > at + 3 && isDigit(rest[at + 3]));
    };
    if (!isGroup(0)) return Comma::Decimal;
    const bool goesOn = rest.substr(3, 1) == "." || (rest.substr(3, 1) == "," && isGroup(4));
    return goesOn ? Comma::Thousands : Comma::Either;
}

SyntaxMend mendComma(const SyntaxStop& stop) {
    switch (commaBefore(stop.text.substr(stop.offset))) {
        case Comma::Decimal:
            return {"write a decimal point, not a decimal comma", {{stop.last, 1, "."}}};
        case Comma::Thousands:
            return {"leave the comma out: nothing separates thousands", {{stop.last, 1, ""}}};
        default:
            return {"write a decimal point for a decimal comma, and nothing between thousands",
                    {{stop.last, 1, "."}},
                    true};
    }
}

// "null" for "-Infinity", which no number can replace.
std::optional<SyntaxMend> mendNotANumber(const SyntaxStop& stop) {
    size_t begin = stop.offset;
    size_t end = stop.offset;
    while (begin > 0 && isLetter(stop.text[begin - 1])) --begin;
    while (end < stop.text.size() && isLetter(stop.text[end])) ++end;
    std::string word(stop.text.substr(begin, end - begin));
    std::transform(word.begin(), word.end(), word.begin(),
                   [](char c) { return static_cast<char>(c | 0x20); });
    if (word != "nan" && word != "inf" && word != "infinity") return std::nullopt;
    if (begin > 0 && isAnyOf(stop.text[begin - 1], "+-")) --begin;
    return SyntaxMend{
        "write a number: JSON knows no NaN and no infinity", {{begin, end - begin, "null"}}, true};
}

// Where a number that reaches up to `last` begins, after a ':', ',' or '['; npos when there is none.
size_t numberBegin(std::string_view text, size_t last) {
    const size_t before = text.find_last_not_of(kInNumbers, last);
    const size_t mark = text.find_last_not_of(" \t", before);
    if (before == std::string_view::npos || mark == std::string_view::npos || !isAnyOf(text[mark], ":,["))
        return std::string_view::npos;
    return before < last ? before + 1 : std::string_view::npos;
}

// The number in the form of JSON: "+.5" is 0.5, "007" is 7. Empty when it cannot be told.
std::string asJson(std::string_view written) {
    std::string number;
    const size_t sign = std::min(written.find_first_not_of("+-"), written.size());
    if (sign > 0 && written[sign - 1] == '-') number += '-';
    std::string_view rest = written.substr(sign);
    const size_t digits = std::min(rest.find_first_not_of('0'), rest.size());
    if (digits > 0) rest.remove_prefix(digits < rest.size() && isDigit(rest[digits]) ? digits : digits - 1);
    if (rest.empty() || !isDigit(rest[0])) number += '0';
    for (size_t i = 0; i < rest.size(); ++i) {
        const char next = i + 1 < rest.size() ? rest[i + 1] : '\0';
        if (isAnyOf(rest[i], "eE") && next == '\0') break;
        number += rest[i];
        if (rest[i] == '.' && !isDigit(next)) number += '0';
    }
    double value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    return error == std::errc() && end == number.data() + number.size() ? number : std::string();
}

// What is written from `begin` on in the place of a number: up to a comma, a bracket, a comment or the line's
// end.
std::string_view writtenFrom(std::string_view text, size_t begin) {
    const size_t end = text.find_first_of(",}]\r\n\"/#;", begin);
    std::string_view written = text.substr(begin, end - begin);
    while (!written.empty() && isAnyOf(written.back(), " \t")) written.remove_suffix(1);
    return written;
}

// The number without its unit and what separates its digits: "24.0 dB" is 24.0, "100_000" is 100000, "0x30"
// is 48.
std::string withoutUnit(std::string_view written) {
    unsigned hexadecimal = 0;
    if (written.substr(0, 2) == "0x" || written.substr(0, 2) == "0X") {
        const auto [end, error] =
            std::from_chars(written.data() + 2, written.data() + written.size(), hexadecimal, 16);
        const bool whole = error == std::errc() && end == written.data() + written.size();
        return whole ? std::to_string(hexadecimal) : std::string();
    }
    std::string number;
    size_t at = 0;
    for (; at < written.size(); ++at) {
        const bool between =
            isAnyOf(written[at], " _'") && at + 1 < written.size() && isDigit(written[at + 1]);
        if (between) continue;
        if (!isAnyOf(written[at], "0123456789+-.")) break;
        number += written[at];
    }
    if (written.substr(at).find_first_of("0123456789") != std::string_view::npos) return {};
    return asJson(number);
}

}  // namespace

std::optional<SyntaxMend> mendNumber(const SyntaxStop& stop) {
    const bool afterDigit =
        stop.last != std::string_view::npos && stop.last > 0 && isDigit(stop.text[stop.last - 1]);
    if (stop.before == ',' && afterDigit && isDigit(stop.here)) return mendComma(stop);
    if (isLetter(stop.here)) {
        if (std::optional<SyntaxMend> mend = mendNotANumber(stop)) return mend;
    }
    size_t begin = stop.isSameLine() ? numberBegin(stop.text, stop.last) : std::string_view::npos;
    const bool begins = isAnyOf(stop.here, "+.");
    if (begin == std::string_view::npos && !begins) return std::nullopt;
    if (begin == std::string_view::npos) begin = stop.offset;
    const std::string_view written = writtenFrom(stop.text, begin);
    const char lastOne = stop.text[stop.offset > begin ? stop.last : begin];
    const bool badForm =
        begins || isAnyOf(lastOne, "+-.eE") || (isDigit(stop.here) && isDigit(stop.text[stop.offset - 1]));
    if (!badForm && !isLetter(stop.here) && !isDigit(stop.here) && !isAnyOf(stop.here, "_%'"))
        return std::nullopt;
    SyntaxMend mend = {badForm ? kForm : kUnits, {}};
    const std::string number = badForm && written.find_first_not_of(kInNumbers) == std::string_view::npos
                                   ? asJson(written)
                                   : withoutUnit(written);
    mend.isGuess = number.empty();
    mend.edits = {{begin, written.size(), number.empty() ? "null" : number}};
    return mend;
}
