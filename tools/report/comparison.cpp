#include "report/comparison.h"

#include <algorithm>

#include "report/json_writer.h"
#include "text/words.h"

namespace {

void writeValue(JsonWriter& json, const Value& value) {
    if (value.kind == Value::None) {
        json.null();
    } else if (value.kind == Value::Switch) {
        json.boolean(value.text == "enabled");
    } else if (value.kind == Value::Number) {
        json.numberOrText(value.text);
    } else {
        json.text(value.text);
    }
}

void writeList(JsonWriter& json, const char* name, const std::vector<Difference>& list) {
    json.key(name).beginArray();
    for (const Difference& difference : list) {
        json.beginObject().key("name").text(difference.name);
        writeValue(json.key("from"), difference.from);
        writeValue(json.key("to"), difference.to);
        json.endObject();
    }
    json.endArray();
}

// A text that stays what it is, between more '`' than it has in a row; a table wants its '|' escaped even so.
std::string inBackticks(const std::string& text) {
    std::string shown;
    size_t run = 0;
    size_t longest = 0;
    for (const char c : printable(text)) {
        run = c == '`' ? run + 1 : 0;
        longest = std::max(longest, run);
        if (c == '|') shown += '\\';
        shown += c;
    }
    const std::string fence(longest + 1, '`');
    return longest == 0 ? fence + shown + fence : fence + ' ' + shown + ' ' + fence;
}

std::string cellOf(const Value& value) {
    if (value.kind == Value::Word) return inBackticks(inQuotes(value.text));
    return value.kind == Value::Number ? inBackticks(value.text) : value.text;
}

}  // namespace

std::string comparisonJson(const ComparedNames& names, const Differences& differences) {
    JsonWriter json;
    json.beginObject().key("from").text(names.from).key("to").text(names.to);
    json.key("equal").boolean(differences.none());
    writeList(json, "enable", differences.switches);
    writeList(json, "values", differences.values);
    json.endObject();
    return json.document();
}

std::string comparisonMarkdown(const ComparedNames& names, const Differences& differences) {
    if (differences.none())
        return inBackticks(names.from) + " and " + inBackticks(names.to) + " load the same.\n";
    std::string table =
        "| setting | " + inBackticks(names.from) + " | " + inBackticks(names.to) + " |\n|---|---|---|\n";
    for (const auto* list : {&differences.switches, &differences.values}) {
        for (const Difference& difference : *list) {
            table += "| " + inBackticks(difference.name) + " | " + cellOf(difference.from) + " | " +
                     cellOf(difference.to) + " |\n";
        }
    }
    return table;
}
