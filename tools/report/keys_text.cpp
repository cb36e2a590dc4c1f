#include <algorithm>
#include <set>

#include "model/meanings.h"
#include "report/keys.h"
#include "text/terminal.h"

namespace {

std::string ordinalOf(const EboSection& section) {
    const EboLoad& whole = *rootLoads().front();
    const auto* end = whole.sections + whole.sectionCount;
    return std::to_string(std::find(whole.sections, end, &section) - whole.sections + 1) + " of " +
           std::to_string(whole.sectionCount);
}

// "  label   text", the text wrapped after the label.
std::string labelled(const std::string& label, const std::string& text, size_t labelWidth, size_t width) {
    const std::string lines = wrapped(text, labelWidth, std::max(width, labelWidth + 20));
    return label + lines.substr(std::min(label.size(), labelWidth));
}

// "bit 0x100 of bf.model_en" is too wide for a column.
std::string shortForm(const std::string& stored) {
    return stored == "no bit" ? "none" : stored.substr(0, stored.find(' '));
}

std::string placeLine(const SectionPlace& place) {
    std::string text = std::string(place.root) + ": ";
    const bool capture = place.load == rootLoads().front();
    if (capture) text += "section " + ordinalOf(*place.section) + ", ";
    text += bitText(place);
    if (!place.record.empty()) text += ", record " + place.record;
    if (capture) text += place.required ? ", required" : ", optional";
    return text;
}

std::string sectionReference(const SectionPlace& place, size_t width) {
    std::string text = styled(Style::Bold, place.section->name) + "\n" +
                       wrapped(meaningOf(place.section->name, nullptr), 2, width);
    for (const SectionPlace* each : placesOf(*place.section)) text += wrapped(placeLine(*each), 2, width);
    const std::vector<KeyFacts> all = factsOf(place);
    size_t keyWidth = 0;
    size_t storedWidth = 0;
    for (const KeyFacts& facts : all) {
        keyWidth = std::max(keyWidth, facts.key.size());
        storedWidth = std::max(storedWidth, shortForm(facts.stored).size());
    }
    for (const KeyFacts& facts : all) {
        const std::string order = facts.order != 0 ? std::to_string(facts.order) : "-";
        std::string label = std::string(4 - std::min<size_t>(order.size(), 4), ' ') + order + "  " +
                            padded(facts.key, keyWidth) + "  " +
                            padded(shortForm(facts.stored), storedWidth) + "  ";
        std::string meaning = facts.meaning;
        if (shortForm(facts.stored) != facts.stored && facts.order != 1) meaning += " (" + facts.stored + ")";
        if (!facts.value.empty()) meaning += ". Default " + facts.value;
        text += labelled(label, meaning, label.size(), width);
    }
    return text;
}

std::string keyReference(const KeyFacts& facts, size_t width) {
    std::string text = styled(Style::Bold, facts.name) + "\n";
    const auto add = [&](const char* label, const std::string& value) {
        const std::string padding = padded(std::string("  ") + label, 12);
        text += labelled(padding, value, padding.size(), width);
    };
    add("meaning", facts.meaning);
    add("type", facts.type);
    add("stored as", facts.stored);
    if (!facts.field.empty()) add("field", facts.field);
    if (facts.order != 0) add("order", std::to_string(facts.order) + " in its section");
    add("default", facts.value.empty() ? "none" : facts.value);
    if (facts.order != 0) add("missing", facts.missing.empty() ? "the key is optional" : facts.missing);
    return text;
}

// "name  meaning", the meanings below each other.
std::string hitList(const std::vector<KeyHit>& hits, size_t width) {
    size_t nameWidth = 0;
    for (const KeyHit& hit : hits) nameWidth = std::max(nameWidth, hit.name().size());
    std::string text;
    for (const KeyHit& hit : hits) {
        const std::string label = padded(hit.name(), nameWidth) + "  ";
        text += labelled(label, hit.meaning(), label.size(), width);
    }
    return text;
}

}  // namespace

std::string keysText(const KeyHits& hits, size_t width) {
    if (!hits.inFull) return hitList(hits.list, width);
    std::string text;
    std::set<const EboSection*> shown;  // under all of its root objects at once
    for (const KeyHit& hit : hits.list) {
        if (shown.count(hit.place->section) != 0) continue;
        if (!text.empty()) text += "\n";
        if (!hit.key) shown.insert(hit.place->section);
        text += hit.key ? keyReference(*hit.key, width) : sectionReference(*hit.place, width);
    }
    return text;
}
