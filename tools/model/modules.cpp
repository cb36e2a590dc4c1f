#include "model/modules.h"

#include <cstring>

#include "model/facts.h"
#include "model/module_dump.h"
#include "report/json_writer.h"

namespace {

class RowMaker {
public:
    RowMaker(const Load& load, const SectionPlace& place) : load_(load), place_(place) {
        load.document->getOptions(place.root, place.section->name, &keys_);
    }

    ModuleRow run() {
        const DumpLines lines = linesOfSection(place_, load_.tuning);
        row_.place = &place_;
        row_.enabled = isEnabled(place_, load_.tuning);
        row_.recorded = place_.recordOf(load_.tuning) != nullptr;
        row_.lines = lines.size();
        if (!lines.empty()) row_.heading = lines.front();
        const char* status = nullptr;
        row_.asked = keys_.findCString("status", &status) ? status : "-";
        explainStatus(status);
        if (is(kEboAecSection)) explainAec();
        if (is(kEboDelaySection)) explainDelay();
        if (is(kEboGscSection)) explainGsc();
        if (is(kEboAgcSection)) explainAgc();
        if (is(kEboWakeupSection)) explainWakeup();
        if (is(kEboAinrSection)) explainAinr();
        explainDump();
        return std::move(row_);
    }

private:
    bool is(const EboSection& section) const { return place_.section == &section; }
    void say(const std::string& sentence) { row_.why.push_back(sentence); }

    // The message about the first of the section's keys that was missing; empty when none was.
    std::string complaint() const {
        for (const LogMessage& message : load_.messages) {
            for (size_t i = 0; i < place_.section->rowCount; ++i) {
                const EboKeyRow& row = place_.section->rows[i];
                if (row.missing != nullptr && message.line == row.line && message.format == row.missing) {
                    return message.text;
                }
            }
        }
        return "";
    }

    void explainStatus(const char* status) {
        const bool missing = place_.record != nullptr && !row_.recorded;
        if (missing && !is(kEboDelaySection)) {
            say("not loaded: " + complaint() + "; its slot stays null");
            return;
        }
        if (place_.record == nullptr && !complaint().empty()) {
            say("not loaded: " + complaint());
            return;
        }
        if (row_.enabled || status == nullptr || place_.root == kGainRoot) return;
        if (util_strcasecmp(status, "disable") != 0 && !is(kEboDelaySection)) {
            say(quoted(status) + " is not \"enable\": disabled");
        }
        if (place_.root != kCaptureRoot || !place_.required) return;
        if (!place_.readWhenDisabled || place_.section->rowCount == 1) {
            say("still mandatory: without the section the whole load fails");
        } else {
            say("still mandatory: read in full, a missing key fails the whole load");
        }
    }

    void explainAec() {
        const EboAecParam& aec = *load_.tuning.capture->aec;
        if ((aec.model_aec_en & EBO_AEC_CHN_MAP) != 0) {
            say("channel map of " + std::to_string(load_.tuning.channels) +
                " channels: bit 0x2 of aec.model_aec_en");
            return;
        }
        const char* map = nullptr;
        const bool given = keys_.findCString("mic_chn_map", &map);
        say(std::string("no channel map: ") +
            (given ? "mic_chn_map asks for no channel" : "mic_chn_map is missing or no text") +
            ", Array_list is null");
    }

    void explainDelay() {
        if (row_.recorded) {
            say("bit 0x1 of aec.model_aec_en is claimed because there is a record");
        } else if (!complaint().empty()) {
            say("no record, so no bit: " + complaint() + "; the load goes on without it");
        } else {
            say("read no further than its status: no record, no bit; the load goes on");
        }
    }

    // Status and method each have a bit of their own; the dump goes by the method alone.
    void explainGsc() {
        if (load_.tuning.capture->bf == nullptr) return;
        const bool method = (load_.tuning.capture->bf->model_en & EBO_BF_GSC_METHOD) != 0;
        const std::string bit = std::string("bit 0x100 is ") + (method ? "set" : "clear") + " and the dump ";
        if (row_.enabled && method) say("method is 1: " + bit + "prints a gsc block");
        if (row_.enabled && !method) say("method is not 1: " + bit + "prints no gsc block, enabled or not");
        if (!row_.enabled && method)
            say("method is 1: " + bit + "prints \"gsc: enabled\" although the module is disabled");
        if (!row_.enabled && !method) say("method is not 1: bit 0x100 is clear");
    }

    void explainAgc() {
        if (place_.root == kGainRoot)
            say("the status has no effect: who loads this part keeps no mask, and no dump prints it");
        if (row_.recorded) say("sample_rate 16000 and frame_len 256 are fixed and never printed");
    }

    void explainWakeup() {
        if (!row_.enabled) {
            say("its keys are not read while bit 0x2 is clear: the record is all zero, wakeup_frames too");
            return;
        }
        say("its keys are read because bit 0x2 is set");
        for (const LogMessage& message : load_.messages) {
            const bool complaint = message.error && message.function == "parseEboWakeupConfigs";
            if (complaint && message.text.compare(0, 4, "    ") != 0)
                say("the log complains: " + message.text);
        }
    }

    void explainAinr() {
        if (!row_.recorded) return;
        const char* path = nullptr;
        const bool given = keys_.findCString("model_path", &path) && path[0] != '\0';
        if (row_.enabled && !given) say("enabled without a model: the engine gets a null model_path");
        if (!row_.enabled && given) say("model_path is not looked at while the module is disabled");
    }

    void explainDump() {
        if (place_.root == kGainRoot || is(kEboGscSection)) return;
        const bool head = is(kEboAecSection) || is(kEboBfSection);
        if (head && !row_.enabled) say("the dump prints its lines whatever the status");
        if (head) return;
        const bool usual = row_.heading == std::string(place_.section->name) + ":";
        if (row_.lines > 0 && !usual) say("the dump heads its lines " + quoted(row_.heading));
        if (row_.enabled && row_.lines == 0)
            say("the bit is set but there is no record: the dump leaves it out");
    }

    const Load& load_;
    const SectionPlace& place_;
    KaMetaData keys_;
    ModuleRow row_ = {};
};

}  // namespace

std::vector<ModuleRow> moduleRows(const Load& load) {
    std::vector<ModuleRow> rows;
    for (const SectionPlace& place : sectionPlaces()) {
        const bool container = place.section == &kEboAecSection || place.section == &kEboBfSection;
        const bool there = container || place.root == kGainRoot ? place.recordOf(load.tuning) != nullptr
                                                                : place.maskOf(load.tuning) != nullptr;
        if (there) rows.push_back(RowMaker(load, place).run());
    }
    return rows;
}
