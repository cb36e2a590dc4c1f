#include <set>

#include "model/values.h"
#include "report/keys.h"

namespace {

// `text` as a JSON string in the quotes of a dictionary, which knows the escapes \" and \\ only.
std::string entry(const std::string& text) {
    return "\"\\\"" + text + "\\\"\"\n";
}

// A text of the row's form.
std::string sampleOf(const EboKeyRow& row) {
    if (row.kind == EboKeyKind::ChannelMap) return "2 chn;map:1,0";
    const Numbers numbers = numbersOf(row);
    const std::string zeros(numbers.offset + numbers.count * numbers.stride, '\0');
    return valueText(Tuning(), zeros.data(), row);
}

bool isRow(const EboKeyRow& row) {
    return row.kind == EboKeyKind::FloatRow || row.kind == EboKeyKind::IntRow ||
           row.kind == EboKeyKind::BandList || row.kind == EboKeyKind::ChannelMap;
}

}  // namespace

std::string keysDictionary() {
    std::set<std::string> words;
    std::set<std::string> rows;
    for (const SectionPlace& place : sectionPlaces()) {
        words.insert(place.root);
        words.insert(place.section->name);
        words.insert(place.section->rows[0].key);
        for (const EboKeyRow* row : keysOf(*place.section)) {
            words.insert(row->key);
            if (isRow(*row)) rows.insert(sampleOf(*row));
        }
    }
    std::string text = "# Written by eboconf keys --format dictionary.\n# Roots, sections and keys\n";
    for (const std::string& word : words) text += entry(word);
    text += "# Statuses\n" + entry("enable") + entry("disable") + "# Rows\n";
    for (const std::string& row : rows) text += entry(row);
    text += "# Within rows and numbers\n";
    for (const char* part : {" chn;map:", "17 chn;map:", ",", "  ", "inf", "nan", "0x1p-3", "1e999", "-1",
                             "65536", "2147483648", "true", "null"}) {
        text += std::string("\"") + part + "\"\n";
    }
    return text;
}
