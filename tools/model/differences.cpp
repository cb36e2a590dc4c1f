#include "model/differences.h"

#include <algorithm>
#include <cstring>

#include "model/places.h"
#include "model/values.h"

namespace {

const Value kNone = {Value::None, "none"};

// One section of both tunings.
class SectionPair {
public:
    SectionPair(const SectionPlace& place, const Tuning& from, const Tuning& to, Differences& out)
        : place_(place), from_(from), to_(to), out_(out) {}

    void compare() {
        const bool enabled = isEnabled(place_, from_);
        const bool masked = place_.load->maskless == 0 && place_.maskOf(from_) != nullptr;
        if (masked && enabled != isEnabled(place_, to_))
            add(out_.switches, "", onOff(enabled), onOff(!enabled));
        const void* from = place_.recordOf(from_);
        const void* to = place_.recordOf(to_);
        if (from != nullptr && to != nullptr) {
            for (const EboKeyRow* row : keysOf(*place_.section)) compareKey(from, to, *row);
            for (const EboKeyRow* row : fieldsWithoutKey(*place_.section)) compareKey(from, to, *row);
        } else if (from != to && !place_.leavesNoRecordWhenDisabled()) {  // else its bit says the same
            add(out_.switches, "", isRecord(from), isRecord(to));
        } else if (from == to) {
            for (const EboKeyRow* row : keysOf(*place_.section)) {
                if (row->kind == EboKeyKind::MaskBit) compareMaskBit(*row);
            }
        }
    }

private:
    static Value onOff(bool enabled) { return {Value::Switch, enabled ? "enabled" : "disabled"}; }
    static Value isRecord(const void* record) {
        return record != nullptr ? Value{Value::Note, "loaded"} : kNone;
    }

    void add(std::vector<Difference>& list, const std::string& suffix, Value from, Value to) {
        list.push_back({nameOf(place_) + suffix, std::move(from), std::move(to)});
    }
    void addValue(const EboKeyRow& row, const std::string& suffix, Value from, Value to) {
        add(out_.values, std::string(".") + row.key + suffix, std::move(from), std::move(to));
    }

    void compareKey(const void* from, const void* to, const EboKeyRow& row) {
        if (row.kind == EboKeyKind::Word) return compareWord(from, to, row);
        if (row.kind == EboKeyKind::ChannelMap) return compareMap(row);
        const Numbers numbers = numbersOf(row);
        const size_t size = numbers.type == EboKeyKind::Int16 ? sizeof(int16_t) : sizeof(int32_t);
        for (size_t i = 0; i < numbers.count; ++i) {
            const size_t offset = numbers.offset + i * numbers.stride;
            if (std::memcmp(fieldAt(from, offset), fieldAt(to, offset), size) == 0) continue;
            const std::string index = numbers.count > 1 ? "[" + std::to_string(i) + "]" : "";
            addValue(row, index, {Value::Number, numberText(from, numbers, i)},
                     {Value::Number, numberText(to, numbers, i)});
        }
    }

    // No word is ever empty: an empty one loads as none.
    void compareWord(const void* from, const void* to, const EboKeyRow& row) {
        const auto valueOf = [&row](const void* record) {
            const std::string word = wordText(record, row);
            return word.empty() ? kNone : Value{Value::Word, word};
        };
        const Value a = valueOf(from);
        const Value b = valueOf(to);
        if (a.text != b.text || a.kind != b.kind) addValue(row, "", a, b);
    }

    void compareMap(const EboKeyRow& row) {
        const int16_t* from = from_.capture->aec->Array_list;
        const int16_t* to = to_.capture->aec->Array_list;
        const int fromCount = from != nullptr ? from_.channels : 0;
        const int toCount = to != nullptr ? to_.channels : 0;
        if (fromCount != toCount) {
            addValue(row, ".channels", {Value::Number, std::to_string(fromCount)},
                     {Value::Number, std::to_string(toCount)});
        }
        for (int i = 0; i < std::max(fromCount, toCount); ++i) {
            const Value a = i < fromCount ? Value{Value::Number, std::to_string(from[i])} : kNone;
            const Value b = i < toCount ? Value{Value::Number, std::to_string(to[i])} : kNone;
            if (a.text != b.text) addValue(row, "[" + std::to_string(i) + "]", a, b);
        }
    }

    // Only whether it is 1 is loaded.
    void compareMaskBit(const EboKeyRow& row) {
        const auto isOne = [this, &row](const Tuning& tuning) {
            return (*place_.maskOf(tuning) & bitOf(row)) != 0;
        };
        if (isOne(from_) == isOne(to_)) return;
        const auto valueOf = [](bool one) {
            return one ? Value{Value::Number, "1"} : Value{Value::Note, "not 1"};
        };
        addValue(row, "", valueOf(isOne(from_)), valueOf(isOne(to_)));
    }

    const SectionPlace& place_;
    const Tuning& from_;
    const Tuning& to_;
    Differences& out_;
};

void comparePart(const EboLoad& load, bool from, bool to, Differences& out) {
    const auto valueOf = [](bool there) { return there ? Value{Value::Note, "loaded"} : kNone; };
    if (from != to) out.switches.push_back({load.root, valueOf(from), valueOf(to)});
}

}  // namespace

Differences differencesOf(const Tuning& from, const Tuning& to) {
    Differences out;
    comparePart(kEboLoads[kEboFullLoad], from.capture != nullptr, to.capture != nullptr, out);
    comparePart(kEboLoads[kEboAoLoad], from.playback != nullptr, to.playback != nullptr, out);
    comparePart(kEboLoads[kEboAgcLoad], from.gain != nullptr, to.gain != nullptr, out);
    for (const SectionPlace& place : sectionPlaces()) {
        if (place.isIn(from) && place.isIn(to)) SectionPair(place, from, to, out).compare();
    }
    return out;
}
