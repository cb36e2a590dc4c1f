#include "check/syntax/scan.h"

#include <algorithm>

size_t afterString(std::string_view text, size_t at) {
    for (++at; at < text.size(); ++at) {
        if (text[at] == '"') return at + 1;
        if (text[at] == '\n') return at;
        if (text[at] == '\\') ++at;
    }
    return text.size();
}

size_t nextToken(std::string_view text, size_t at) {
    return std::min(text.find_first_not_of(" \t\r\n", at), text.size());
}

size_t lineBegin(std::string_view text, size_t at) {
    const size_t before = at == 0 ? std::string_view::npos : text.rfind('\n', at - 1);
    return before == std::string_view::npos ? 0 : before + 1;
}

size_t lineEnd(std::string_view text, size_t at) {
    size_t end = std::min(text.find('\n', at), text.size());
    if (end > at && text[end - 1] == '\r') --end;
    return end;
}

size_t lineNumber(std::string_view text, size_t at) {
    return 1 + static_cast<size_t>(
                   std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
}

std::string openBrackets(std::string_view text) {
    std::string open;
    for (size_t at = nextToken(text, 0); at < text.size();) {
        if (text[at] == '"') {
            at = nextToken(text, afterString(text, at));
            continue;
        }
        if (isAnyOf(text[at], "{[")) open += text[at];
        if (isAnyOf(text[at], "}]") && !open.empty()) open.pop_back();
        at = nextToken(text, at + 1);
    }
    return open;
}

std::string closersOf(const std::string& brackets) {
    std::string closers;
    for (auto bracket = brackets.rbegin(); bracket != brackets.rend(); ++bracket) {
        closers += *bracket == '{' ? '}' : ']';
    }
    return closers;
}
