#include "model/row_check.h"

#include <parse/row_scan.h>

#include <cstring>

#include "model/rows.h"

namespace model {

namespace {

constexpr float kUntouched = -12345.0F;

// The bits, as zeros have signs and a NaN equals nothing.
template <typename Number>
void compare(const char* what, const Number& expected, const Number& observed, std::string& out) {
    static_assert(sizeof(Number) <= sizeof(uint32_t));
    uint32_t bits[2] = {};
    std::memcpy(&bits[0], &expected, sizeof expected);
    std::memcpy(&bits[1], &observed, sizeof observed);
    if (bits[0] == bits[1]) return;
    out += std::string(what) + ": expected " + std::to_string(expected) + ", observed " +
           std::to_string(observed) + "\n";
}

void checkFloats(const std::string& text, size_t count, std::string& out) {
    float expected[10];
    float observed[10];
    for (size_t i = 0; i < count; ++i) expected[i] = observed[i] = kUntouched;
    scanFloats(text, expected, count);
    EboScanner scanner(text.c_str());
    for (size_t i = 0; i < count && scanner.real(&observed[i]); ++i) {
    }
    const std::string what = "a float of " + std::to_string(count);
    for (size_t i = 0; i < count; ++i) compare(what.c_str(), expected[i], observed[i], out);
}

void checkIntegers(const std::string& text, std::string& out) {
    int32_t expected = 7;
    int32_t observed = 7;
    compare("an integer", scanInteger(text, expected), EboScanner(text.c_str()).integer(&observed), out);
    compare("its value", expected, observed, out);
}

void checkBands(const std::string& text, std::string& out) {
    std::array<int32_t, 8> expected = {9, 8, 7, 6, 5, 4, 3, 2};
    std::array<int32_t, 8> observed = expected;
    scanBands(text, expected);
    EboScanner scanner(text.c_str());
    eboScanIntList(scanner, observed.data(), observed.size());
    for (size_t i = 0; i < observed.size(); ++i) compare("a band", expected[i], observed[i], out);
}

void checkMap(const std::string& text, std::string& out) {
    const ChannelMap expected = scanChannelMap(text);
    ChannelMap observed;
    EboScanner scanner(text.c_str());
    if (scanner.integer(&observed.count)) {
        scanner.skipBlanks();
        if (scanner.literal("chn;map:")) {
            eboScanIntList(scanner, observed.channels.data(), observed.channels.size());
        }
    }
    compare("a count of channels", expected.count, observed.count, out);
    for (size_t i = 0; i < 16; ++i) compare("a channel", expected.channels[i], observed.channels[i], out);
}

}  // namespace

std::string rowDifferences(const std::string& text) {
    std::string out;
    checkIntegers(text, out);
    for (const size_t count : {size_t{3}, size_t{4}, size_t{10}}) checkFloats(text, count, out);
    checkBands(text, out);
    checkMap(text, out);
    return out.empty() ? out : "\"" + text + "\"\n" + out;
}

}  // namespace model
