#include "check/syntax.h"

#include <algorithm>
#include <cctype>

#include "text/utf8.h"

namespace {

constexpr char kNumbers[] =
    "write numbers as 5, -5, 0.5 or 1e-3: no '+', no leading zeros, digits on both sides of the point";
constexpr char kNames[] = "write names and texts in double quotes; true, false and null in lower case";

bool isAnyOf(char c, std::string_view set) {
    return set.find(c) != std::string_view::npos;
}

bool isDigit(char c) {
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

bool isLetter(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0;
}

// What ends a value or a key.
bool endsValue(char c) {
    return isAnyOf(c, "\"}]") || isLetter(c) || isDigit(c);
}

std::string ofLine(std::string_view text, size_t offset) {
    return "line " + std::to_string(1 + std::count(text.begin(),
                                                   text.begin() + static_cast<std::ptrdiff_t>(offset), '\n'));
}

bool leavesBraceOpen(std::string_view text) {
    return std::count(text.begin(), text.end(), '{') > std::count(text.begin(), text.end(), '}');
}

std::string helpAtEnd(std::string_view text) {
    return leavesBraceOpen(text) ? "the file ends too early: close every '{' with a '}'"
                                 : "the file ends too early";
}

std::string helpBeyondAscii(std::string_view text) {
    if (text.substr(0, 2) == "\xE2\x80" && text.substr(2, 1) >= "\x98" && text.substr(2, 1) <= "\x9F")
        return "use plain double quotes, not typographic ones";
    if (utf8At(text, 0).length == 0) return "save the file as UTF-8";
    return "replace the character by a plain one, such as '-' or a blank, or leave it out";
}

// `text` follows a comma after a digit.
std::string helpWithComma(std::string_view text) {
    const auto isGroup = [text](size_t at) {
        const std::string_view group = text.substr(std::min(at, text.size()), 3);
        return group.size() == 3 && std::all_of(group.begin(), group.end(), isDigit) &&
               !(text.size() > at + 3 && isDigit(text[at + 3]));
    };
    if (!isGroup(0)) return "write a decimal point, not a decimal comma";
    if (text.substr(3, 1) == "." || (text.substr(3, 1) == "," && isGroup(4)))
        return "leave the comma out: nothing separates thousands";
    return "write a decimal point for a decimal comma, and nothing between thousands";
}

// What there is of a number after a ':', ',' or '[' up to `last`.
std::string_view numberUpTo(std::string_view text, size_t last) {
    const size_t before = text.find_last_not_of("0123456789+-.eE", last);
    const size_t mark = text.find_last_not_of(" \t", before);
    if (before == std::string_view::npos || mark == std::string_view::npos || !isAnyOf(text[mark], ":,["))
        return {};
    return text.substr(before + 1, last - before);
}

// Empty when it helps with no number. `number` is what there is of one before the place, on the same line.
std::string helpWithNumber(std::string_view text, size_t offset, std::string_view number) {
    const char here = text[offset];
    if (here == '+' || here == '.') return kNumbers;
    if (number.empty()) return {};
    if (isAnyOf(number.back(), "+-.eE")) return kNumbers;
    if (isDigit(here) && isDigit(text[offset - 1])) return kNumbers;
    if (isLetter(here) || isDigit(here) || isAnyOf(here, "_%'"))
        return "write the number with digits and a decimal point only: no unit, nothing between the digits";
    return {};
}

// The word that the place is in.
std::string wordAt(std::string_view text, size_t offset) {
    size_t begin = offset;
    size_t end = offset;
    while (begin > 0 && isLetter(text[begin - 1])) --begin;
    while (end < text.size() && isLetter(text[end])) ++end;
    std::string word(text.substr(begin, end - begin));
    std::transform(word.begin(), word.end(), word.begin(),
                   [](char c) { return static_cast<char>(c | 0x20); });
    return word;
}

}  // namespace

std::string syntaxHelp(std::string_view text, size_t offset) {
    const size_t last = text.find_last_not_of(" \t\r\n", offset == 0 ? 0 : offset - 1);
    const bool isFirst = offset == 0 || last == std::string_view::npos;
    const char before = isFirst ? '\0' : text[last];
    if (offset >= text.size()) return helpAtEnd(text);
    const char here = text[offset];

    if (here == '\0') return "save the file as UTF-8: another encoding puts NUL bytes between the characters";
    if (text.substr(0, 3) == "\xEF\xBB\xBF" && offset == 0)
        return "save the file as UTF-8 without a byte order mark";
    if (static_cast<unsigned char>(here) >= 0x80) return helpBeyondAscii(text.substr(offset));
    if (std::iscntrl(static_cast<unsigned char>(here)) != 0 && !isAnyOf(here, "\r\n"))
        return "replace the tab or control character by a blank, or remove it";
    if (before == ':' && isAnyOf(here, ",}]")) return "write a value after the ':'";
    if (before == ',' && last > 0 && isDigit(text[last - 1]) && isDigit(here))
        return helpWithComma(text.substr(offset));
    if (before == ',' && here == ',') return "remove one of the two commas";
    if (here == '/' || here == '#') return "JSON has no comments: remove it";
    const std::string word = isLetter(here) ? wordAt(text, offset) : std::string();
    if (word == "nan" || word == "inf" || word == "infinity")
        return "write a number: JSON knows no NaN and no infinity";
    const bool sameLine = !isFirst && text.substr(last, offset - last).find('\n') == std::string_view::npos;
    std::string number = helpWithNumber(text, offset, sameLine ? numberUpTo(text, last) : std::string_view());
    if (!number.empty()) return number;
    if (isAnyOf(here, "()")) return "write the number without '(' and ')'";
    if (isAnyOf(here, "}]") && before == ',')
        return "remove the comma at the end of " + ofLine(text, last) + ", or add what should follow it";
    if (here == '"' && endsValue(before)) return "put a comma at the end of " + ofLine(text, last);
    if (here == '\'') return "use double quotes";
    if (here == '\\') return "write two backslashes for one, or '/' in a path";
    if (isAnyOf(here, "\r\n")) return "close the string with a quote on the same line";
    if (here == ';') return "write a comma instead";
    if (here == '=') return "write a ':' between key and value";
    if (here == ':' && before == '"')
        return "names with values stand between '{' and '}': open them with a '{'";
    if (here == ']' && leavesBraceOpen(text.substr(0, offset))) return "close with a '}' what a '{' opens";
    if (before == ':' || before == ',' || before == '{') return kNames;
    if (before == '"') return "put a ':' between key and value, a comma after a value";
    if (before == '}') return "remove what comes after the last '}'";
    return "put a comma between two values";
}
