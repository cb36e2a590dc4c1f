#include "check_syntax.h"

#include <algorithm>
#include <cctype>

namespace {

bool isAnyOf(char c, std::string_view set) {
    return set.find(c) != std::string_view::npos;
}

// What ends a value or a key.
bool endsValue(char c) {
    return isAnyOf(c, "\"}]") || std::isalnum(static_cast<unsigned char>(c)) != 0;
}

std::string ofLine(std::string_view text, size_t offset) {
    return "line " + std::to_string(1 + std::count(text.begin(),
                                                   text.begin() + static_cast<std::ptrdiff_t>(offset), '\n'));
}

std::string helpAtEnd(std::string_view text) {
    const auto open = std::count(text.begin(), text.end(), '{') - std::count(text.begin(), text.end(), '}');
    return open > 0 ? "the file ends too early: close every '{' with a '}'" : "the file ends too early";
}

}  // namespace

std::string syntaxHelp(std::string_view text, size_t offset) {
    const size_t last = text.find_last_not_of(" \t\r\n", offset == 0 ? 0 : offset - 1);
    const bool isFirst = offset == 0 || last == std::string_view::npos;
    const char before = isFirst ? '\0' : text[last];
    if (offset >= text.size()) return helpAtEnd(text);
    const char here = text[offset];

    const auto digit = [&text](size_t at) { return std::isdigit(static_cast<unsigned char>(text[at])) != 0; };

    if (here == '\0') return "save the file as UTF-8: another encoding puts NUL bytes between the characters";
    if (here == '\xEF') return "save the file as UTF-8 without a byte order mark";
    if (text.substr(offset, 2) == "\xE2\x80") return "use plain double quotes, not typographic ones";
    if (static_cast<unsigned char>(here) >= 0x80) return "save the file as UTF-8";
    if (before == ':' && isAnyOf(here, ",}]")) return "write a value behind the ':'";
    if (before == ',' && last > 0 && digit(last - 1) && digit(offset)) {
        return "write a decimal point, not a decimal comma";
    }
    if (here == '/' || here == '#') return "JSON has no comments: remove it";
    if (isAnyOf(here, "}]") && before == ',')
        return "remove the comma at the end of " + ofLine(text, last) + ", or add what should follow it";
    if (here == '"' && endsValue(before)) return "put a comma at the end of " + ofLine(text, last);
    if (here == '\'') return "use double quotes";
    if (here == '\\') return "write two backslashes for one, or '/' in a path";
    if (isAnyOf(here, "\r\n")) return "close the string with a quote on the same line";
    if (here == ';') return "write a comma instead";
    if (here == '=') return "write a ':' between key and value";
    if (here == '+' || here == '.' || (digit(offset) && before == '0')) {
        return "write numbers as 5, -5, 0.5 or 1e-3: no '+', no leading zeros, a digit before the point";
    }
    if (before == ':' || before == ',' || before == '{')
        return "write names and texts in double quotes; true, false and null in lower case";
    if (before == '"') return "put a ':' between key and value, a comma behind a value";
    if (before == '}') return "remove what stands behind the last '}'";
    return "put a comma between two values";
}
