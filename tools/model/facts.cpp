#include "model/facts.h"

#include "model/kinds.h"
#include "model/load_log.h"
#include "model/meanings.h"
#include "model/values.h"
#include "text/words.h"

namespace {

std::string storedAs(const SectionPlace& place, const EboKeyRow& row) {
    if (row.kind == EboKeyKind::Status) return bitText(place);
    if (row.kind == EboKeyKind::MaskBit) return "bit " + hexText(bitOf(row)) + " of " + place.mask;
    if (row.kind == EboKeyKind::Word) return "char*";
    if (row.kind == EboKeyKind::ChannelMap) return "int16*";
    const Numbers numbers = numbersOf(row);
    const char* type = numbers.type == EboKeyKind::Float   ? "float"
                       : numbers.type == EboKeyKind::Int16 ? "int16"
                                                           : "int32";
    return numbers.count == 1 ? type : type + ("[" + std::to_string(numbers.count) + "]");
}

std::string defaultOf(const SectionPlace& place, const EboKeyRow& row) {
    static const Tuning defaults = defaultTuning();
    if (row.kind == EboKeyKind::Status) {
        if (!isEnabled(place, defaults)) return "disabled";
        const bool lacksRecord = !place.record.empty() && place.recordOf(defaults) == nullptr;
        return lacksRecord ? "enabled, but without a record" : "enabled";
    }
    if (row.kind == EboKeyKind::MaskBit) return (*place.maskOf(defaults) & bitOf(row)) != 0 ? "1" : "0";
    if (row.ifMissing == EboIfMissing::Preset) return row.text;
    const void* record = place.recordOf(defaults);
    if (record != nullptr) return valueText(defaults, record, row);
    if (row.ifMissing != EboIfMissing::Nothing) return "";
    const std::string zeros(place.section->recordSize, '\0');
    return valueText(Tuning(), zeros.data(), row);
}

std::string statusMeaning(const SectionPlace& place) {
    if (place.load->maskless != 0) return "Required, but without effect: who loads this part keeps no mask";
    std::string text = "\"enable\", in any case, enables the module; any other text disables it";
    if (!place.readWhenDisabled()) text += ", and then no other key is read";
    return text;
}

}  // namespace

std::string bitText(const SectionPlace& place) {
    if (place.load->maskless != 0) return "no bit";  // the loader hands in no mask
    return "bit " + hexText(place.bit) + " of " + place.mask;
}

KeyFacts factsOf(const SectionPlace& place, const EboKeyRow& row) {
    KeyFacts facts;
    facts.name = nameOf(place, row);
    facts.key = row.key;
    const EboSection& section = *place.section;
    const bool isKey = row.ifMissing != EboIfMissing::NoKey;
    facts.order = isKey ? static_cast<size_t>(&row - section.rows) + 1 : 0;
    facts.type = isKey ? takenBy(row) : "no key";
    facts.stored = storedAs(place, row);
    const std::string field = fieldName(row);
    if (!field.empty()) facts.field = place.record + "::" + field;
    facts.value = defaultOf(place, row);
    if (missingMessage(row) != nullptr) facts.missing = plainText(missingMessage(row));
    facts.meaning = row.kind == EboKeyKind::Status ? statusMeaning(place) : meaningOf(section.name, row.key);
    return facts;
}

std::vector<KeyFacts> factsOf(const SectionPlace& place) {
    std::vector<KeyFacts> facts = {factsOf(place, place.section->rows[0])};
    for (const EboKeyRow* row : keysOf(*place.section)) facts.push_back(factsOf(place, *row));
    for (const EboKeyRow* row : fieldsWithoutKey(*place.section)) facts.push_back(factsOf(place, *row));
    return facts;
}
