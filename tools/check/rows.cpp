#include "check/rows.h"

#include <parse/row_scan.h>
#include <parse/section_reader.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/kinds.h"
#include "model/tuning.h"
#include "model/values.h"
#include "text/odd_characters.h"
#include "text/utf8.h"
#include "text/words.h"

namespace {

struct Number {
    std::string_view written;
    float real = 0.0F;
    int32_t whole = 0;
};

bool hasCommas(const EboKeyRow& row) {
    return *kindOf(row).separator == ',';
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

// Stores the text and says what the record holds then.
std::string storedNumbers(const RowSubject& subject) {
    const EboKeyRow& row = subject.row;
    eboStoreText(subject.section, row, subject.text, subject.record);
    const Numbers numbers = numbersOf(row);
    std::vector<std::string> words;
    for (size_t i = 0; i < row.count; ++i) words.push_back(numberText(subject.record, numbers, i));
    return commaList(words);
}

// What a device stores of a map with these numbers, of which the file may have fewer.
std::string storedChannels(const std::vector<Number>& numbers, size_t count) {
    std::vector<std::string> words;
    for (size_t i = 0; i < count; ++i) {
        words.push_back(std::to_string(i < numbers.size() ? static_cast<int16_t>(numbers[i].whole) : 0));
    }
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

// A text as far as it was scanned.
struct Scan {
    std::vector<Number> numbers;
    const char* rest;    // after the last number and blanks
    size_t wanted;       // numbers that are read
    std::string stored;  // what a device stores

    std::string_view last() const { return numbers.empty() ? std::string_view() : numbers.back().written; }
};

// The character that comes next, whole and with its name where it needs one.
std::string nextIn(const Scan& scan) {
    const std::string_view rest = scan.rest;
    const Utf8Character character = utf8At(rest, 0);
    if (oddCharacter(character.code)) return nameOfCharacter(character.code);
    return inQuotes(rest.substr(0, std::max<size_t>(character.length, 1)));
}

std::string howToSeparate(const RowSubject& subject, const Scan& scan) {
    const char next = *scan.rest;
    if (next == '%' || std::isalpha(static_cast<unsigned char>(next)) != 0)
        return "write " + countOf(scan.wanted, "number") + " without words and units";
    if (const std::optional<OddCharacter> odd = oddCharacter(utf8At(scan.rest, 0).code))
        return howToReplace(*odd);
    return hasCommas(subject.row) ? "put a comma right after each number, without a blank before it"
                                  : "separate the numbers by blanks only";
}

std::string howToCount(const RowSubject& subject, const Scan& scan) {
    const bool counts = subject.row.kind == EboKeyKind::ChannelMap && scan.numbers.size() != scan.wanted;
    return countOf(scan.wanted, "number") + (counts ? ", or correct the count" : "");
}

// Whether as many numbers are there as are wanted, and nothing after them.
void judgeCount(const RowSubject& subject, const Scan& scan) {
    const std::string key = inQuotes(subject.row.key);
    const std::string device = "goes on, and stores " + scan.stored;
    const size_t found = scan.numbers.size();
    const bool ends = *scan.rest == '\0';
    const std::string fraction = ends ? std::string() : helpWithFraction(subject.row, scan.last(), scan.rest);
    if (found == scan.wanted && ends) return;
    if (found >= scan.wanted) {
        const std::string read =
            std::to_string(scan.wanted) + (scan.wanted == 1 ? " number that is" : " numbers that are");
        subject.report.add(
            {&kTooManyNumbers, subject.place, key + " has more than the " + read + " read", device,
             fraction.empty() ? "leave out what comes after " + howToCount(subject, scan) : fraction});
    } else if (ends) {
        subject.report.add(
            {&kTooFewNumbers, subject.place,
             key + " has " + countOf(found, "number") + "; " + std::to_string(scan.wanted) + " are read",
             device, "write " + howToCount(subject, scan)});
    } else {
        const std::string upTo = found == 0 ? key + " holds no number: it starts with "
                                            : key + " is read only up to number " + std::to_string(found) +
                                                  ", " + inQuotes(scan.last()) + ": then comes ";
        subject.report.add({&kBadSeparator, subject.place, upTo + nextIn(scan), device,
                            fraction.empty() ? howToSeparate(subject, scan) : fraction});
    }
}

void judgeNumber(const RowSubject& subject, const Number& number) {
    const std::string holds = inQuotes(subject.row.key) + " holds " + std::string(number.written);
    if (subject.row.kind == EboKeyKind::FloatRow) {
        if (number.written.find_first_of("xXnN") != std::string_view::npos) {
            subject.report.add({&kOddNumber, subject.place,
                                holds + ", which is read as " + floatText(number.real),
                                "stores " + floatText(number.real), "write a decimal number"});
            return;
        }
        if (std::isfinite(number.real) && (number.real != 0.0F || isZeroAsWritten(number.written))) return;
        subject.report.add({&kFloatRange, subject.place, holds + ", which no float holds",
                            "stores " + floatText(number.real), "write a number that a float can hold"});
        return;
    }
    const auto stored = static_cast<int16_t>(number.whole);
    if (stored == number.whole) return;
    subject.report.add({&kNarrowed, subject.place, holds + ", which does not fit 16 bits",
                        "stores " + std::to_string(stored) + " for " + std::string(number.written),
                        "write an integer from -32768 to 32767"});
}

void judgeOrder(const RowSubject& subject, const std::vector<Number>& numbers) {
    if (subject.row.kind != EboKeyKind::IntRow || numbers.size() < 2 || numbers[0].whole <= numbers[1].whole)
        return;
    subject.report.add({&kUpsideDown, subject.place,
                        inQuotes(subject.row.key) + " starts at " + std::string(numbers[0].written) +
                            ", above its end at " + std::string(numbers[1].written),
                        "stores both as they are", "exchange the two numbers, or correct one of them"});
}

void judgeChannels(const RowSubject& subject, const Scan& scan) {
    std::set<int32_t> seen;
    std::string negative;
    std::string twice;
    for (const Number& channel : scan.numbers) {
        if (channel.whole < 0) negative = channel.written;
        if (!seen.insert(channel.whole).second) twice = channel.written;
    }
    const std::string names = inQuotes(subject.row.key) + " names channel ";
    const std::string device = "goes on, and stores " + scan.stored;
    if (!negative.empty()) {
        subject.report.add({&kMapChannels, subject.place, names + negative + ", and no channel is negative",
                            device, "write the channel's number, counted from 0"});
    }
    if (!twice.empty()) {
        subject.report.add(
            {&kMapChannels, subject.place, names + twice + " twice", device, "write each channel once"});
    }
}

// False when so many channels abort the process.
bool checkMap(const RowSubject& subject) {
    constexpr char kExample[] = "write for example \"4 chn;map:1,0,3,2\", or leave the key out";
    const std::string key = inQuotes(subject.row.key);
    const std::string most = std::to_string(subject.row.count);
    EboScanner scanner(subject.text);
    int32_t channels = 0;
    const bool counted = scanner.integer(&channels);
    if (channels > subject.row.count) {
        subject.report.add(
            {&kMapAborts, subject.place,
             key + " names " + std::to_string(channels) + " channels; " + most + " are the most",
             std::string("the process aborts: ") + kMapAssertion, "write at most " + most + " channels"});
        return false;
    }
    scanner.skipBlanks();
    const bool marked = scanner.literal("chn;map:");
    std::vector<Number> numbers = marked ? scanNumbers(subject.row, scanner) : std::vector<Number>();
    scanner.skipBlanks();
    if (channels <= 0) {
        if (counted && channels == 0 && numbers.empty()) return true;  // that is how to ask for none
        subject.report.add({counted ? &kMapChannels : &kMapIgnored, subject.place,
                            counted ? key + " names " + std::to_string(channels) + " channels"
                                    : key + " does not start with the number of channels",
                            "goes on without a channel map", kExample});
        return true;
    }

    const auto wanted = static_cast<size_t>(channels);
    std::string stored = storedChannels(numbers, wanted);
    if (!marked) {
        subject.report.add({&kBadSeparator, subject.place,
                            key + " lacks \"chn;map:\" after the number of channels",
                            "goes on, and stores " + stored, kExample});
        return true;
    }
    Scan scan = {std::move(numbers), scanner.at(), wanted, std::move(stored)};
    judgeCount(subject, scan);
    scan.numbers.resize(std::min(scan.numbers.size(), wanted));
    for (const Number& number : scan.numbers) judgeNumber(subject, number);
    judgeChannels(subject, scan);
    return true;
}

}  // namespace

bool checkRow(const RowSubject& subject) {
    if (subject.row.kind == EboKeyKind::ChannelMap) return checkMap(subject);
    EboScanner scanner(subject.text);
    std::vector<Number> numbers = scanNumbers(subject.row, scanner);
    scanner.skipBlanks();
    const Scan scan = {std::move(numbers), scanner.at(), subject.row.count, storedNumbers(subject)};
    judgeCount(subject, scan);
    for (const Number& number : scan.numbers) judgeNumber(subject, number);
    judgeOrder(subject, scan.numbers);
    return true;
}
