#include "report/schema_values.h"

#include <cstring>

#include "model/values.h"

namespace {

constexpr char kEnable[] = "[Ee][Nn][Aa][Bb][Ll][Ee]";
constexpr char kDisable[] = "[Dd][Ii][Ss][Aa][Bb][Ll][Ee]";
constexpr char kInteger[] = "[+-]?[0-9]+";
constexpr char kNumber[] =
    "[+-]?(([0-9]+[.]?[0-9]*|[.][0-9]+)([Ee][+-]?[0-9]+)?|[Ii][Nn][Ff]([Ii][Nn][Ii][Tt][Yy])?|[Nn][Aa][Nn])";
constexpr char kBlank[] = "[ \\t\\r\\n]";

// `count` times `number` with `separator` between them.
std::string repeated(const std::string& number, const std::string& separator, int count) {
    return number + "(" + separator + number + "){" + std::to_string(count - 1) + "}";
}

// Blanks may stand before a number, and before the end, but not before a comma.
std::string rowPattern(const EboKeyRow& row) {
    const std::string blanks = kBlank + std::string("*");
    const bool list = row.kind == EboKeyKind::BandList;
    const std::string number = row.kind == EboKeyKind::FloatRow ? kNumber : kInteger;
    const std::string separator = list ? "," + blanks : kBlank + std::string("+");
    return "^" + blanks + repeated(number, separator, row.count) + blanks + "$";
}

// One form for each count, so that a map with too few or too many numbers is refused.
std::string mapPattern(const EboKeyRow& row) {
    const std::string blanks = kBlank + std::string("*");
    std::string forms = "0" + blanks + "chn;map:.*";
    for (int count = 1; count <= row.count; ++count) {
        forms.append("|").append(std::to_string(count)).append(blanks).append("chn;map:").append(blanks);
        forms.append(repeated(kInteger, "," + blanks, count));
    }
    return "^" + blanks + "(" + forms + ")" + blanks + "$";
}

bool isMode(const SectionPlace& place, const EboKeyRow& row) {
    return place.section == &kEboWakeupSection && std::strcmp(row.key, "mode") == 0;
}

}  // namespace

std::string statusPattern() {
    return std::string("^(") + kEnable + "|" + kDisable + ")$";
}
std::string enablePattern() {
    return std::string("^") + kEnable + "$";
}

std::string textPattern(const EboKeyRow& row) {
    switch (row.kind) {
        case EboKeyKind::FloatRow:
        case EboKeyKind::IntRow:
        case EboKeyKind::BandList:
            return rowPattern(row);
        case EboKeyKind::ChannelMap:
            return mapPattern(row);
        default:
            return "";
    }
}

std::string textForm(const EboKeyRow& row) {
    if (row.kind == EboKeyKind::ChannelMap) {
        return "Write the number of channels, at most " + std::to_string(row.count) +
               ", then \" chn;map:\" and that many integers with commas between them, for example "
               "\"2 chn;map:1,0\".";
    }
    const Numbers numbers = numbersOf(row);
    const std::string zeros(numbers.offset + numbers.count * numbers.stride, '\0');
    const bool list = row.kind == EboKeyKind::BandList;
    return "Write " + std::to_string(row.count) +
           (row.kind == EboKeyKind::FloatRow ? " numbers" : " integers") + " with " +
           (list ? "a comma after each but the last" : "blanks between them and no commas") +
           ", for example \"" + valueText(Tuning(), zeros.data(), row) + "\".";
}

std::vector<Choice> choicesOf(const SectionPlace& place, const EboKeyRow& row) {
    if (isMode(place, row)) {
        return {{"1", "oneshot only"}, {"2", "wakeup + command"}, {"3", "(oneshot) and (wakeup + command)"}};
    }
    switch (row.kind) {
        case EboKeyKind::Status:
            return {{"\"enable\"", "Enables the module"}, {"\"disable\"", "Disables it"}};
        case EboKeyKind::Flag:
            return {{"0", "No"}, {"1", "Yes, as any other number but 0"}};
        case EboKeyKind::MaskBit:
            return {{"0", "Clears the bit, as any other number but 1"}, {"1", "Sets the bit"}};
        default:
            return {};
    }
}

bool takesChoicesOnly(const SectionPlace& place, const EboKeyRow& row) {
    return isMode(place, row);
}
