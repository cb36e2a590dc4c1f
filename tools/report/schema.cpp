#include "report/schema.h"

#include "model/facts.h"
#include "model/meanings.h"
#include "report/json_writer.h"

namespace {

constexpr char kEnable[] = "[Ee][Nn][Aa][Bb][Ll][Ee]";
constexpr char kDisable[] = "[Dd][Ii][Ss][Aa][Bb][Ll][Ee]";
constexpr char kInteger[] = "[+-]?[0-9]+";
constexpr char kNumber[] =
    "[+-]?(([0-9]+[.]?[0-9]*|[.][0-9]+)([Ee][+-]?[0-9]+)?|[Ii][Nn][Ff]([Ii][Nn][Ii][Tt][Yy])?|[Nn][Aa][Nn])";
constexpr char kBlank[] = "[ \\t\\r\\n]";

// `count` times `number` with `separator` between them.
std::string repeated(const std::string& number, const std::string& separator, int count) {
    if (count == 0) return "";
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
        json_.key("additionalProperties").boolean(false);
        writeAnyRoot();
        writeDefinitions();
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
        json_.key("additionalProperties").boolean(false);
        json_.endObject();
    }

    void writeAnyRoot() {
        json_.key("anyOf").beginArray();
        for (const EboLoad* load : rootLoads()) {
            json_.beginObject().key("required").beginArray().text(load->root).endArray().endObject();
        }
        json_.endArray();
    }

    void writeDefinitions() {
        json_.key("definitions").beginObject();
        for (const SectionPlace& place : sectionPlaces()) {
            if (place.load == rootLoads().front()) writeSection(place);
        }
        json_.endObject();
    }

    void writeSection(const SectionPlace& place) {
        const EboSection& section = *place.section;
        json_.key(section.name).beginObject();
        json_.key("description").text(std::string(meaningOf(section.name, nullptr)) + ".");
        json_.key("type").text("object");
        json_.key("properties").beginObject();
        writeKey(place, section.rows[0]);
        for (const EboKeyRow* row : keysOf(section)) writeKey(place, *row);
        json_.endObject();
        if (place.readWhenDisabled()) {
            writeRequired(section, 0);
        } else {
            writeRequiredWhenEnabled(section);
        }
        json_.key("additionalProperties").boolean(false);
        json_.endObject();
    }

    // The required keys from row `first` on.
    void writeRequired(const EboSection& section, size_t first) {
        json_.key("required").beginArray();
        for (size_t i = first; i < section.rowCount; ++i) {
            if (missingMessage(section.rows[i]) != nullptr) json_.text(section.rows[i].key);
        }
        json_.endArray();
    }

    void writeRequiredWhenEnabled(const EboSection& section) {
        json_.key("required").beginArray();
        if (missingMessage(section.rows[0]) != nullptr) json_.text("status");
        json_.endArray();
        json_.key("if").beginObject().key("properties").beginObject().key("status").beginObject();
        json_.key("pattern").text(std::string("^") + kEnable + "$").endObject().endObject();
        json_.key("required").beginArray().text("status").endArray().endObject();
        json_.key("then").beginObject();
        writeRequired(section, 1);
        json_.endObject();
    }

    void writeKey(const SectionPlace& place, const EboKeyRow& row) {
        const KeyFacts facts = factsOf(place, row);
        std::string description = facts.meaning + ".";
        if (!facts.missing.empty()) description += " When it is missing: \"" + facts.missing + "\".";
        json_.key(row.key).beginObject();
        json_.key("description").text(description);
        writeType(row);
        writeDefault(row, facts.value);
        json_.endObject();
    }

    void writeRange(const char* least, const char* most) {
        json_.key("type").text("integer").key("minimum").number(least).key("maximum").number(most);
    }
    void writePattern(const std::string& pattern) {
        json_.key("type").text("string").key("pattern").text(pattern);
    }

    void writeType(const EboKeyRow& row) {
        switch (row.kind) {
            case EboKeyKind::Status:
                return writeStatus();
            case EboKeyKind::Int32:
            case EboKeyKind::Flag:
            case EboKeyKind::MaskBit:
                return writeRange("-2147483648", "2147483647");
            case EboKeyKind::Int16:
                return writeRange("-32768", "32767");
            case EboKeyKind::Float:
                json_.key("type").text("number");
                return;
            case EboKeyKind::FloatRow:
            case EboKeyKind::IntRow:
            case EboKeyKind::BandList:
                return writePattern(rowPattern(row));
            case EboKeyKind::ChannelMap:
                return writePattern(mapPattern(row));
            case EboKeyKind::Word:
                json_.key("type").text("string");
                return;
        }
    }

    // The list is what an editor offers; the pattern takes the same words in any case, as a device does.
    void writeStatus() {
        json_.key("type").text("string");
        json_.key("anyOf").beginArray();
        json_.beginObject().key("enum").beginArray().text("enable").text("disable").endArray().endObject();
        const std::string words = std::string("^(") + kEnable + "|" + kDisable + ")$";
        json_.beginObject().key("pattern").text(words).endObject();
        json_.endArray();
    }

    void writeDefault(const EboKeyRow& row, const std::string& value) {
        if (value.empty() || row.kind == EboKeyKind::Status) return;
        const bool number = row.kind == EboKeyKind::Int32 || row.kind == EboKeyKind::Int16 ||
                            row.kind == EboKeyKind::Flag || row.kind == EboKeyKind::MaskBit ||
                            row.kind == EboKeyKind::Float;
        json_.key("default");
        number ? json_.number(value) : json_.text(value);
    }

    JsonWriter json_;
};

}  // namespace

std::string schemaText() {
    return SchemaWriter().run();
}
