#include "model/modules.h"

#include <algorithm>
#include <cstring>

#include "model/facts.h"
#include "model/module_dump.h"
#include "text/words.h"

namespace {

class RowMaker {
public:
    RowMaker(const Load& load, const SectionPlace& place) : load_(load), place_(place) {
        load.document->getOptions(place.root, place.section->name, &keys_);
    }

    ModuleRow run() {
        const DumpLines lines = linesOfSection(place_, load_.tuning);
        row_.place = &place_;
        row_.masked = place_.load->maskless == 0 && place_.maskOf(load_.tuning) != nullptr;
        row_.enabled = isEnabled(place_, load_.tuning);
        row_.recorded = place_.recordOf(load_.tuning) != nullptr;
        row_.lines = lines.size();
        if (!lines.empty()) row_.heading = lines.front();
        const char* status = nullptr;
        row_.stated = keys_.findCString("status", &status);
        if (row_.stated) row_.asked = status;
        explainStatus(status);
        for (const EboKeyRow* key : keysOf(*place_.section)) {
            if (key->kind == EboKeyKind::ChannelMap) explainMap(*key);
            if (key->kind == EboKeyKind::MaskBit) explainMaskBit(*key);
        }
        if (place_.leavesNoRecordWhenDisabled()) explainNoRecord();
        explainFixedFields();
        if (place_.section->whenDisabled == EboDisabled::GoesByMask) explainKeysByMask();
        if (place_.section->whenDisabled == EboDisabled::LeavesZeros) explainWords();
        explainDump();
        return std::move(row_);
    }

private:
    void say(const std::string& sentence) { row_.why.push_back(sentence); }

    // The message about the first of the section's keys that was missing; empty when none was.
    std::string complaint() const {
        for (const LogMessage& message : load_.messages) {
            for (size_t i = 0; i < place_.section->rowCount; ++i) {
                const EboKeyRow& row = place_.section->rows[i];
                const char* missing = missingMessage(row);
                if (missing != nullptr && message.line == row.line && message.format == missing &&
                    message.function == place_.section->function)
                    return message.text;
            }
        }
        return "";
    }

    void explainStatus(const char* status) {
        const bool missing = !place_.record.empty() && !row_.recorded;
        if (missing && !place_.leavesNoRecordWhenDisabled()) {
            say("not loaded: " + complaint() + "; its slot stays null");
            return;
        }
        if (place_.record.empty() && !complaint().empty()) {
            say("not loaded: " + complaint());
            return;
        }
        if (place_.load->maskless != 0) {
            say("the status has no effect: who loads this part keeps no mask, and no dump prints it");
        } else if (!row_.masked) {
            say("the status has no effect: who loads this part gets no mask with its bit");
        } else if (!row_.enabled && status != nullptr) {
            explainDisabled(status);
        }
    }

    void explainDisabled(const char* status) {
        if (util_strcasecmp(status, "disable") != 0 && !place_.leavesNoRecordWhenDisabled()) {
            say(inQuotes(status) + " is not \"enable\": disabled");
        }
        const EboLoad& load = *load_.of(place_.root);
        if (!eboMustLoad(load, *place_.section)) return;
        if (!place_.readWhenDisabled() || place_.section->rowCount == 1) {
            say("still mandatory: without the section the whole load fails");
        } else {
            say("still mandatory: read in full, a missing key fails the whole load");
        }
    }

    void explainMap(const EboKeyRow& row) {
        const EboAecParam& aec = *load_.tuning.capture->aec;
        if ((aec.model_aec_en & EBO_AEC_CHN_MAP) != 0) {
            say("channel map of " + std::to_string(load_.tuning.channels) + " channels: bit " +
                hexText(EBO_AEC_CHN_MAP) + " of aec.model_aec_en");
            return;
        }
        const char* map = nullptr;
        const bool given = keys_.findCString(row.key, &map);
        say(std::string("no channel map: ") + row.key +
            (given ? " asks for no channel" : " is missing or no text") + ", Array_list is null");
    }

    void explainNoRecord() {
        if (row_.recorded) {
            say("bit " + hexText(place_.section->bit) +
                " of aec.model_aec_en is claimed because there is a record");
        } else if (!complaint().empty()) {
            say("no record, so no bit: " + complaint() + "; the load goes on without it");
        } else {
            say("read no further than its status: no record, no bit; the load goes on");
        }
    }

    // Status and key each have a bit of their own; the dump goes by the key alone.
    void explainMaskBit(const EboKeyRow& row) {
        const bool one = (*place_.maskOf(load_.tuning) & bitOf(row)) != 0;
        const std::string name = place_.section->name;
        const std::string is = std::string(row.key) + (one ? " is 1: " : " is not 1: ") + "bit " +
                               hexText(bitOf(row)) + " is " + (one ? "set" : "clear");
        if (row_.enabled && one) say(is + " and the dump prints a " + name + " block");
        if (row_.enabled && !one) say(is + " and the dump prints no " + name + " block, enabled or not");
        if (!row_.enabled && one)
            say(is + " and the dump prints \"" + name + ": enabled\" although the module is disabled");
        if (!row_.enabled && !one) say(is);
    }

    void explainFixedFields() {
        std::string fixed;
        for (const EboKeyRow* field : fieldsWithoutKey(*place_.section)) {
            if (field->text == nullptr) continue;
            fixed += (fixed.empty() ? "" : " and ") + std::string(field->key) + " " + field->text;
        }
        if (row_.recorded && !fixed.empty()) say(fixed + " are fixed and never printed");
    }

    void explainKeysByMask() {
        const std::string bit = "bit " + hexText(place_.section->bit);
        if (!row_.enabled) {
            std::string zeros = "its keys are not read while " + bit + " is clear: the record is all zero";
            for (const EboKeyRow* key : keysOf(*place_.section)) {
                if (key->ifMissing == EboIfMissing::Preset) zeros += ", " + std::string(key->key) + " too";
            }
            say(zeros);
            return;
        }
        say("its keys are read because " + bit + " is set");
        for (const LogMessage& message : load_.messages) {
            const bool complaint = message.error && message.function == place_.section->function;
            if (complaint && message.text.compare(0, 4, "    ") != 0)
                say("the log complains: " + message.text);
        }
    }

    void explainWords() {
        if (!row_.recorded) return;
        for (const EboKeyRow* key : keysOf(*place_.section)) {
            if (key->kind != EboKeyKind::Word) continue;
            const char* word = nullptr;
            const bool given = keys_.findCString(key->key, &word) && word[0] != '\0';
            if (row_.enabled && !given)
                say(std::string("enabled without a ") + key->key + ": the engine gets a null pointer");
            if (!row_.enabled && given)
                say(std::string(key->key) + " is not looked at while the module is disabled");
        }
    }

    void explainDump() {
        const KeyRows keys = keysOf(*place_.section);
        const bool byKey = std::any_of(keys.begin(), keys.end(),
                                       [](const EboKeyRow* key) { return key->kind == EboKeyKind::MaskBit; });
        if (place_.load->maskless != 0 || byKey) return;
        const bool head = place_.isContainer();
        if (head && row_.masked && !row_.enabled) say("the dump prints its lines whatever the status");
        if (head) return;
        const bool usual = row_.heading == std::string(place_.section->name) + ":";
        if (row_.lines > 0 && !usual) say("the dump heads its lines " + inQuotes(row_.heading));
        if (row_.enabled && row_.lines == 0)
            say("the bit is set but there is no record: the dump leaves it out");
    }

    const Load& load_;
    const SectionPlace& place_;
    KaMetaData keys_;
    ModuleRow row_ = {};
};

}  // namespace

const char* effectOf(const ModuleRow& row) {
    const bool lost = !row.place->record.empty() && !row.recorded && !row.place->leavesNoRecordWhenDisabled();
    if (!row.masked) return "loaded";
    if (lost) return "missing";
    return row.enabled ? "enabled" : "disabled";
}

std::vector<MaskValue> masksOf(const EboLoad& load, const Tuning& tuning) {
    std::vector<MaskValue> masks;
    for (const SectionPlace& place : sectionPlaces()) {
        const int32_t* const mask = place.maskOf(tuning);
        if (std::strcmp(place.root, load.root) != 0 || mask == nullptr || load.maskless != 0) continue;
        const bool seen = std::any_of(masks.begin(), masks.end(),
                                      [&](const MaskValue& other) { return other.name == place.mask; });
        if (!seen) masks.push_back({place.mask, *mask});
    }
    return masks;
}

std::vector<ModuleRow> moduleRows(const Load& load) {
    std::vector<ModuleRow> rows;
    for (const SectionPlace& place : sectionPlaces()) {
        if (place.isIn(load.tuning)) rows.push_back(RowMaker(load, place).run());
    }
    return rows;
}
