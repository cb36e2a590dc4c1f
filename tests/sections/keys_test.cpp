// What holds for every key of every section, one test instance per key.
#include <cmath>
#include <limits>

#include "harness/modelled.h"

using model::Key;
using model::Kind;
using model::Section;
using model::Use;

namespace {

struct KeyOf {
    std::string name;
    const Section* section;
    const Key* key;
};

std::vector<KeyOf> allKeys() {
    std::vector<KeyOf> keys;
    for (const Section& section : model::allSections())
        for (const Key& key : section.keys)
            if (key.use != Use::NoKey) keys.push_back({section.name + "_" + key.name, &section, &key});
    return keys;
}

void PrintTo(const KeyOf& key, std::ostream* out) {
    *out << key.name;
}

class EachKey : public testing::TestWithParam<KeyOf> {
protected:
    const Section& section = *GetParam().section;
    const Key& key = *GetParam().key;

    // A required key that is not found: its message alone, no record, and the bit of an enabled section.
    void expectMissing(Reading& reading) {
        SCOPED_TRACE(reading.keys.dump());
        const int before = reading.mask;
        reading.run();
        if (key.use == Use::Optional) return;
        const bool enabled = reading.keys.value("status", json()) == "enable";
        EXPECT_TRUE(reading.failed);
        EXPECT_TRUE(reading.parts.empty());
        EXPECT_EQ(reading.mask, before | (enabled ? section.bit : 0));
        if (section.name != "delay" || enabled || key.kind == Kind::Status) {
            EXPECT_EQ(reading.host.log().back().text,
                      red("find " + section.reported() + " " + key.name + " failed"));
        }
    }
};
INSTANTIATE_TEST_SUITE_P(Of, EachKey, testing::ValuesIn(allKeys()), nameOfCase<KeyOf>);

TEST_P(EachKey, IsReportedWhenMissingWithWhateverFollows) {
    Reading alone(section.name);
    alone.keys.erase(key.name);
    expectMissing(alone);
    Reading among_others(section.name);
    bool later = false;
    for (const Key& other : section.keys) {
        later = later || &other == &key;
        if (later) among_others.keys.erase(other.name);
    }
    expectMissing(among_others);
    Reading with_bits(section.name);
    with_bits.keys.erase(key.name);
    with_bits.mask = std::numeric_limits<int>::max() & ~section.bit;
    expectMissing(with_bits);
    Reading disabled(section.name);
    disabled.keys["status"] = "disable";
    disabled.keys.erase(key.name);
    expectMissing(disabled);
}

TEST_P(EachKey, OfTheWrongTypeCountsAsMissing) {
    const json no_integers = {"7", "", 1.5, 7.0, true, nullptr, {7}, {{"a", 7}}, 2147483648U, -2147483649LL};
    const json no_numbers = {"0.5", "", true, false, nullptr, {0.5}, {{"a", 0.5}}};
    const json no_texts = {7, 1.5, true, nullptr, {"enable"}, {{"a", "enable"}}};
    for (const json& wrong : key.isInteger() ? no_integers : key.isText() ? no_texts : no_numbers) {
        Reading reading(section.name);
        reading.keys[key.name] = wrong;
        expectMissing(reading);
    }
}

TEST_P(EachKey, IsLookedUpByItsExactName) {
    std::string other = key.name;
    other[0] = static_cast<char>(other[0] ^ 0x20);
    for (const std::string& name : {other, key.name + "_", " " + key.name}) {
        Reading reading(section.name);
        reading.keys[name] = reading.keys[key.name];
        reading.keys.erase(key.name);
        expectMissing(reading);
    }
}

TEST_P(EachKey, KeepsItsValueToItsLastBit) {
    if (section.name == "gsc" || key.isText()) return;
    constexpr int kMost = std::numeric_limits<int>::max();
    std::vector<std::pair<json, json>> values;  // and what is stored
    if (key.kind == Kind::Int16)
        values = {{32767, 32767}, {-32768, -32768}, {40000, -25536}, {65535, -1},    {65537, 1},
                  {70000, 4464},  {-32769, 32767},  {kMost, -1},     {-kMost - 1, 0}};
    if (key.kind == Kind::Int32)
        values = {{0, 0}, {-1, -1}, {70000, 70000}, {kMost, kMost}, {-kMost - 1, -kMost - 1}};
    if (key.kind == Kind::Flag)
        values = {{0, 0}, {1, 1}, {5, 1}, {-1, 1}, {2, 1}, {256, 1}, {65536, 1}, {-kMost - 1, 1}};
    if (key.kind == Kind::Float) {
        values = {{0.1, 0.1F}, {7, 7.0}};
        for (const float value :
             {-0.3F, 16777216.0F, 3.4028235e38F, -3.4028235e38F, 1.17549435e-38F, 1e-45F, -0.0F})
            values.emplace_back(static_cast<double>(value), static_cast<double>(value));
    }
    for (const auto& [value, want] : values) {
        Reading reading(section.name);
        reading.keys[key.name] = value;
        reading.run();
        EXPECT_EQ(reading.value(key.name), want) << value;
        if (value == 0.0 && key.kind == Kind::Float) {
            EXPECT_TRUE(std::signbit(reading.value(key.name).get<double>()));
        }
    }
}

}  // namespace
