// The destroy functions of the modules, the echo canceller and the playback path.
#include "filled_records.h"

using testing::IsEmpty;

namespace {

template <typename Record>
void expectPlain(void (*destroy)(Record**), const std::string& name) {
    Host host;
    auto* record = make<Record>("record");
    destroy(&record);
    EXPECT_EQ(record, nullptr) << name;
    destroy(&record);
    EXPECT_EQ(record, nullptr) << name;
    EXPECT_THAT(host.log(), IsEmpty()) << name;
    expectReleaseCalls(host, {"safe_free #1 " + name, "safe_free null " + name});
}

TEST(Destroy, ReleasesAPlainRecordAndHandsNullOn) {
    expectPlain(destroyEboAnrConfig, "destroyEboAnrConfig");
    expectPlain(destroyEboAgcConfig, "destroyEboAgcConfig");
    expectPlain(destroyEboDelayConfig, "destroyEboDelayConfig");
    expectPlain(destroyEboHowlConfig, "destroyEboHowlConfig");
    expectPlain(destroyEboDoaConfig, "destroyEboDoaConfig");
    expectPlain(destroyEboNlpConfig, "destroyEboNlpConfig");
    expectPlain(destroyEboDereverbConfig, "destroyEboDereverbConfig");
    expectPlain(destroyEboCngConfig, "destroyEboCngConfig");
    expectPlain(destroyEboDtdConfig, "destroyEboDtdConfig");
    expectPlain(destroyEboAesConfig, "destroyEboAesConfig");
}

TEST(Destroy, ReleasesTheEchoCancellerAfterItsDelayRecordAndItsMap) {
    Host host;
    EboAecParam* aec = makeAec();
    destroyEboAecConfig(&aec);
    EXPECT_EQ(aec, nullptr);
    expectReleases(host, kAecReleases);
}

TEST(Destroy, HandsTheEmptySlotsOfTheEchoCancellerOn) {
    Host host;
    auto* aec = make<EboAecParam>("aec");
    destroyEboAecConfig(&aec);
    EXPECT_EQ(aec, nullptr);
    expectReleaseCalls(host, {"safe_free null destroyEboDelayConfig", "safe_free null destroyEboAecConfig",
                              "safe_free #1 destroyEboAecConfig"});
}

TEST(Destroy, HandsTheDefaultMapToTheFramework) {
    Host host;
    EboAecParam* aec = createEboAecConfig();
    destroyEboAecConfig(&aec);
    EXPECT_EQ(aec, nullptr);
    expectReleaseCalls(host, {"safe_free null destroyEboDelayConfig", "safe_free foreign destroyEboAecConfig",
                              "safe_free #1 destroyEboAecConfig"});
}

TEST(Destroy, HandsANullEchoCancellerOn) {
    Host host;
    EboAecParam* aec = nullptr;
    destroyEboAecConfig(&aec);
    EXPECT_EQ(aec, nullptr);
    expectReleaseCalls(host, {"safe_free null destroyEboAecConfig"});
}

TEST(Destroy, ReleasesTheWakeUpWordsBeforeTheirRecord) {
    Host host;
    EboWakeupParam* wakeup = makeWakeup();
    destroyEboWakeupConfig(&wakeup);
    EXPECT_EQ(wakeup, nullptr);
    expectReleases(host,
                   {"safe_free first by destroyEboWakeupConfig", "safe_free second by destroyEboWakeupConfig",
                    "safe_free wakeup by destroyEboWakeupConfig"});
}

TEST(Destroy, HandsMissingWakeUpWordsOn) {
    Host host;
    auto* wakeup = make<EboWakeupParam>("wakeup");
    destroyEboWakeupConfig(&wakeup);
    EXPECT_EQ(wakeup, nullptr);
    expectReleaseCalls(host,
                       {"safe_free null destroyEboWakeupConfig", "safe_free null destroyEboWakeupConfig",
                        "safe_free #1 destroyEboWakeupConfig"});
}

TEST(Destroy, ReleasesTheModelPathBeforeItsRecord) {
    Host host;
    EboAiNRParam* ainr = makeAiNR();
    destroyEboAiNRConfig(&ainr);
    EXPECT_EQ(ainr, nullptr);
    expectReleases(host,
                   {"safe_free path by destroyEboAiNRConfig", "safe_free ainr by destroyEboAiNRConfig"});
}

TEST(Destroy, HandsAMissingModelPathOn) {
    Host host;
    auto* ainr = make<EboAiNRParam>("ainr");
    destroyEboAiNRConfig(&ainr);
    EXPECT_EQ(ainr, nullptr);
    expectReleaseCalls(host, {"safe_free null destroyEboAiNRConfig", "safe_free #1 destroyEboAiNRConfig"});
}

TEST(Destroy, SurvivesANullWakeUpRecordAndANullModelRecord) {
    Host host;
    EboWakeupParam* wakeup = nullptr;
    EboAiNRParam* ainr = nullptr;
    destroyEboWakeupConfig(&wakeup);
    destroyEboAiNRConfig(&ainr);
    EXPECT_EQ(wakeup, nullptr);
    EXPECT_EQ(ainr, nullptr);
    expectReleaseCalls(host,
                       {"safe_free null destroyEboWakeupConfig", "safe_free null destroyEboAiNRConfig"});
}

TEST(Destroy, ReleasesThePlaybackPathAfterItsModules) {
    Host host;
    EboRxParam* rx = makeRx();
    destroyEboRxConfig(&rx);
    EXPECT_EQ(rx, nullptr);
    expectReleases(host, kRxReleases);
}

TEST(Destroy, HandsTheEmptySlotsOfThePlaybackPathOn) {
    Host host;
    auto* rx = make<EboRxParam>("rx");
    destroyEboRxConfig(&rx);
    EXPECT_EQ(rx, nullptr);
    expectReleaseCalls(host, {"safe_free null destroyEboAnrConfig", "safe_free null destroyEboHowlConfig",
                              "safe_free #1 destroyEboRxConfig"});
}

TEST(Destroy, HandsANullPlaybackPathOn) {
    Host host;
    EboRxParam* rx = nullptr;
    destroyEboRxConfig(&rx);
    EXPECT_EQ(rx, nullptr);
    expectReleaseCalls(host, {"safe_free null destroyEboRxConfig"});
}

}  // namespace
