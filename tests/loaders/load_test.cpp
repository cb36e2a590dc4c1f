// Whole files and parts of them that load or fail: each compared with the model, down to the calls and the
// blocks that are released. What a line of data says does not depend on the model.
#include "harness/comma_locale.h"
#include "harness/modelled.h"

using ka_recording::Op;
using model::kLoaders;
using model::Loader;
using model::Observation;

namespace {

const char* rootOf(Loader loader) {
    return loader == Loader::Ao    ? "ebo_ao_configs"
           : loader == Loader::Agc ? "ebo_agc_configs"
                                   : "ebo_configs";
}

// Whatever the allocator hands out, a load starts from zero.
Observation expectDirtyLoad(Loader loader, const json& document) {
    SCOPED_TRACE(nameOf(loader));
    Host host;
    if constexpr (Host::kRecords) host.recorder().garbage = true;
    return expectLoad(host, loader, document.dump());
}

class EveryPlace : public testing::TestWithParam<Place> {};
INSTANTIATE_TEST_SUITE_P(, EveryPlace, testing::ValuesIn(allPlaces()), [](const auto& instance) {
    const Place& place = instance.param;
    return place.root + "_" + place.section + "_" + place.key;
});

TEST_P(EveryPlace, IsMissedByTheLoadsThatReadIt) {
    json disabled = without(model::sampleDocument(), "/ebo_configs/aec/mic_chn_map");
    for (auto& [section, keys] : disabled["ebo_configs"].items()) keys["status"] = "disable";
    for (const json& complete : {model::sampleDocument(), disabled}) {
        if (!complete.contains(json::json_pointer(GetParam().path()))) continue;
        const json document = without(complete, GetParam().path());
        for (const Loader loader : kLoaders)
            if (GetParam().root == rootOf(loader)) expectDirtyLoad(loader, document);
    }
}

TEST(Load, ReadsTheSameUnderALocaleWithADecimalComma) {
    for (const Loader loader : kLoaders) {
        const model::Parts want = expectDirtyLoad(loader, model::sampleDocument()).parts;
        const CommaLocale locale;
        Host host;
        if (loader == Loader::Agc) host.expectLeaks(1);
        void* const result = model::load(loader, host.file(model::sampleDocument().dump()).c_str());
        EXPECT_EQ(model::differences(want, partsOf(loader, result, 4)), "");
        model::destroyed(loader, result);
    }
}

TEST(Load, LooksAtItsOwnRootAlone) {
    for (const Loader loader : kLoaders) {
        const char* const root = rootOf(loader);
        expectDirtyLoad(loader, json{{root, model::sampleDocument()[root]}});
        expectDirtyLoad(loader, without(model::sampleDocument(), std::string("/") + root));
    }
}

// The bits of one section, disabled among the others or enabled alone.
TEST(Load, SetsTheBitOfEverySectionByItself) {
    for (const model::Section& section : model::allSections()) {
        json others = model::sampleDocument();
        for (auto& [name, keys] : others["ebo_configs"].items()) keys["status"] = "disable";
        const std::string place = "/ebo_configs/" + section.name + "/status";
        for (const Loader loader : {Loader::Full, Loader::Aec, Loader::BeamForm}) {
            expectDirtyLoad(loader, with(model::sampleDocument(), place, "disable"));
            expectDirtyLoad(loader, with(others, place, "Enable"));
        }
    }
}

struct Case {
    const char* name;
    Loader loader;
    json patch;           // of the complete document; null: taken out
    json masks;           // of the containers; null: the load fails
    const char* without;  // a part that is missing
    const char* said;     // last, without colours
};

json capture(const json& patch) {
    return {{"ebo_configs", patch}};
}
json playback(const json& patch) {
    return {{"ebo_ao_configs", patch}};
}
const json kOff = {{"status", "off"}};
// All modules.
const int kAll = [] {
    int bits = 0;
    for (const model::Section& section : model::allSections())
        if (section.name != "aec" && section.name != "bf") bits |= section.bit;
    return bits;
}();
constexpr char kMap[] = "mic_chn_map:4 chn;map:3,1,2,-7";
constexpr char kMode[] = "Current wakeup mode is: 2\n";

// clang-format off
const Case kCases[] = {
    {"all", Loader::Full, json::object(), {{"root", 3}, {"aec", 3}, {"bf", kAll}}, "rx", kMode},
    {"delay_disabled", Loader::Full, capture({{"delay", kOff}}), {{"root", 3}, {"aec", 2}}, "delay", kMode},
    {"delay_incomplete", Loader::Full, capture({{"delay", {{"SmoothFactor", nullptr}}}}), {{"root", 3}, {"aec", 2}}, "delay", kMode},
    {"without_delay", Loader::Full, capture({{"delay", nullptr}}), {{"root", 3}, {"aec", 2}}, "delay", kMode},
    {"without_ainr", Loader::Full, capture({{"ainr", nullptr}}), nullptr, "", "find ainr status failed"},
    {"without_howl", Loader::Full, capture({{"howl", nullptr}}), nullptr, "", "find howl status failed"},
    {"without_fast_aec", Loader::Full, capture({{"fast_aec", nullptr}}), nullptr, "", "find bf status failed"},
    {"without_method", Loader::Full, capture({{"gsc", {{"method", nullptr}}}}), nullptr, "", "find gsc method failed"},
    {"without_wakeup", Loader::Full, capture({{"wakeup", nullptr}}), {{"root", 3}, {"bf", kAll & ~0x2}}, "", kMap},
    {"paths_disabled", Loader::Full, capture({{"aec", kOff}, {"bf", kOff}}), {{"root", 0}, {"aec", 3}, {"bf", kAll}}, "", kMode},
    {"without_capture", Loader::Full, capture(nullptr), nullptr, "", "find aec status failed"},
    {"gsc_method", Loader::Full, capture({{"gsc", {{"method", 1}}}}), {{"bf", kAll | 0x100}}, "", kMode},
    {"aec_alone", Loader::Aec, json::object(), {{"aec", 3}}, "bf", kMap},
    {"aec_disabled", Loader::Aec, capture({{"aec", kOff}}), {{"aec", 3}}, "root", kMap},
    {"aec_without_map", Loader::Aec, capture({{"aec", {{"mic_chn_map", nullptr}}}, {"delay", kOff}}), {{"aec", 0}}, "delay", "delay: not enable"},
    {"aec_delay_disabled", Loader::Aec, capture({{"delay", kOff}}), {{"aec", 2}}, "delay", "delay: not enable"},
    {"aec_incomplete", Loader::Aec, capture({{"aec", {{"look_ahead", nullptr}}}}), nullptr, "", "find aec look_ahead failed"},
    {"bf_alone", Loader::BeamForm, json::object(), {{"bf", kAll}}, "aec", kMode},
    {"bf_without_doa", Loader::BeamForm, capture({{"doa", nullptr}}), {{"bf", kAll & ~0x8000}}, "doa", kMode},
    {"bf_with_half_a_dtd", Loader::BeamForm, capture({{"dtd", {{"ksiThd_low", nullptr}}}}), {{"bf", kAll}}, "dtd", kMode},
    {"bf_without_ainr", Loader::BeamForm, capture({{"ainr", nullptr}}), {{"bf", kAll & ~0x20000}}, "ainr", "find ainr status failed"},
    {"bf_without_bf", Loader::BeamForm, capture({{"bf", nullptr}}), nullptr, "", "find bf status failed"},
    {"ao_alone", Loader::Ao, json::object(), {{"root", 4}, {"rx", 3}}, "bf", ""},
    {"ao_without_howl", Loader::Ao, playback({{"howl", nullptr}}), {{"root", 4}, {"rx", 1}}, "howl", "find howl status failed"},
    {"ao_without_mode", Loader::Ao, playback({{"howl", {{"mode", nullptr}}}}), {{"root", 4}, {"rx", 3}}, "howl", "find howl mode failed"},
    {"ao_without_anr", Loader::Ao, playback({{"anr", nullptr}, {"howl", kOff}}), {{"root", 4}, {"rx", 0}}, "anr", "find anr status failed"},
    {"ao_without_root", Loader::Ao, playback(nullptr), {{"root", 4}, {"rx", 0}}, "anr", "find howl status failed"},
    {"agc_disabled", Loader::Agc, {{"ebo_agc_configs", {{"agc", kOff}}}}, json::object(), "root", ""},
    {"agc_without_root", Loader::Agc, {{"ebo_agc_configs", nullptr}}, nullptr, "", "find agc status failed"},
};
// clang-format on

class LoadCase : public testing::TestWithParam<Case> {};
INSTANTIATE_TEST_SUITE_P(Of, LoadCase, testing::ValuesIn(kCases), nameOfCase<Case>);

TEST_P(LoadCase, HasItsOutcome) {
    const Case& want = GetParam();
    json document = model::sampleDocument();
    document.merge_patch(want.patch);
    const Observation seen = expectDirtyLoad(want.loader, document);
    EXPECT_EQ(seen.failed, want.masks.is_null());
    for (const auto& [part, mask] : want.masks.items()) {
        const size_t offset = part == "aec" ? offsetof(EboAecParam, model_aec_en) : 0;
        EXPECT_EQ(json(model::get<int32_t>(seen.parts.at(part), offset)), mask) << part;
    }
    EXPECT_EQ(seen.parts.count(want.without), 0U);
    const std::string text = seen.log.empty() ? "" : seen.log.back().text;
    EXPECT_NE(text.find(want.said), std::string::npos) << text;
    EXPECT_EQ(text.empty(), *want.said == '\0');
}

// The n-th allocation of a load fails.
[[maybe_unused]] void loadWithout(Loader loader, int allocation) {
    Host host;
    host.echo();
    if constexpr (Host::kRecords) host.recorder().fail_malloc = allocation;
    model::load(loader, host.file(model::sampleDocument().dump()).c_str());
}

TEST(LoadDeathTest, WithoutMemoryEndsTheProcess) {
    if constexpr (Host::kRecords) {
        for (const Loader loader : kLoaders) {
            model::Expectation complete;
            expect(loader, model::readDocument(model::sampleDocument().dump()), complete);
            for (size_t i = 0; i < complete.assertions.size(); ++i) {
                const auto& [function, expression] = complete.assertions[i];
                EXPECT_ASSERTION(loadWithout(loader, static_cast<int>(i) + 1), function, expression);
            }
        }
    }
}

TEST(Load, AllocatesContainersOfTheirSize) {
    if constexpr (Host::kRecords) {
        const std::pair<Loader, std::vector<size_t>> sizes[] = {
            {Loader::Full, {sizeof(KAEboParam)}},
            {Loader::Ao, {sizeof(KAEboParam), sizeof(EboRxParam)}},
            {Loader::Agc, {sizeof(EboAgcParam)}}};
        for (const auto& [loader, want] : sizes) {
            Host host;
            expectLoad(host, loader, model::sampleDocument().dump());
            for (const Op op : {Op::Malloc, Op::Memset})
                for (size_t i = 0; i < want.size(); ++i)
                    EXPECT_EQ(host.recorder().only({op}).at(i).size, want[i]);
        }
    }
}

TEST(Load, MakesNothingOfANullPath) {
    for (const Loader loader : kLoaders) {
        Host host;
        EXPECT_EQ(model::load(loader, nullptr), nullptr);
        expectLog(host, {});
        if constexpr (Host::kRecords) {
            EXPECT_TRUE(host.recorder().events.empty());
        }
    }
}

TEST(Load, GivesUpInSilenceOnAFileThatCannotBeRead) {
    for (const Loader loader : kLoaders) {
        for (const char* text : {"", "{", "{\"ebo_configs\": }", "[1, 2", "\xff"}) {
            Host host;
            EXPECT_TRUE(expectLoad(host, loader, text).failed);
        }
        for (const char* path : {"/nowhere/tuning.json", ""}) {
            Host host;
            EXPECT_EQ(model::load(loader, path), nullptr);
            expectLog(host, {});
        }
    }
}

TEST(Load, MissesEverySectionOfADocumentOrARootThatIsNoObject) {
    for (const Loader loader : kLoaders) {
        for (const char* text :
             {"{}", "[]", "7", "\"ebo_configs\"", "null", "true", R"([{"ebo_configs": {}}])",
              R"({"ebo_configs": [], "ebo_ao_configs": 7, "ebo_agc_configs": "agc"})",
              R"({"ebo_configs": null, "ebo_ao_configs": {}, "ebo_agc_configs": true})"}) {
            Host host;
            const Observation seen = expectLoad(host, loader, text);
            EXPECT_NE(seen.log.at(0).text.find("status failed"), std::string::npos) << text;
        }
    }
}

// A framework takes no such name, or keeps it apart from the one before the zero.
TEST(Load, TakesNoKeyForOneThatGoesOnAfterAZero) {
    std::string text = model::sampleDocument().dump();
    for (size_t at = 0; (at = text.find("\"status\"", at)) != std::string::npos; at += 8)
        text.replace(at, 8, R"("status\u0000")");
    for (const Loader loader : kLoaders) {
        Host host;
        if (KAJsonParser().parseFile(host.file(text).c_str()) == 0) continue;
        Host own;
        EXPECT_NE(expectLoad(own, loader, text).log.at(0).text.find("status failed"), std::string::npos);
    }
}

TEST(Load, TakesWhateverIsNotZeroForSuccess) {
    for (const Loader loader : kLoaders) {
        for (const int result : {1, 2, -1, 0x100}) {
            Host host;
            if constexpr (Host::kRecords) host.recorder().file_result = result;
            EXPECT_FALSE(expectLoad(host, loader, model::sampleDocument().dump()).failed) << result;
        }
    }
}

}  // namespace
