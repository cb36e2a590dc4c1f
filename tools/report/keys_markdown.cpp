#include "model/meanings.h"
#include "report/keys.h"

namespace {

constexpr char kHead[] =
    R"(# The sections and keys of a tuning file

Written by `eboconf keys --format markdown` from the tables that the readers use; do not edit.

A tuning file is a JSON object of root objects: `ebo_configs` for the capture path, `ebo_ao_configs` for the playback
path, `ebo_agc_configs` for gain control alone. A root holds sections, a section holds keys. The sections stand here in
the order in which a whole file is read, the keys in the order in which they are looked up; the first one that is
missing fails its section with the message given, and the whole load where that needs the section. Keys that are not
listed are ignored.

All values go to the engine unchanged. Where it alone knows what a value does, the meaning reads the name and claims no
more. An integer that does not fit 16 bits where 16 are stored keeps its low 16 bits. The default is the value of records
that are made without a file; a file must give every key that is not optional. In `wakeup` it is the value of a key that is
missing from an enabled section; a record that is read without `mic_chn_map` has no map.
)";

// Bars would end a table's cell.
std::string cell(const std::string& text) {
    return text.empty() ? "–" : text;
}
std::string code(const std::string& text) {
    return text.empty() ? "–" : "`" + text + "`";
}

std::string row(const KeyFacts& facts) {
    const std::string order = facts.order != 0 ? std::to_string(facts.order) : "";
    const std::string missing = facts.order == 0        ? "–"
                                : facts.missing.empty() ? "optional"
                                                        : code(facts.missing);
    return "| " + cell(order) + " | " + code(facts.key) + " | " + facts.type + " | " + facts.stored + " | " +
           code(facts.field) + " | " + cell(facts.value) + " | " + missing + " | " + facts.meaning + " |\n";
}

std::string placeItem(const SectionPlace& place) {
    std::string text = std::string("- `") + place.root + "`: " + bitText(place);
    if (!place.record.empty()) text += ", record `" + place.record + "`";
    if (place.load == rootLoads().front()) {
        text += place.required ? "; without the section the whole load fails"
                               : "; without the section the load goes on";
        text += place.readWhenDisabled() ? "" : "; while it is disabled only its status is read";
    }
    return text + "\n";
}

}  // namespace

std::string keysMarkdown() {
    std::string text = kHead;
    const EboLoad& whole = *rootLoads().front();
    for (size_t i = 0; i < whole.sectionCount; ++i) {
        const EboSection& section = *whole.sections[i];
        text += std::string("\n## ") + section.name + "\n\n" + meaningOf(section.name, nullptr) + ".\n\n";
        for (const SectionPlace* place : placesOf(section)) text += placeItem(*place);
        text += "\n| order | key | type | stored as | field | default | when missing | meaning |\n";
        text += "|--:|---|---|---|---|---|---|---|\n";
        for (const KeyFacts& facts : factsOf(*placesOf(section).front())) text += row(facts);
    }
    return text;
}
