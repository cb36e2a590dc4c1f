#include "report/export.h"

#include <cmath>
#include <cstring>

#include "model/places.h"
#include "model/values.h"
#include "report/json_writer.h"

namespace {

class Exporter {
public:
    explicit Exporter(const Tuning& tuning) : tuning_(tuning) {}

    Export run() {
        json_.beginObject();
        const char* root = nullptr;
        for (const SectionPlace& place : sectionPlaces()) {
            if (!place.isIn(tuning_) && !(place.isContainer() && tuning_.capture)) continue;
            if (root != place.root) {
                if (root != nullptr) json_.endObject();
                root = place.root;
                json_.key(root).beginObject();
            }
            writeSection(place);
        }
        if (root != nullptr) json_.endObject();
        json_.endObject();
        return {json_.document(), losses_};
    }

private:
    void lose(const std::string& sentence) { losses_.push_back(sentence); }

    // A whole file loads only with all of its required sections; single components are lenient.
    bool isWhole() const {
        return tuning_.capture && tuning_.capture->aec != nullptr && tuning_.capture->bf != nullptr;
    }

    void writeSection(const SectionPlace& place) {
        const void* record = place.recordOf(tuning_);
        const bool missing = !place.record.empty() && record == nullptr;
        const bool needed = place.load == rootLoads().front() && isWhole();
        if (missing && !needed) return;
        const bool enabled = isEnabled(place, tuning_) && !missing;
        json_.key(place.section->name).beginObject();
        json_.key("status").text(enabled ? "enable" : "disable");
        if (missing && isEnabled(place, tuning_))
            lose(nameOf(place) + " is enabled but has no record: disabled");
        if (missing && !place.leavesNoRecordWhenDisabled())
            lose(nameOf(place) + " has no record: read back, it has a zero one");
        if (enabled || place.readWhenDisabled()) writeKeys(place, record);
        json_.endObject();
    }

    void writeKeys(const SectionPlace& place, const void* record) {
        const std::string zeros(place.section->recordSize, '\0');
        for (const EboKeyRow* row : keysOf(*place.section)) {
            writeKey(place, record != nullptr ? record : zeros.data(), *row);
        }
        if (record == nullptr) return;
        for (const EboKeyRow* row : fieldsWithoutKey(*place.section)) checkFixed(place, record, *row);
    }

    void writeKey(const SectionPlace& place, const void* record, const EboKeyRow& row) {
        if (row.kind == EboKeyKind::MaskBit) {
            const bool one = (*place.maskOf(tuning_) & bitOf(row)) != 0;
            json_.key(row.key).number(one ? "1" : "0");
            return;
        }
        if (row.kind == EboKeyKind::ChannelMap) {
            writeMap(place, record, row);
            return;
        }
        json_.key(row.key);
        if (row.kind == EboKeyKind::Float) {
            writeFloat(place, record, row);
        } else if (row.kind == EboKeyKind::Int16 || row.kind == EboKeyKind::Int32 ||
                   row.kind == EboKeyKind::Flag) {
            json_.number(valueText(tuning_, record, row));
        } else {
            json_.text(valueText(tuning_, record, row));
        }
    }

    void writeFloat(const SectionPlace& place, const void* record, const EboKeyRow& row) {
        float value;
        std::memcpy(&value, fieldAt(record, row.offset), sizeof(value));
        if (std::isnan(value)) {
            lose(nameOf(place, row) + " is not a number, which JSON cannot say: read back, it is 0");
            json_.number("0.0");
        } else if (std::isinf(value)) {
            json_.number(value < 0 ? "-1e999" : "1e999");
        } else {
            json_.number(floatText(value));
        }
    }

    // The key is optional: without a map it is left out.
    void writeMap(const SectionPlace& place, const void* record, const EboKeyRow& row) {
        const std::string map = valueText(tuning_, record, row);
        if (map.empty()) return;
        json_.key(row.key).text(map);
        if ((tuning_.capture->aec->model_aec_en & EBO_AEC_CHN_MAP) == 0) {
            lose(nameOf(place, row) + " is the shared map: read back, the record has a map of its own");
        }
    }

    // What a reader leaves in a field that has no key.
    void checkFixed(const SectionPlace& place, const void* record, const EboKeyRow& row) {
        const std::string value = numberText(record, numbersOf(row), 0);
        const std::string fixed = valueWithoutKey(row);
        if (value != fixed)
            lose(nameOf(place, row) + " is " + value + " and has no key: read back, it is " + fixed);
    }

    const Tuning& tuning_;
    JsonWriter json_;
    std::vector<std::string> losses_;
};

}  // namespace

Export exportText(const Tuning& tuning) {
    return Exporter(tuning).run();
}
