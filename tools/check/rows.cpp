#include "check/rows.h"

#include <parse/row_scan.h>
#include <parse/section_reader.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <set>
#include <string_view>

#include "text/words.h"

namespace {

struct Number {
    std::string_view written;
    float real = 0.0F;
    int32_t whole = 0;
};

bool hasCommas(const EboKeyRow& row) {
    return row.kind == EboKeyKind::BandList || row.kind == EboKeyKind::ChannelMap;
}

// Up to `row.count` numbers, as the section readers scan them.
std::vector<Number> scanNumbers(const EboKeyRow& row, EboScanner& scanner) {
    std::vector<Number> numbers;
    while (numbers.size() < row.count) {
        Number number;
        scanner.skipBlanks();
        const char* first = scanner.at();
        const bool found =
            row.kind == EboKeyKind::FloatRow ? scanner.real(&number.real) : scanner.integer(&number.whole);
        if (!found) break;
        number.written = {first, static_cast<size_t>(scanner.at() - first)};
        numbers.push_back(number);
        if (hasCommas(row) && !scanner.literal(",")) break;
    }
    return numbers;
}

std::string commaList(const std::vector<std::string>& words) {
    std::string list;
    for (const std::string& word : words) list += (list.empty() ? "" : ", ") + word;
    return list;
}

// Stores the text and says what stands in the record then.
std::string storedNumbers(const EboSection& section, const EboKeyRow& row, const char* text, void* record) {
    eboStoreText(section, row, text, record);
    const char* field = static_cast<const char*>(record) + row.offset;
    // The numbers of a list lie one to a band, those of a row side by side.
    const size_t stride = row.kind == EboKeyKind::BandList ? sizeof(EboNlpBand) / sizeof(int16_t) : 1;
    std::vector<std::string> words;
    for (size_t i = 0; i < row.count; ++i) {
        if (row.kind == EboKeyKind::FloatRow) {
            words.push_back(numberText(reinterpret_cast<const float*>(field)[i]));
        } else {
            words.push_back(std::to_string(reinterpret_cast<const int16_t*>(field)[i * stride]));
        }
    }
    return commaList(words);
}

std::string storedChannels(const EboSection& section, const EboKeyRow& row, const char* text, size_t count) {
    EboAecParam aec = {};
    eboStoreText(section, row, text, &aec);
    std::vector<std::string> words;
    for (size_t i = 0; i < count; ++i) words.push_back(std::to_string(aec.Array_list[i]));
    std::free(aec.Array_list);
    return commaList(words);
}

// As in "1,0  0,85  0,7". `rest` follows the number `written`.
bool isDecimalComma(const EboKeyRow& row, std::string_view written, std::string_view rest) {
    if (row.kind != EboKeyKind::FloatRow || written.empty() || written.find('.') != std::string_view::npos)
        return false;
    const size_t digits = rest.find_first_not_of("0123456789", 1);
    return rest.size() > 1 && rest[0] == ',' && digits != 1 &&
           (digits == std::string_view::npos || rest[digits] == ' ');
}

// Empty when a number ends where `rest` begins.
std::string helpWithFraction(const EboKeyRow& row, std::string_view written, std::string_view rest) {
    if (isDecimalComma(row, written, rest)) return "write a decimal point, not a decimal comma";
    if (row.kind != EboKeyKind::FloatRow && !written.empty() && rest[0] == '.')
        return "write whole numbers only";
    return {};
}

std::string howToSeparate(const EboKeyRow& row, char rest, size_t wanted) {
    if (rest == '%' || std::isalpha(static_cast<unsigned char>(rest)) != 0)
        return "write " + countOf(wanted, "number") + " without words and units";
    return hasCommas(row) ? "put a comma directly behind each number, with no blank before it"
                          : "separate the numbers by blanks only";
}

// Whether as many numbers are there as are wanted, and nothing behind them.
void judgeCount(const EboKeyRow& row, size_t found, std::string_view lastWritten, const char* rest,
                size_t wanted, const std::string& stored, std::vector<RowFinding>& findings) {
    const std::string key = quoted(row.key);
    const std::string device = "goes on, and stores " + stored;
    const std::string fraction = *rest != '\0' ? helpWithFraction(row, lastWritten, rest) : std::string();
    const bool isMap = row.kind == EboKeyKind::ChannelMap;
    if (found >= wanted) {
        if (found == wanted && *rest == '\0') return;
        const std::string leaveOut = "leave out what stands behind " + countOf(wanted, "number") +
                                     (isMap && found > wanted ? ", or correct the count" : "");
        findings.push_back(
            {&kTooManyNumbers,
             key + " goes on behind " + countOf(wanted, "number") + ", which is all that is read", device,
             fraction.empty() ? leaveOut : fraction});
    } else if (*rest == '\0') {
        findings.push_back(
            {&kTooFewNumbers,
             key + " has " + countOf(found, "number") + " where " + std::to_string(wanted) + " are read",
             device, "write " + countOf(wanted, "number") + (isMap ? ", or correct the count" : "")});
    } else {
        const std::string where =
            found == 0 ? " at its start"
                       : " behind " + quoted(lastWritten) + ", number " + std::to_string(found);
        findings.push_back({&kBadSeparator, key + " can be read only up to " + quoted({rest, 1}) + where,
                            device, fraction.empty() ? howToSeparate(row, *rest, wanted) : fraction});
    }
}

bool isZeroAsWritten(std::string_view written) {
    const size_t exponent =
        written.find_first_of(written.find_first_of("xX") == std::string_view::npos ? "eE" : "pP");
    return written.substr(0, exponent).find_first_of("123456789abcdefABCDEF") == std::string_view::npos;
}

void judgeNumber(const EboKeyRow& row, const Number& number, std::vector<RowFinding>& findings) {
    const std::string key = quoted(row.key);
    const std::string written(number.written);
    if (row.kind == EboKeyKind::FloatRow) {
        if (std::isfinite(number.real) && (number.real != 0.0F || isZeroAsWritten(number.written))) return;
        findings.push_back({&kFloatRange, key + " holds " + written + ", which no float holds",
                            "stores " + numberText(number.real), "write a number that a float can hold"});
        return;
    }
    const auto stored = static_cast<int16_t>(number.whole);
    if (stored == number.whole) return;
    findings.push_back({&kNarrowed, key + " holds " + written + ", which does not fit 16 bits",
                        "stores " + std::to_string(stored) + " for " + written,
                        "write an integer from -32768 to 32767"});
}

void judgeOrder(const EboKeyRow& row, const std::vector<Number>& numbers, std::vector<RowFinding>& findings) {
    if (row.kind != EboKeyKind::IntRow || numbers.size() < 2 || numbers[0].whole <= numbers[1].whole) return;
    findings.push_back({&kUpsideDown,
                        quoted(row.key) + " starts at " + std::string(numbers[0].written) +
                            ", above its end at " + std::string(numbers[1].written),
                        "stores both as they are", "exchange the two numbers, or mend one of them"});
}

// `stored` is what a device stores of them.
void judgeChannels(const EboKeyRow& row, const std::vector<Number>& channels, const std::string& stored,
                   std::vector<RowFinding>& findings) {
    std::set<int32_t> seen;
    std::string negative;
    std::string twice;
    for (const Number& channel : channels) {
        if (channel.whole < 0) negative = channel.written;
        if (!seen.insert(channel.whole).second) twice = channel.written;
    }
    const std::string names = quoted(row.key) + " names channel ";
    const std::string device = "goes on, and stores " + stored;
    if (!negative.empty()) {
        findings.push_back({&kMapChannels, names + negative + ", and no channel is negative", device,
                            "write the channel's number, counted from 0"});
    }
    if (!twice.empty())
        findings.push_back({&kMapChannels, names + twice + " twice", device, "write each channel once"});
}

std::vector<RowFinding> checkMap(const EboSection& section, const EboKeyRow& row, const char* text) {
    constexpr char kExample[] = "write for example \"4 chn;map:1,0,3,2\", or leave the key out";
    const std::string key = quoted(row.key);
    EboScanner scanner(text);
    int32_t channels = 0;
    const bool counted = scanner.integer(&channels);
    if (channels > row.count) {
        return {{&kMapAborts,
                 key + " names " + std::to_string(channels) + " channels; " + std::to_string(row.count) +
                     " are the most",
                 "the process aborts: Assertion chns <= 16 failed", "write at most 16 channels"}};
    }
    scanner.skipBlanks();
    const bool marked = scanner.literal("chn;map:");
    const char* list = scanner.at();
    std::vector<Number> numbers = marked ? scanNumbers(row, scanner) : std::vector<Number>();
    scanner.skipBlanks();
    if (channels <= 0) {
        if (counted && channels == 0 && numbers.empty()) return {};  // that is how to ask for none
        return {{counted ? &kMapChannels : &kMapIgnored,
                 counted ? key + " names " + std::to_string(channels) + " channels"
                         : key + " does not start with the number of channels",
                 "goes on without a channel map", kExample}};
    }

    const auto wanted = static_cast<size_t>(channels);
    const std::string stored = storedChannels(section, row, text, wanted);
    if (!marked) {
        return {{&kBadSeparator, key + " lacks \"chn;map:\" behind the number of channels",
                 "goes on, and stores " + stored, kExample}};
    }
    std::vector<RowFinding> findings;
    const std::string_view last = numbers.empty() ? list : numbers.back().written;
    judgeCount(row, numbers.size(), last, scanner.at(), wanted, stored, findings);
    if (numbers.size() > wanted) numbers.resize(wanted);
    for (const Number& number : numbers) judgeNumber(row, number, findings);
    judgeChannels(row, numbers, stored, findings);
    return findings;
}

}  // namespace

std::vector<RowFinding> checkRow(const EboSection& section, const EboKeyRow& row, const char* text,
                                 void* record) {
    if (row.kind == EboKeyKind::ChannelMap) return checkMap(section, row, text);
    EboScanner scanner(text);
    const std::vector<Number> numbers = scanNumbers(row, scanner);
    scanner.skipBlanks();
    const std::string stored = storedNumbers(section, row, text, record);
    std::vector<RowFinding> findings;
    const std::string_view last = numbers.empty() ? std::string_view() : numbers.back().written;
    judgeCount(row, numbers.size(), last, scanner.at(), row.count, stored, findings);
    for (const Number& number : numbers) judgeNumber(row, number, findings);
    judgeOrder(row, numbers, findings);
    return findings;
}
