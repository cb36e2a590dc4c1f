#include "report/schema.h"

#include "model/facts.h"
#include "model/meanings.h"
#include "report/json_writer.h"
#include "report/schema_values.h"

namespace {

// One line of what an editor shows about a key or section.
struct Line {
    const char* label;
    std::string text;
    bool code;  // as it stands in a file, a log or a record
};

std::string markdown(const std::string& head, const std::vector<Line>& lines) {
    std::string text = head + ".\n";
    for (const Line& line : lines) {
        text += std::string("\n- ") + line.label + ": " + (line.code ? "`" + line.text + "`" : line.text);
    }
    return text;
}

bool isNumber(const EboKeyRow& row) {
    return row.kind == EboKeyKind::Int32 || row.kind == EboKeyKind::Int16 || row.kind == EboKeyKind::Flag ||
           row.kind == EboKeyKind::MaskBit || row.kind == EboKeyKind::Float;
}

class SchemaWriter {
public:
    std::string run() {
        json_.beginObject();
        json_.key("$schema").text("http://json-schema.org/draft-07/schema#");
        json_.key("title").text("Tuning file of the voice pipeline");
        json_.key("description").text("Written by eboconf schema; do not edit.");
        json_.key("type").text("object");
        json_.key("properties").beginObject();
        json_.key("$schema").beginObject().key("type").text("string");
        json_.key("description").text("For the editor; a device ignores it.").endObject();
        writeRoot(kEboLoads[kEboFullLoad],
                  "Capture path: every section but delay and wakeup must be there, enabled or not");
        writeRoot(kEboLoads[kEboAoLoad], "Playback path");
        writeRoot(kEboLoads[kEboAgcLoad], "Gain control alone, for a component that needs nothing else");
        json_.endObject();
        writeNothingElse();
        json_.key("anyOf").beginArray();
        for (const EboLoad* load : rootLoads()) writeHas(load->root);
        json_.endArray();
        json_.key("definitions").beginObject();
        for (const SectionPlace& place : sectionPlaces()) {
            if (place.load == rootLoads().front()) writeSection(place);
        }
        json_.endObject();
        json_.endObject();
        return json_.document();
    }

private:
    void writeRoot(const EboLoad& load, const char* description) {
        json_.key(load.root).beginObject();
        json_.key("description").text(description);
        json_.key("type").text("object");
        json_.key("properties").beginObject();
        for (const SectionPlace& place : sectionPlaces()) {
            if (place.load != &load) continue;
            json_.key(place.section->name).beginObject();
            json_.key("$ref").text(std::string("#/definitions/") + place.section->name).endObject();
        }
        json_.endObject();
        json_.key("required").beginArray();
        for (const SectionPlace& place : sectionPlaces()) {
            if (place.load == &load && place.required) json_.text(place.section->name);
        }
        json_.endArray();
        writeNothingElse();
        json_.endObject();
    }

    // But notes.
    void writeNothingElse() {
        json_.key("patternProperties").beginObject().key("^(_|//)").beginObject();
        json_.key("description").text("A note; a device ignores it.").endObject().endObject();
        json_.key("additionalProperties").boolean(false);
    }

    // An object with that member. Strict validators want to see each required property among the properties.
    void writeHas(const char* member) {
        json_.beginObject();
        json_.key("properties").beginObject().key(member).boolean(true).endObject();
        json_.key("required").beginArray().text(member).endArray();
        json_.endObject();
    }

    void writeTexts(const std::string& head, const std::vector<Line>& lines) {
        json_.key("description").text(head + ".");
        json_.key("markdownDescription").text(markdown(head, lines));
    }

    void writeSection(const SectionPlace& place) {
        const EboSection& section = *place.section;
        json_.key(section.name).beginObject();
        std::vector<Line> lines;
        for (const SectionPlace* each : placesOf(section)) {
            std::string text = bitText(*each);
            if (!each->record.empty()) text.append(", record ").append(each->record);
            lines.push_back({each->root, text, false});
        }
        writeTexts(meaningOf(section.name, nullptr), lines);
        json_.key("type").text("object");
        writeSnippet(place);
        json_.key("properties").beginObject();
        writeKey(place, section.rows[0]);
        for (const EboKeyRow* row : keysOf(section)) writeKey(place, *row);
        json_.endObject();
        if (place.readWhenDisabled()) {
            writeRequired(section, 0);
        } else {
            writeRequiredWhenEnabled(place);
        }
        writeNothingElse();
        json_.endObject();
    }

    // The whole section, for an editor to insert: a tab stop at each value, which is the default where there
    // is one.
    void writeSnippet(const SectionPlace& place) {
        const EboSection& section = *place.section;
        json_.key("defaultSnippets").beginArray().beginObject();
        json_.key("label").text(std::string(section.name) + " with all keys");
        json_.key("body").beginObject();
        json_.key(section.rows[0].key).text("${1|enable,disable|}");
        int stop = 1;
        for (const EboKeyRow* row : keysOf(section)) {
            std::string value = factsOf(place, *row).value;
            if (takesChoicesOnly(place, *row)) value = choicesOf(place, *row).front().value;
            if (value.empty() && isNumber(*row)) value = "0";
            // The caret: as it is, without quotes.
            std::string body = isNumber(*row) ? "^${" : "${";
            body.append(std::to_string(++stop)).append(":").append(value).append("}");
            json_.key(row->key).text(body);
        }
        json_.endObject().endObject().endArray();
    }

    // The required keys from row `first` on.
    void writeRequired(const EboSection& section, size_t first) {
        json_.key("required").beginArray();
        for (size_t i = first; i < section.rowCount; ++i) {
            if (missingMessage(section.rows[i]) != nullptr) json_.text(section.rows[i].key);
        }
        json_.endArray();
    }

    void writeRequiredWhenEnabled(const SectionPlace& place) {
        const EboSection& section = *place.section;
        const char* status = section.rows[0].key;
        json_.key("required").beginArray();
        if (missingMessage(section.rows[0]) != nullptr) json_.text(status);
        json_.endArray();
        json_.key("if").beginObject().key("properties").beginObject().key(status).beginObject();
        json_.key("type").text("string").key("pattern").text(enablePattern()).endObject().endObject();
        json_.key("required").beginArray().text(status).endArray().endObject();
        json_.key("then").beginObject();
        json_.key("properties").beginObject();
        for (const EboKeyRow* row : keysOf(section)) {
            if (missingMessage(*row) == nullptr && !takesChoicesOnly(place, *row)) continue;
            json_.key(row->key).beginObject();
            if (takesChoicesOnly(place, *row)) writeEnum(choicesOf(place, *row));
            json_.endObject();
        }
        json_.endObject();
        writeRequired(section, 1);
        json_.endObject();
    }

    void writeKey(const SectionPlace& place, const EboKeyRow& row) {
        const KeyFacts facts = factsOf(place, row);
        const EboSection& section = *place.section;
        std::vector<Line> lines = {{"Type", facts.type, false}};
        if (!facts.value.empty()) lines.push_back({"Default", facts.value, row.kind != EboKeyKind::Status});
        if (row.kind == EboKeyKind::Status) {
            for (const SectionPlace* each : placesOf(section)) {
                lines.push_back({"Stored as", factsOf(*each, row).stored + ", in " + each->root, false});
            }
        } else {
            const std::string field = facts.field.empty() ? "" : " " + facts.field;
            lines.push_back({"Stored as", facts.stored + field, true});
        }
        const size_t keys = keysOf(section).size() + 1;
        lines.push_back({"Looked up", std::to_string(facts.order) + " of " + std::to_string(keys), false});
        const bool optional = facts.missing.empty();
        lines.push_back({"When missing", optional ? "the key is optional" : facts.missing, !optional});
        json_.key(row.key).beginObject();
        writeTexts(facts.meaning, lines);
        writeType(row);
        writeChoices(place, row);
        writeDefault(place, row, facts.value);
        json_.endObject();
    }

    void writeType(const EboKeyRow& row) {
        const std::string pattern = textPattern(row);
        if (row.kind == EboKeyKind::Float) {
            json_.key("type").text("number");
        } else if (row.kind == EboKeyKind::Int16) {
            json_.key("type").text("integer").key("minimum").number("-32768").key("maximum").number("32767");
        } else if (isNumber(row)) {
            json_.key("type").text("integer");
            json_.key("minimum").number("-2147483648").key("maximum").number("2147483647");
        } else if (pattern.empty()) {
            json_.key("type").text("string");
        } else {
            json_.key("type").text("string").key("pattern").text(pattern);
            json_.key("patternErrorMessage").text(textForm(row));
        }
    }

    void writeEnum(const std::vector<Choice>& choices) {
        json_.key("enum").beginArray();
        for (const Choice& choice : choices) json_.number(choice.value);
        json_.endArray().key("enumDescriptions").beginArray();
        for (const Choice& choice : choices) json_.text(choice.meaning);
        json_.endArray();
    }

    // The list is what an editor offers; the other form is all that a device takes.
    void writeChoices(const SectionPlace& place, const EboKeyRow& row) {
        const std::vector<Choice> choices = choicesOf(place, row);
        if (choices.empty()) return;
        json_.key("anyOf").beginArray().beginObject();
        writeEnum(choices);
        json_.endObject().beginObject();
        if (row.kind == EboKeyKind::Status) {
            json_.key("pattern").text(statusPattern());
            json_.key("patternErrorMessage").text("Write \"enable\" or \"disable\".");
        }
        json_.endObject().endArray();
    }

    // An editor offers it, so not when it would be complained of.
    void writeDefault(const SectionPlace& place, const EboKeyRow& row, const std::string& value) {
        if (value.empty() || row.kind == EboKeyKind::Status || takesChoicesOnly(place, row)) return;
        json_.key("default");
        isNumber(row) ? json_.number(value) : json_.text(value);
    }

    JsonWriter json_;
};

}  // namespace

std::string schemaText() {
    return SchemaWriter().run();
}
