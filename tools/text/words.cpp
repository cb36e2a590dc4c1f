#include "text/words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

// Letters that must be changed, added, dropped or exchanged with their neighbour; case does not count.
size_t distance(std::string_view a, std::string_view b) {
    std::vector<size_t> beforeLast(b.size() + 1);
    std::vector<size_t> last(b.size() + 1);
    std::vector<size_t> row(b.size() + 1);
    for (size_t j = 0; j <= b.size(); ++j) last[j] = j;
    for (size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            const bool same = lower(a[i - 1]) == lower(b[j - 1]);
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (same ? 0 : 1)});
            if (i > 1 && j > 1 && lower(a[i - 1]) == lower(b[j - 2]) && lower(a[i - 2]) == lower(b[j - 1])) {
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
            }
        }
        beforeLast.swap(last);
        last.swap(row);
    }
    return last[b.size()];
}

}  // namespace

std::string printable(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = '?';
    }
    return result;
}

std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char c : text) {
        switch (c) {
            case '"':
            case '\\':
                result += '\\';
                result += c;
                break;
            case '\n':
                result += "\\n";
                break;
            case '\r':
                result += "\\r";
                break;
            case '\t':
                result += "\\t";
                break;
            default:
                if (static_cast<unsigned char>(c) >= 0x20 && c != 0x7F) {
                    result += c;
                } else {
                    char escape[8];
                    std::snprintf(escape, sizeof(escape), "\\u%04X", static_cast<unsigned>(c));
                    result += escape;
                }
        }
    }
    return result + '"';
}

std::string numberText(float value) {
    if (std::isnan(value)) return "not a number";
    if (std::isinf(value)) return value < 0 ? "minus infinity" : "infinity";
    std::array<char, 32> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

std::string hexText(int32_t bits) {
    char text[16];
    std::snprintf(text, sizeof(text), "0x%x", static_cast<unsigned int>(bits));
    return text;
}

std::string countOf(size_t count, const char* noun) {
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

std::string nearestName(std::string_view name, const std::vector<std::string>& candidates) {
    std::string nearest;
    size_t best = 0;
    for (const std::string& candidate : candidates) {
        // Half of a short name may not be guessed.
        const size_t limit = std::min({candidate.size(), name.size(), size_t{12}}) / 4 + 1;
        const size_t longer = std::max(candidate.size(), name.size());
        if (longer - std::min(candidate.size(), name.size()) > limit) continue;
        const size_t steps = distance(name, candidate);
        if (steps > limit || steps * 2 >= longer) continue;
        if (nearest.empty() || steps < best) {
            nearest = candidate;
            best = steps;
        }
    }
    return nearest;
}
