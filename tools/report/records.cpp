#include "report/records.h"

#include "model/modules.h"
#include "model/places.h"
#include "model/values.h"
#include "report/json_writer.h"

namespace {

void begin(JsonWriter& json, const std::string& file) {
    json.beginObject().key("version").number("1").key("file").text(file).key("loads").beginArray();
}

std::string end(JsonWriter& json) {
    json.endArray().endObject();
    return json.document();
}

void beginLoad(JsonWriter& json, const EboLoad& load, const Tuning& tuning) {
    json.beginObject().key("load").text(load.name).key("root").text(load.root).key("masks").beginObject();
    for (const MaskValue& mask : masksOf(load, tuning)) {
        json.key(mask.name).number(std::to_string(mask.bits));
    }
    json.endObject();
}

void writeMap(JsonWriter& json, const Tuning& tuning) {
    const int16_t* const map = tuning.capture->aec->Array_list;
    if (map == nullptr) {
        json.null();
        return;
    }
    json.beginArray();
    for (int i = 0; i < tuning.channels; ++i) json.number(std::to_string(map[i]));
    json.endArray();
}

void writeField(JsonWriter& json, const Tuning& tuning, const void* record, const EboKeyRow& row) {
    json.key(row.key);
    if (row.kind == EboKeyKind::ChannelMap) return writeMap(json, tuning);
    if (row.kind == EboKeyKind::Word) {
        const std::string word = wordText(record, row);
        word.empty() ? json.null() : json.text(word);
        return;
    }
    const Numbers numbers = numbersOf(row);
    if (numbers.count > 1) json.beginArray();
    for (size_t i = 0; i < numbers.count; ++i) json.numberOrText(numberText(record, numbers, i));
    if (numbers.count > 1) json.endArray();
}

void writeRecord(JsonWriter& json, const SectionPlace& place, const Tuning& tuning) {
    const void* const record = place.recordOf(tuning);
    json.key(place.section->name);
    if (record == nullptr) {
        json.null();
        return;
    }
    json.beginObject();
    for (const EboKeyRow* row : keysOf(*place.section)) writeField(json, tuning, record, *row);
    for (const EboKeyRow* row : fieldsWithoutKey(*place.section)) writeField(json, tuning, record, *row);
    json.endObject();
}

void writeTextOrNull(JsonWriter& json, const char* name, bool there, const std::string& text) {
    json.key(name);
    there ? json.text(text) : json.null();
}

void writeModule(JsonWriter& json, const ModuleRow& row) {
    json.beginObject().key("module").text(row.place->section->name);
    writeTextOrNull(json, "asked", row.stated, row.asked);
    json.key("effective").text(effectOf(row)).key("bit");
    row.masked ? json.number(std::to_string(row.place->bit)) : json.null();
    writeTextOrNull(json, "record", row.recorded, row.place->record);
    json.key("lines").number(std::to_string(row.lines)).key("why").beginArray();
    for (const std::string& why : row.why) json.text(why);
    json.endArray().endObject();
}

}  // namespace

std::string recordsJson(const std::string& file, const std::vector<Load>& loads) {
    JsonWriter json;
    begin(json, file);
    for (const Load& load : loads) {
        for (const EboLoad* one : load.loads) {
            beginLoad(json, *one, load.tuning);
            json.key("records").beginObject();
            for (const SectionPlace& place : sectionPlaces()) {
                if (place.root == std::string(one->root) && !place.record.empty() && place.isIn(load.tuning))
                    writeRecord(json, place, load.tuning);
            }
            json.endObject().endObject();
        }
    }
    return end(json);
}

std::string modulesJson(const std::string& file, const Load& load) {
    const std::vector<ModuleRow> rows = moduleRows(load);
    JsonWriter json;
    begin(json, file);
    for (const EboLoad* one : load.loads) {
        beginLoad(json, *one, load.tuning);
        json.key("modules").beginArray();
        for (const ModuleRow& row : rows) {
            if (row.place->root == std::string(one->root)) writeModule(json, row);
        }
        json.endArray().endObject();
    }
    return end(json);
}
