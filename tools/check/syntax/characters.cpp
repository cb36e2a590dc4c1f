#include <algorithm>
#include <string>

#include "check/syntax/mends.h"
#include "check/syntax/scan.h"
#include "text/odd_characters.h"
#include "text/utf8.h"

namespace {

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20;
}

// The text in UTF-8 if it is UTF-16 of characters up to U+00FF, as an editor saves it; empty if it is not.
std::string utf8OfUtf16(std::string_view text) {
    const size_t odd = !text.empty() && text[0] == '\0' ? 1 : 0;  // which byte of a pair is the lower
    std::string result;
    for (size_t at = 0; at + 1 < text.size(); at += 2) {
        const char low = text[at + odd];
        if (text[at + 1 - odd] != '\0' || static_cast<unsigned char>(low) >= 0x80) return {};
        result += low;
    }
    return result;
}

SyntaxMend mendNul(const SyntaxStop& stop) {
    const auto zeros = static_cast<size_t>(std::count(stop.text.begin(), stop.text.end(), '\0'));
    if (zeros < stop.text.size() / 4) return {"remove the NUL byte", {{stop.offset, 1, ""}}};
    SyntaxMend mend = {"save the file as UTF-8: another encoding puts NUL bytes between the characters", {}};
    const std::string utf8 = utf8OfUtf16(stop.text);
    if (!utf8.empty()) mend.edits = {{0, stop.text.size(), utf8}};
    return mend;
}

// All bytes of another encoding at once, taken as Latin-1.
SyntaxMend mendEncoding(const SyntaxStop& stop) {
    SyntaxMend mend = {"save the file as UTF-8", {}, true};
    mend.text = "a byte that is not UTF-8";
    mend.offset = stop.offset;
    for (size_t at = stop.offset; at < stop.text.size();) {
        const size_t length = utf8At(stop.text, at).length;
        if (length == 0) {
            const auto byte = static_cast<unsigned char>(stop.text[at]);
            mend.edits.push_back(
                {at, 1, {static_cast<char>(0xC0 | byte >> 6), static_cast<char>(0x80 | (byte & 0x3F))}});
        }
        at += std::max<size_t>(length, 1);
    }
    return mend;
}

// All characters outside of strings that stand for this plain one.
std::vector<TextEdit> plainEverywhere(std::string_view text, size_t at, char plain) {
    std::vector<TextEdit> edits;
    while (at < text.size()) {
        if (text[at] == '"') {
            at = afterString(text, at);
            continue;
        }
        const Utf8Character character = utf8At(text, at);
        const std::optional<OddCharacter> odd = oddCharacter(character.code);
        const size_t length = std::max<size_t>(character.length, 1);
        if (odd && odd->plain == plain) {
            edits.push_back({at, length, plain != OddCharacter::kNothing ? std::string(1, plain) : ""});
        }
        at += length;
    }
    return edits;
}

SyntaxMend mendBeyondAscii(const SyntaxStop& stop) {
    const Utf8Character character = utf8At(stop.text, stop.offset);
    if (character.length == 0) return mendEncoding(stop);
    const std::optional<OddCharacter> odd = oddCharacter(character.code);
    SyntaxMend mend;
    mend.text = nameOfCharacter(character.code) + " outside of a string";
    mend.offset = stop.offset;
    mend.length = character.length;
    mend.isGuess = !odd;
    if (!odd) {
        const size_t end =
            std::min(stop.text.find_first_of(" \t\r\n,:=}]{[\"", stop.offset), stop.text.size());
        mend.help = "put the text in double quotes, or leave it out";
        mend.edits = {{stop.offset, 0, "\""}, {end, 0, "\""}};
        return mend;
    }
    mend.edits = plainEverywhere(stop.text, stop.offset, odd->plain);
    mend.help = howToReplace(*odd);
    return mend;
}

// All control characters of the string.
SyntaxMend mendControl(const SyntaxStop& stop) {
    SyntaxMend mend = {"replace the tab or control character by a blank, or remove it", {}};
    for (size_t at = stop.offset; at < stop.text.size(); ++at) {
        if (isAnyOf(stop.text[at], "\"\r\n") && at != stop.offset) break;
        if (isControl(stop.text[at])) mend.edits.push_back({at, 1, stop.text[at] == '\t' ? " " : ""});
    }
    return mend;
}

}  // namespace

std::optional<SyntaxMend> mendCharacter(const SyntaxStop& stop) {
    if (stop.offset >= stop.text.size()) return std::nullopt;
    if (stop.here == '\0') return mendNul(stop);
    if (stop.offset == 0 && stop.text.substr(0, 3) == "\xEF\xBB\xBF")
        return SyntaxMend{"save the file as UTF-8 without a byte order mark", {{0, 3, ""}}};
    if (static_cast<unsigned char>(stop.here) >= 0x80) return mendBeyondAscii(stop);
    if (isControl(stop.here) && !isAnyOf(stop.here, "\r\n")) return mendControl(stop);
    return std::nullopt;
}
