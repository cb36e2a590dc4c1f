// What holds for every key, one test instance per key.
#include <limits>

#include "sections/reading.h"

namespace {

std::string nameOf(const testing::TestParamInfo<Key>& info) {
    return std::string(info.param.section) + "_" + info.param.name;
}

std::vector<Key> keysWhere(bool (*condition)(const Key&)) {
    std::vector<Key> keys;
    for (const Key& key : allKeys())
        if (condition(key)) keys.push_back(key);
    return keys;
}

bool isRequired(const Key& key) {
    return key.missing != kOptional;
}
bool isStatus(const Key& key) {
    return key.name == std::string("status");
}

template <Kind kind>
bool isOfKind(const Key& key) {
    return key.field.kind == kind;
}

// A map that was taken stays allocated when a later key of "aec" is missing.
void expectMapToLeak(Reading* reading, const Key& key) {
    if (reading->section.name == std::string("aec") && !isStatus(key)) reading->host.expectLeaks(1);
}

void expectMessageOf(const Key& key, Reading* reading) {
    SCOPED_TRACE(reading->keys.dump());
    const int before = reading->mask;
    const int bit = isStatus(key) || reading->keys["status"] != "enable" ? 0 : reading->section.bit;
    expectMapToLeak(reading, key);
    reading->run();
    EXPECT_TRUE(reading->failed);
    EXPECT_EQ(reading->record, nullptr);
    EXPECT_EQ(reading->mask, before | bit);
    expectLog(reading->host, reading->expectedLines(key.name));
}

class RequiredKey : public testing::TestWithParam<Key> {};
INSTANTIATE_TEST_SUITE_P(Each, RequiredKey, testing::ValuesIn(keysWhere(isRequired)), nameOf);

TEST_P(RequiredKey, IsReportedOnceWhenMissing) {
    Reading reading(GetParam().section);
    reading.keys.erase(GetParam().name);
    expectMessageOf(GetParam(), &reading);
}

TEST_P(RequiredKey, IsReportedWhenAllLaterKeysAreMissingToo) {
    Reading reading(GetParam().section);
    bool later = false;
    for (const Key& key : keysOf(GetParam().section)) {
        later = later || key.name == std::string(GetParam().name);
        if (later) reading.keys.erase(key.name);
    }
    expectMessageOf(GetParam(), &reading);
}

TEST_P(RequiredKey, OfTheWrongTypeCountsAsMissing) {
    const json no_integers = {"7", "", 1.5, 7.0, true, nullptr, {7}, {{"a", 7}}, 2147483648U, -2147483649LL};
    const json no_numbers = {"0.5", "", true, false, nullptr, {0.5}, {{"a", 0.5}}};
    const json no_texts = {7, 1.5, true, nullptr, {"enable"}, {{"a", "enable"}}};
    const Call call = GetParam().call;
    for (const json& wrong : call == Call::Int32   ? no_integers
                             : call == Call::Float ? no_numbers
                                                   : no_texts) {
        Reading reading(GetParam().section);
        reading.keys[GetParam().name] = wrong;
        expectMessageOf(GetParam(), &reading);
    }
}

TEST_P(RequiredKey, IsLookedUpByItsExactName) {
    std::string other = GetParam().name;
    other[0] = static_cast<char>(other[0] ^ 0x20);
    for (const std::string& name :
         {other, GetParam().name + std::string("_"), " " + std::string(GetParam().name)}) {
        Reading reading(GetParam().section);
        reading.keys[name] = reading.keys[GetParam().name];
        reading.keys.erase(GetParam().name);
        expectMessageOf(GetParam(), &reading);
    }
}

TEST_P(RequiredKey, LeavesTheBitsThatWereSetBefore) {
    Reading reading(GetParam().section);
    reading.keys.erase(GetParam().name);
    reading.mask = std::numeric_limits<int>::max() & ~reading.section.bit;
    expectMessageOf(GetParam(), &reading);
}

bool isRequiredWhenDisabled(const Key& key) {
    return isRequired(key) && !isStatus(key) && key.section != std::string("delay");
}

class KeyOfDisabledSection : public testing::TestWithParam<Key> {};
INSTANTIATE_TEST_SUITE_P(Each, KeyOfDisabledSection, testing::ValuesIn(keysWhere(isRequiredWhenDisabled)),
                         nameOf);

TEST_P(KeyOfDisabledSection, IsRequiredAllTheSame) {
    Reading reading(GetParam().section);
    reading.keys["status"] = "disable";
    reading.keys.erase(GetParam().name);
    expectMessageOf(GetParam(), &reading);
}

bool isStored(const Key& key) {
    return key.field.kind != Kind::None;
}

class StoredKey : public testing::TestWithParam<Key> {};
INSTANTIATE_TEST_SUITE_P(Each, StoredKey, testing::ValuesIn(keysWhere(isStored)), nameOf);

TEST_P(StoredKey, IsFoundInItsField) {
    Reading reading(GetParam().section);
    reading.run();
    ASSERT_FALSE(reading.failed);
    EXPECT_EQ(GetParam().field.read(reading.bytes()), stored(GetParam(), GetParam().sample));
}

void expectStored(const Key& key, const json& value, const json& want) {
    SCOPED_TRACE(value.dump());
    Reading reading(key.section);
    reading.keys[key.name] = value;
    reading.run();
    ASSERT_FALSE(reading.failed);
    EXPECT_EQ(key.field.read(reading.bytes()), want);
    for (const Key& other : keysOf(key.section)) {  // and nowhere else
        if (!other.field.read || other.name == std::string(key.name)) continue;
        EXPECT_EQ(other.field.read(reading.bytes()), stored(other, other.sample)) << other.name;
    }
}

class Int16Key : public testing::TestWithParam<Key> {};
INSTANTIATE_TEST_SUITE_P(Each, Int16Key, testing::ValuesIn(keysWhere(isOfKind<Kind::Int16>)), nameOf);

TEST_P(Int16Key, KeepsTheLow16Bits) {
    expectStored(GetParam(), 32767, 32767);
    expectStored(GetParam(), -32768, -32768);
    expectStored(GetParam(), 40000, -25536);
    expectStored(GetParam(), 65535, -1);
    expectStored(GetParam(), 65537, 1);
    expectStored(GetParam(), 70000, 4464);
    expectStored(GetParam(), -32769, 32767);
    expectStored(GetParam(), std::numeric_limits<int>::max(), -1);
    expectStored(GetParam(), std::numeric_limits<int>::min(), 0);
}

class Int32Key : public testing::TestWithParam<Key> {};
INSTANTIATE_TEST_SUITE_P(Each, Int32Key, testing::ValuesIn(keysWhere(isOfKind<Kind::Int32>)), nameOf);

TEST_P(Int32Key, KeepsAll32Bits) {
    expectStored(GetParam(), 0, 0);
    expectStored(GetParam(), -1, -1);
    expectStored(GetParam(), 70000, 70000);
    expectStored(GetParam(), std::numeric_limits<int>::max(), std::numeric_limits<int>::max());
    expectStored(GetParam(), std::numeric_limits<int>::min(), std::numeric_limits<int>::min());
}

class FlagKey : public testing::TestWithParam<Key> {};
INSTANTIATE_TEST_SUITE_P(Each, FlagKey, testing::ValuesIn(keysWhere(isOfKind<Kind::Flag>)), nameOf);

TEST_P(FlagKey, IsOneForAnyOtherValueThanZero) {
    expectStored(GetParam(), 0, 0);
    for (const int value : {1, 5, -1, 2, 256, 65536, std::numeric_limits<int>::min()})
        expectStored(GetParam(), value, 1);
}

class FloatKey : public testing::TestWithParam<Key> {};
INSTANTIATE_TEST_SUITE_P(Each, FloatKey, testing::ValuesIn(keysWhere(isOfKind<Kind::Float>)), nameOf);

TEST_P(FloatKey, IsStoredAsTheNearestFloat) {
    for (const float value :
         {0.1F, -0.3F, 16777216.0F, 3.4028235e38F, -3.4028235e38F, 1.17549435e-38F, 1e-45F})
        expectStored(GetParam(), static_cast<double>(value), static_cast<double>(value));
    expectStored(GetParam(), 0.1, static_cast<double>(0.1F));
    expectStored(GetParam(), 7, 7.0);
    Reading reading(GetParam().section);
    reading.keys[GetParam().name] = -0.0;
    reading.run();
    EXPECT_TRUE(std::signbit(GetParam().field.read(reading.bytes()).get<double>()));
}

}  // namespace
