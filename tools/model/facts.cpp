#include "model/facts.h"

#include <cstdio>

#include "model/load_log.h"
#include "model/meanings.h"
#include "model/values.h"

namespace {

std::string hex(int32_t bit) {
    char text[16];
    std::snprintf(text, sizeof(text), "0x%x", static_cast<unsigned int>(bit));
    return text;
}

std::string typeOf(const EboKeyRow& row) {
    const std::string count = std::to_string(row.count);
    switch (row.kind) {
        case EboKeyKind::Status:
            return "\"enable\" or \"disable\"";
        case EboKeyKind::Int32:
            return "integer";
        case EboKeyKind::Int16:
            return "integer from -32768 to 32767";
        case EboKeyKind::Flag:
            return "integer, 0 or 1";
        case EboKeyKind::Float:
            return "number";
        case EboKeyKind::FloatRow:
            return "text of " + count + " numbers with blanks between them";
        case EboKeyKind::IntRow:
            return "text of " + count + " integers with blanks between them";
        case EboKeyKind::BandList:
            return "text of " + count + " integers with commas between them";
        case EboKeyKind::ChannelMap:
            return "text \"2 chn;map:1,0\", up to " + count + " channels";
        case EboKeyKind::Word:
            return "text";
    }
    return "";
}

std::string storedAs(const SectionPlace& place, const EboKeyRow& row) {
    if (row.kind == EboKeyKind::Status) return bitText(place);
    if (isMethod(place, row)) return "bit " + hex(EBO_BF_GSC_METHOD) + " of " + place.mask;
    if (row.kind == EboKeyKind::Word) return "char*";
    if (row.kind == EboKeyKind::ChannelMap) return "int16*";
    const Numbers numbers = numbersOf(row);
    const char* type = numbers.type == EboKeyKind::Float   ? "float"
                       : numbers.type == EboKeyKind::Int16 ? "int16"
                                                           : "int32";
    return numbers.count == 1 ? type : type + ("[" + std::to_string(numbers.count) + "]");
}

// What the wake-up reader leaves in its record when it finds no key at all.
const EboWakeupParam* wakeupPresets() {
    static EboWakeupParam* const presets = [] {
        EboWakeupParam* wakeup = nullptr;
        messagesOf([&wakeup] {
            KAJsonParser nothing;
            int mask = EBO_BF_WAKEUP;
            wakeup = parseEboWakeupConfigs(&nothing, kCaptureRoot, &mask);
        });
        return wakeup;
    }();
    return presets;
}

std::string defaultOf(const SectionPlace& place, const EboKeyRow& row) {
    static const Tuning defaults = defaultTuning();
    if (row.kind == EboKeyKind::Status) {
        if (!isEnabled(place, defaults)) return "disabled";
        const bool lacksRecord = place.record != nullptr && place.recordOf(defaults) == nullptr;
        return lacksRecord ? "enabled, but without a record" : "enabled";
    }
    if (isMethod(place, row)) return (defaults.capture->bf->model_en & EBO_BF_GSC_METHOD) != 0 ? "1" : "0";
    const void* record = place.recordOf(defaults);
    if (place.section == &kEboWakeupSection) record = wakeupPresets();
    return record != nullptr ? valueText(defaults, record, row) : "";
}

std::string statusMeaning(const SectionPlace& place) {
    if (place.root == kGainRoot) return "Required, but without effect: who loads this part keeps no mask";
    std::string text = "\"enable\", in any case, enables the module; any other text disables it";
    if (!place.readWhenDisabled) text += ", and then no other key is read";
    return text;
}

}  // namespace

std::string bitText(const SectionPlace& place) {
    if (place.root == kGainRoot) return "no bit";  // the loader hands in no mask
    return "bit " + hex(place.bit) + " of " + place.mask;
}

KeyFacts factsOf(const SectionPlace& place, const EboKeyRow& row) {
    KeyFacts facts;
    facts.name = nameOf(place, row);
    facts.key = row.key;
    const EboSection& section = *place.section;
    const bool isKey = &row >= section.rows && &row < section.rows + section.rowCount;
    facts.order = isKey ? static_cast<size_t>(&row - section.rows) + 1 : 0;
    facts.type = isKey ? typeOf(row) : "no key";
    facts.stored = storedAs(place, row);
    const std::string field = fieldName(place, row);
    if (!field.empty()) facts.field = std::string(place.record) + "::" + field;
    facts.value = defaultOf(place, row);
    if (row.missing != nullptr) facts.missing = plainText(row.missing);
    facts.meaning = row.kind == EboKeyKind::Status ? statusMeaning(place) : meaningOf(section.name, row.key);
    return facts;
}

std::vector<KeyFacts> factsOf(const SectionPlace& place) {
    std::vector<KeyFacts> facts = {factsOf(place, place.section->rows[0])};
    for (const EboKeyRow* row : keysOf(*place.section)) facts.push_back(factsOf(place, *row));
    for (const EboKeyRow* row : fieldsWithoutKey(*place.section)) facts.push_back(factsOf(place, *row));
    return facts;
}

std::vector<const SectionPlace*> placesOf(const EboSection& section) {
    std::vector<const SectionPlace*> places;
    for (const SectionPlace& place : sectionPlaces()) {
        if (place.section == &section) places.push_back(&place);
    }
    return places;
}
