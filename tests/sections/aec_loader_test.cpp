// The loader of the echo canceller alone: sections "aec" and "delay" of one file.
#include "sections/reading.h"

using ka_recording::Op;

namespace {

struct Loaded {
    explicit Loaded(const json& document, int leaks = 0) {
        if (leaks) host.expectLeaks(leaks);
        aec = parseEboAecConfigs(host.file(document.dump()).c_str());
    }
    ~Loaded() { destroyEboAecConfig(&aec); }
    Loaded(const Loaded&) = delete;
    Loaded& operator=(const Loaded&) = delete;

    Host host;
    EboAecParam* aec;
};

json tuning() {
    return {{"ebo_configs", {{"aec", completeKeys("aec")}, {"delay", completeKeys("delay")}}}};
}

const ExpectedLine kMapLine = info("parseEboAecConfigs", "mic_chn_map:%s", "mic_chn_map:4 chn;map:3,1,2,-7");

TEST(AecFile, HangsTheDelayRecordOnTheAecRecord) {
    const Loaded loaded(tuning());
    ASSERT_NE(loaded.aec, nullptr);
    EXPECT_EQ(loaded.aec->model_aec_en, 0x3);
    ASSERT_NE(loaded.aec->delay, nullptr);
    EXPECT_EQ(loaded.aec->delay->MaxFrame, 60);
    EXPECT_EQ(loaded.aec->delay->SmoothFactor, 0.9725F);
    EXPECT_EQ(loaded.aec->filter_len, 1024);
    EXPECT_EQ(loaded.aec->Array_list[3], -7);
    expectLog(loaded.host, {kMapLine});
}

TEST(AecFile, WithDelayAndWithoutMapHasTheDelayBitAlone) {
    json document = tuning();
    document["ebo_configs"]["aec"].erase("mic_chn_map");
    const Loaded loaded(document);
    ASSERT_NE(loaded.aec, nullptr);
    EXPECT_EQ(loaded.aec->model_aec_en, 0x1);
    expectLog(loaded.host, {});
}

struct WithoutDelay {
    const char* name;
    json delay;
    ExpectedLine line;
};

const WithoutDelay kWithoutDelay[] = {
    {"disabled", {{"status", "disable"}}, info("parseEboDelayConfigs", "delay: not enable")},
    {"not_there", nullptr, error("parseEboDelayConfigs", "find delay status failed")},
    {"incomplete", {{"status", "enable"}}, error("parseEboDelayConfigs", "find delay MaxFrame failed")},
};

class AecFileWithDelay : public testing::TestWithParam<WithoutDelay> {};
INSTANTIATE_TEST_SUITE_P(Section, AecFileWithDelay, testing::ValuesIn(kWithoutDelay),
                         nameOfCase<WithoutDelay>);

TEST_P(AecFileWithDelay, HasNoDelayRecordAndNoDelayBit) {
    json document = tuning();
    document["ebo_configs"]["delay"] = GetParam().delay;
    const Loaded loaded(document);
    ASSERT_NE(loaded.aec, nullptr);
    EXPECT_EQ(loaded.aec->delay, nullptr);
    EXPECT_EQ(loaded.aec->model_aec_en, 0x2);
    expectLog(loaded.host, {kMapLine, GetParam().line});
}

// The section's own bit goes into a mask that nobody sees.
TEST(AecFile, LooksTheSameWhetherAecIsEnabledOrNot) {
    json document = tuning();
    document["ebo_configs"]["delay"]["status"] = "disable";
    const Loaded enabled(document);
    EXPECT_EQ(enabled.aec->model_aec_en, 0x2);
    EXPECT_EQ(enabled.aec->pos, 0);
    document["ebo_configs"]["aec"]["status"] = "disable";
    const Loaded disabled(document);
    EXPECT_EQ(disabled.aec->model_aec_en, 0x2);
    expectLog(disabled.host, {info("parseEboAecConfigs", "aec: not enable"), kMapLine,
                              info("parseEboDelayConfigs", "delay: not enable")});
}

TEST(AecFile, FailsWithAecAndDoesNotReadDelay) {
    json document = tuning();
    document["ebo_configs"]["aec"].erase("look_ahead");
    document["ebo_configs"].erase("delay");
    const Loaded loaded(document, 1);
    EXPECT_EQ(loaded.aec, nullptr);
    expectLog(loaded.host, {kMapLine, error("parseEboAecConfigs", "find aec look_ahead failed")});
}

TEST(AecFile, IsReadFromItsOwnRootObject) {
    const json document = {{"ebo_ao_configs", tuning()["ebo_configs"]}};
    const Loaded loaded(document);
    EXPECT_EQ(loaded.aec, nullptr);
    expectLog(loaded.host, {error("parseEboAecConfigs", "find aec status failed")});
}

TEST(AecFile, ThatCannotBeOpenedIsNoMatterForTheLibrarysLog) {
    Host host;
    EXPECT_EQ(parseEboAecConfigs(nullptr), nullptr);
    if constexpr (Host::kRecords) {
        EXPECT_TRUE(host.recorder().events.empty());
    }
    EXPECT_EQ(parseEboAecConfigs("there is no such file"), nullptr);
    EXPECT_EQ(parseEboAecConfigs(""), nullptr);
    for (const char* text : {"", "{", "{\"ebo_configs\": }", "[1, 2", "\xff"})
        EXPECT_EQ(parseEboAecConfigs(host.file(text).c_str()), nullptr) << text;
    expectLog(host, {});
    if constexpr (Host::kRecords) {
        EXPECT_TRUE(host.recorder().only({Op::GetOptions}).empty());
        EXPECT_EQ(host.recorder().live_parsers, 0);
    }
}

TEST(AecFile, KeepsOneParserOpenForBothSections) {
    for (const bool complete : {true, false}) {
        json document = tuning();
        if (!complete) document["ebo_configs"]["aec"].erase("status");
        Loaded loaded(document);
        if constexpr (Host::kRecords) {
            std::vector<std::string> calls;
            for (const auto& call : loaded.host.recorder().only(
                     {Op::ParserMade, Op::ParseFile, Op::GetOptions, Op::MetaGone, Op::ParserGone}))
                calls.push_back(toString(call));
            std::vector<std::string> expected = {"parser made", "parseFile document-0.json",
                                                 "getOptions ebo_configs/aec", "meta gone"};
            if (complete) expected.insert(expected.end(), {"getOptions ebo_configs/delay", "meta gone"});
            expected.push_back("parser gone");
            EXPECT_EQ(calls, expected);
        }
        EXPECT_EQ(loaded.aec != nullptr, complete);
    }
}

TEST(AecFile, KeepsNothingOfTheDocument) {
    Loaded loaded(tuning());
    ASSERT_NE(loaded.aec, nullptr);
    EXPECT_EQ(loaded.aec->Array_list[0], 3);
    destroyEboAecConfig(&loaded.aec);
    EXPECT_EQ(loaded.aec, nullptr);
    if constexpr (Host::kRecords) {
        EXPECT_TRUE(loaded.host.recorder().live().empty());
    }
}

}  // namespace
