#include "model/readers.h"

#include <strings.h>

#include "model/rows.h"

namespace model {

namespace {

constexpr char kRed[] = "\x1b[31m\x1b[1m";
constexpr char kGreen[] = "\x1b[32m\x1b[1m";
constexpr char kPlain[] = "\x1b[0m";
const void* const kPointer = reinterpret_cast<const void*>(UINTPTR_MAX);  // one that is set

const Value* member(const Value* object, const std::string& name) {
    if (!object) return nullptr;
    const auto found = object->members.find(name);
    return found == object->members.end() ? nullptr : &found->second;
}

bool fits(const Key& key, const Value& value) {
    if (key.kind == Kind::Float) return value.kind == Value::Kind::Integer || value.kind == Value::Kind::Real;
    if (key.isText()) return value.kind == Value::Kind::Text;
    return value.kind == Value::Kind::Integer && value.integer >= INT32_MIN && value.integer <= INT32_MAX;
}

}  // namespace

Value valueOf(const json& value) {
    if (value.is_string()) return {Value::Kind::Text, value, 0, {}};
    if (value.is_number_integer()) return {Value::Kind::Integer, value.dump(), value, {}};
    return {Value::Kind::Real, value.dump(), 0, {}};
}

void store(const Key& key, const Value& value, std::string& record) {
    if (key.kind == Kind::Flag) put<int32_t>(record, key.offset, value.integer == 0 ? 0 : 1);
    if (key.kind == Kind::Int32) put(record, key.offset, static_cast<int32_t>(value.integer));
    if (key.kind == Kind::Int16) put(record, key.offset, static_cast<int16_t>(value.integer));
    float numbers[10] = {};
    if (key.kind == Kind::Float) scanFloat(value.text, numbers[0]);
    if (key.kind == Kind::FloatRow) scanFloats(value.text.c_str(), numbers, key.count);
    for (size_t i = 0; key.kind == Kind::FloatRow ? i < key.count : key.kind == Kind::Float && i < 1; ++i)
        put(record, key.offset + i * sizeof(float), numbers[i]);
    if (key.kind == Kind::IntRow) {
        int16_t pair[2] = {};
        scanPair(value.text.c_str(), pair);
        put(record, key.offset, pair[0]);
        put(record, key.offset + sizeof pair[0], pair[1]);
    }
    if (key.kind == Kind::Bands) {  // what the text does not supply is the first list's number
        std::array<int32_t, 8> bands = {};
        constexpr size_t kBand = 2 * sizeof(int16_t);
        for (size_t i = 0; i < 8; ++i) bands[i] = get<int16_t>(record, i * kBand);
        scanBands(value.text.c_str(), bands);
        for (size_t i = 0; i < 8; ++i) put(record, key.offset + i * kBand, static_cast<int16_t>(bands[i]));
    }
}

void Readers::allocate(const std::string& name, const std::string& function, const std::string& assertion,
                       bool cleared) {
    live_[name] = ++made_;
    expectation_.assertions.emplace_back(function, assertion);
    expectation_.calls.push_back("malloc #" + std::to_string(made_) + " " + function);
    if (cleared) expectation_.calls.push_back("memset #" + std::to_string(made_) + " 0");
}

void Readers::release(const std::string& name, const std::string& safely_by) {
    const auto block = live_.find(name);
    if (block == live_.end()) return;
    expectation_.calls.push_back((safely_by.empty() ? "free #" : "safe_free #") +
                                 std::to_string(block->second) + (safely_by.empty() ? "" : " " + safely_by));
    live_.erase(block);
}

void Readers::report(const Section& section, const std::string& format, const std::string& text) {
    const Line line = {true, 2, section.reader.function, kRed + format + kPlain, kRed + text + kPlain};
    expectation_.log.push_back(line);
    expectation_.calls.push_back("err " + line.function + " " + line.text);
}

void Readers::say(const Section& section, int level, const std::string& format, const std::string& text) {
    expectation_.log.push_back({false, level, section.reader.function, format, text});
    expectation_.calls.push_back("log " + std::string(section.reader.function) + " " + text);
}

const Value* Readers::find(const Section& section, const Key& key) {
    const Value* value = member(member(member(&document_, root_), section.name), key.name);
    if (value && !fits(key, *value)) value = nullptr;
    const char* const call = key.isText() ? "findCString " : key.isInteger() ? "findInt32 " : "findFloat ";
    expectation_.calls.push_back((value ? "" : "missing ") + std::string(call) + key.name);
    return value;
}

void Readers::takeMap(const Section& section, const Key& key, const std::string& text, std::string& record) {
    const ChannelMap map = scanChannelMap(text);
    if (map.count <= 0) return;
    if (map.count > 16) {
        expectation_.aborts = true;
        return;
    }
    allocate("map", section.reader.function, "aec->Array_list != KA_NULL", false);
    say(section, 5, "mic_chn_map:%s", "mic_chn_map:" + text);
    expectation_.channels = map.count;
    std::string& channels = expectation_.parts["aec.mic_chn_map"];
    for (int i = 0; i < map.count; ++i) {
        channels.append(2, '\0');
        put(channels, channels.size() - 2, static_cast<int16_t>(map.channels[static_cast<size_t>(i)]));
    }
    put(record, key.offset, kPointer);
    put<int32_t>(record, section.key("model_aec_en").offset, 0x2);
}

void Readers::take(const Section& section, const Key& key, const Value& value, std::string& record) {
    const std::string text = value.text.c_str();  // ends at its first NUL
    if (key.kind == Kind::Map) return takeMap(section, key, text, record);
    if (key.kind != Kind::Word) return store(key, value, record);
    if (text.empty()) return;
    live_[key.name] = ++made_;
    expectation_.calls.push_back("strdup #" + std::to_string(made_) + " " + text);
    expectation_.parts[section.name + "." + key.name] = text;
    put(record, key.offset, kPointer);
}

// The complaints of the wake-up section.
void Readers::review(const Section& section, const Key& key, const std::string& record) {
    if (key.name != "wakeup_words" && key.name != "mode") return;
    const auto value = get<int32_t>(record, key.offset);
    const std::string mode = std::to_string(value);
    if (key.name == "wakeup_words") {
        if (value == 0) report(section, "the wakeup word is 0, please configure it which you need\n");
        return;
    }
    if (value < 1 || value > 3) {
        const std::string hint = ", please check mode follow these:";
        report(section, "Invalid mode: %d" + hint, "Invalid mode: " + mode + hint);
        report(section, "    mode0 - none");
        report(section, "    mode1 - oneshot only");
        report(section, "    mode2 - wakeup + command");
        report(section, "    mode3 - (oneshot) and (wakeup + command)");
    }
    const std::string current = kGreen + std::string("Current wakeup mode is: ");
    say(section, 4, current + "%d\n" + kPlain, current + mode + "\n" + kPlain);
}

bool Readers::readKeys(const Section& section, int32_t* mask, std::string& record, bool* disabled) {
    const std::string& name = section.name;
    for (const Key& key : section.keys) {
        if (key.use == Use::NoKey) {
            if (!key.sample.is_null()) store(key, valueOf(key.sample), record);
            continue;
        }
        const Value* const value = find(section, key);
        if (!value && key.use == Use::Required) {
            report(section, "find " + section.reported() + " " + key.name + " failed");
            return false;
        }
        if (key.kind != Kind::Status) {
            if (name == "gsc") {
                if (value->integer == 1) *mask |= 0x100;
            } else if (value) {
                take(section, key, *value, record);
            }
            if (expectation_.aborts) return false;
            if (name == "wakeup") review(section, key, record);
            continue;
        }
        const bool enabled = value && strcasecmp(value->text.c_str(), "enable") == 0;
        const bool playback = section.playback_bit && strcasecmp(root_.c_str(), "ebo_ao_configs") == 0;
        if (enabled && mask) *mask |= playback ? section.playback_bit : section.bit;
        if (!enabled && (name == "aec" || name == "bf" || name == "delay"))
            say(section, 5, name + ": not enable", name + ": not enable");
        *disabled = !enabled;
        // Three sections go on only when they are enabled, the wake-up by the bit in the mask.
        if (name == "delay" && !enabled) return false;
        if (name == "ainr" && !enabled) return true;
        if (name == "wakeup" && (*mask & section.bit) == 0) return true;
        if (name == "wakeup") put<int32_t>(record, section.key("wakeup_frames").offset, 180);
    }
    return true;
}

bool Readers::read(const Section& section, int32_t* mask) {
    if (!mask && section.name != "agc") return false;
    std::vector<std::string>& calls = expectation_.calls;
    const std::string function = section.reader.function;
    const Value* const keys = member(member(&document_, root_), section.name);
    const bool there = keys && keys->kind == Value::Kind::Object;
    calls.emplace_back("meta made");
    calls.push_back((there ? "getOptions " : "missing getOptions ") + root_ + "/" + section.name);
    if (section.hasRecord()) allocate(section.name, function, section.assertion);
    std::string record(section.reader.size, '\0');
    bool disabled = false;
    const bool succeeds = readKeys(section, mask, record, &disabled);
    const bool safely = section.name == "ainr" || (section.name == "delay" && disabled);
    if (!succeeds) release(section.name, safely ? function : "");
    calls.emplace_back("meta gone");
    if (succeeds && section.hasRecord()) expectation_.parts[section.name] = record;
    return succeeds;
}

void expect(const Section& section, const Value& document, const std::string& root, int32_t* mask,
            Expectation& expectation) {
    Readers in(document, root, expectation);
    expectation.failed = !in.read(section, mask);
    if (!expectation.failed) return;
    expectation.parts.clear();
    expectation.leaks = in.blocks();
}

}  // namespace model
