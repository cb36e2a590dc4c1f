#include "text/words.h"

#include <algorithm>
#include <cstdio>

#include "text/odd_characters.h"
#include "text/utf8.h"

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

// A character between the quotes of a JSON string.
std::string inString(char32_t code, std::string_view character) {
    switch (code) {
        case '"':
        case '\\':
            return '\\' + std::string(character);
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '\t':
            return "\\t";
        default:
            break;
    }
    const std::optional<OddCharacter> odd = oddCharacter(code);
    if (!steersTerminal(code) && !(odd && odd->isInvisible())) return std::string(character);
    char escape[8];
    std::snprintf(escape, sizeof(escape), "\\u%04X", static_cast<unsigned>(code & 0xFFFF));
    return escape;
}

}  // namespace

std::string printable(std::string_view text) {
    std::string result;
    for (size_t at = 0; at < text.size();) {
        const Utf8Character character = utf8At(text, at);
        const size_t length = std::max<size_t>(character.length, 1);
        const bool shown = character.length != 0 && !steersTerminal(character.code);
        result += shown ? std::string(text.substr(at, length)) : "?";
        at += length;
    }
    return result;
}

std::string inQuotes(std::string_view text) {
    std::string result = "\"";
    for (size_t at = 0; at < text.size();) {
        const Utf8Character character = utf8At(text, at);
        const size_t length = std::max<size_t>(character.length, 1);
        result += character.length != 0 ? inString(character.code, text.substr(at, length)) : "?";
        at += length;
    }
    return result + '"';
}

std::string hexText(int32_t bits) {
    char text[16];
    std::snprintf(text, sizeof(text), "0x%x", static_cast<unsigned int>(bits));
    return text;
}

bool isZeroAsWritten(std::string_view number) {
    return number.substr(0, number.find_first_of("eE")).find_first_of("123456789") == std::string_view::npos;
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
