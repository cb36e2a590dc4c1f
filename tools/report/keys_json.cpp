#include "report/json_writer.h"
#include "report/keys.h"

namespace {

void writeText(JsonWriter& json, const char* name, const std::string& text) {
    json.key(name);
    text.empty() ? json.null() : json.text(text);
}

// Rows, lists and words are texts.
void writeDefault(JsonWriter& json, const std::string& value) {
    const bool number = !value.empty() && value.find_first_not_of("0123456789+-.e") == std::string::npos;
    if (!number) return writeText(json, "default", value);
    json.key("default").number(value);
}

void writeSection(JsonWriter& json, const KeyHit& hit) {
    const SectionPlace& place = *hit.place;
    json.beginObject();
    json.key("name").text(nameOf(*hit.place));
    json.key("root").text(place.root);
    json.key("meaning").text(hit.meaning());
    writeText(json, "record", place.record);
    writeText(json, "enables", place.load->maskless != 0 ? "" : bitText(place));
    json.key("required").boolean(place.required);
    json.endObject();
}

void writeKey(JsonWriter& json, const KeyHit& hit) {
    const KeyFacts& facts = *hit.key;
    json.beginObject();
    json.key("name").text(facts.name);
    json.key("section").text(nameOf(*hit.place));
    json.key("key").text(facts.key);
    json.key("meaning").text(facts.meaning);
    json.key("type").text(facts.type);
    json.key("stored").text(facts.stored);
    writeText(json, "field", facts.field);
    json.key("order");
    facts.order == 0 ? json.null() : json.number(std::to_string(facts.order));
    writeDefault(json, facts.value);
    json.key("required").boolean(!facts.missing.empty());
    writeText(json, "whenMissing", facts.missing);
    json.endObject();
}

}  // namespace

std::string keysJson(const KeyHits& hits) {
    JsonWriter json;
    json.beginObject().key("sections").beginArray();
    for (const KeyHit& hit : hits.list) {
        if (!hit.key) writeSection(json, hit);
    }
    json.endArray().key("keys").beginArray();
    for (const KeyHit& hit : hits.list) {
        if (hit.key) writeKey(json, hit);
    }
    json.endArray().endObject();
    return json.document();
}
