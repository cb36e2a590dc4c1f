#include "model/kinds.h"

#include <cstddef>
#include <iterator>

namespace {

// In the order of EboKeyKind.
// clang-format off
constexpr KindRow kKinds[] = {
    {EboKeyKind::Status, ValueType::Text, nullptr, "\"enable\" or \"disable\"", "\"enable\" or \"disable\""},
    {EboKeyKind::Int32, ValueType::Integer, nullptr, "integer", "an integer"},
    {EboKeyKind::Int16, ValueType::Integer, nullptr, "integer from -32768 to 32767", "an integer from -32768 to 32767"},
    {EboKeyKind::Flag, ValueType::Integer, nullptr, "integer, 0 or 1", "0 or 1"},
    {EboKeyKind::MaskBit, ValueType::Integer, nullptr, "integer", "an integer"},
    {EboKeyKind::Float, ValueType::Number, nullptr, "number", "a number"},
    {EboKeyKind::FloatRow, ValueType::Text, " ", "text of # numbers with blanks between them", "# numbers in quotes, separated by blanks"},
    {EboKeyKind::IntRow, ValueType::Text, " ", "text of # integers with blanks between them", "# integers in quotes, separated by blanks"},
    {EboKeyKind::Word, ValueType::Text, nullptr, "text", "a text in quotes"},
    {EboKeyKind::BandList, ValueType::Text, ",", "text of # integers with commas between them", "# integers in quotes, separated by commas"},
    {EboKeyKind::ChannelMap, ValueType::Text, ",", "text \"2 chn;map:1,0\", up to # channels", "\"4 chn;map:1,0,3,2\", for four channels"},
};
// clang-format on

constexpr bool isInOrder() {
    for (size_t i = 0; i < std::size(kKinds); ++i) {
        if (kKinds[i].kind != static_cast<EboKeyKind>(i)) return false;
    }
    return true;
}
static_assert(isInOrder(), "the kinds are looked up by their number");

std::string withCount(const char* words, const EboKeyRow& row) {
    std::string text = words;
    const size_t at = text.find('#');
    return at == std::string::npos ? text : text.replace(at, 1, std::to_string(row.count));
}

}  // namespace

const KindRow& kindOf(const EboKeyRow& row) {
    return kKinds[static_cast<size_t>(row.kind)];
}

std::string takenBy(const EboKeyRow& row) {
    return withCount(kindOf(row).takes, row);
}

std::string exampleFor(const EboKeyRow& row) {
    return withCount(kindOf(row).example, row);
}

const char* nameOf(ValueType type) {
    static const char* const names[] = {"an integer", "a number", "a string"};
    return names[static_cast<size_t>(type)];
}
