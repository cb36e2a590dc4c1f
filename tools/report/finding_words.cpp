#include "report/finding_words.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "text/utf8.h"

namespace {

// FNV-1a.
uint64_t hashOf(const std::string& text) {
    uint64_t hash = 0xcbf29ce484222325U;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    return hash;
}

// "also on line 44" or "lines 139 to 141", without the numbers.
std::string withoutLines(std::string text) {
    for (const std::string_view before : {"line ", "lines ", " to "}) {
        for (size_t at = text.find(before); at != std::string::npos; at = text.find(before, at + 1)) {
            const size_t number = at + before.size();
            text.erase(number, std::min(text.find_first_not_of("0123456789", number), text.size()) - number);
        }
    }
    return text;
}

}  // namespace

std::string messageOf(const CheckFinding& finding, const char* separator) {
    std::string text = finding.text + separator + "Device: " + finding.device;
    if (!finding.help.empty()) text += std::string(separator) + "Help: " + finding.help;
    return text;
}

size_t markedCharacters(const TextPlace& place) {
    if (place.quoteMark + place.length > place.quote.size()) return 0;
    return countCharacters(std::string_view(place.quote).substr(place.quoteMark, place.length));
}

std::string pathInFolder(const std::string& file) {
    namespace fs = std::filesystem;
    const fs::path path = fs::path(file).lexically_normal();
    std::error_code failure;
    const fs::path relative = path.lexically_relative(fs::current_path(failure));
    // Of what is relative already there is none.
    const bool inside = !relative.empty() && *relative.begin() != "..";
    return inside ? relative.string() : path.string();
}

std::string Fingerprints::of(const std::string& path, const CheckFinding& finding) {
    const std::string what = path + '\0' + finding.code->id + '\0' + withoutLines(finding.text);
    char digits[17];
    std::snprintf(digits, sizeof(digits), "%016llx",
                  static_cast<unsigned long long>(hashOf(what + '\0' + std::to_string(seen_[what]++))));
    return digits;
}
