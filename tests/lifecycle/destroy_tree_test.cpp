// The destroy functions of the beamformer and of the roots.
#include <cstdlib>

#include "filled_records.h"

using ka_recording::Op;
using testing::Contains;
using testing::ElementsAre;

namespace {

std::vector<std::string> joined(std::initializer_list<std::vector<std::string>> lists) {
    std::vector<std::string> all;
    for (const auto& list : lists) all.insert(all.end(), list.begin(), list.end());
    return all;
}

TEST(Destroy, ReleasesTheModulesOfTheBeamformerInTheirOrder) {
    Host host;
    EboBeamFormParam* bf = makeBeamForm();
    destroyEboBeamFormConfig(&bf);
    EXPECT_EQ(bf, nullptr);
    expectReleases(host, kBeamFormReleases);
}

TEST(Destroy, HandsTheEmptySlotsOfTheBeamformerToTheirDestroyFunctions) {
    Host host;
    auto* bf = make<EboBeamFormParam>("bf");
    bf->wakeup = makeWakeup();
    bf->ainr = makeAiNR();
    destroyEboBeamFormConfig(&bf);
    EXPECT_EQ(bf, nullptr);
    expectReleaseCalls(host, {"safe_free null destroyEboDereverbConfig", "safe_free null destroyEboNlpConfig",
                              "safe_free null destroyEboAnrConfig", "safe_free null destroyEboAgcConfig",
                              "safe_free null destroyEboCngConfig", "safe_free null destroyEboDtdConfig",
                              "safe_free null destroyEboAesConfig", "safe_free null destroyEboHowlConfig",
                              "safe_free null destroyEboDoaConfig", "safe_free #3 destroyEboWakeupConfig",
                              "safe_free #4 destroyEboWakeupConfig", "safe_free #2 destroyEboWakeupConfig",
                              "safe_free #6 destroyEboAiNRConfig", "safe_free #5 destroyEboAiNRConfig",
                              "safe_free #1 destroyEboBeamFormConfig"});
}

TEST(Destroy, LeavesTheReservedSlotOfTheBeamformerAlone) {
    Host host;
    EboBeamFormParam* bf = makeBeamForm();
    void* const reserved = ka_mem_malloc(1, "reserved");
    bf->reserved = reserved;
    destroyEboBeamFormConfig(&bf);
    expectReleases(host, kBeamFormReleases);
    std::free(reserved);
}

TEST(Destroy, TouchesNothingForANullContainerOrRoot) {
    Host host;
    EboBeamFormParam* bf = nullptr;
    KAEboParam* full = nullptr;
    KAEboParam* playback = nullptr;
    destroyEboBeamFormConfig(&bf);
    destroyEboConfig(&full);
    destroyEboAoConfig(&playback);
    EXPECT_EQ(bf, nullptr);
    EXPECT_EQ(full, nullptr);
    EXPECT_EQ(playback, nullptr);
    expectReleaseCalls(host, {});
}

TEST(Destroy, ReleasesEchoCancellerAndBeamformerBeforeTheirRoot) {
    Host host;
    auto* ebo = make<KAEboParam>("root");
    ebo->aec = makeAec();
    ebo->bf = makeBeamForm();
    destroyEboConfig(&ebo);
    EXPECT_EQ(ebo, nullptr);
    expectReleases(host, joined({kAecReleases, kBeamFormReleases, {"safe_free root by destroyEboConfig"}}));
}

TEST(Destroy, ReleasesThePlaybackPathBeforeItsRoot) {
    Host host;
    auto* ebo = make<KAEboParam>("root");
    ebo->rx = makeRx();
    destroyEboAoConfig(&ebo);
    EXPECT_EQ(ebo, nullptr);
    expectReleases(host, joined({kRxReleases, {"safe_free root by destroyEboAoConfig"}}));
}

TEST(Destroy, ReleasesAnEmptyRootOfEitherKind) {
    Host host;
    auto* full = make<KAEboParam>("full");
    auto* playback = make<KAEboParam>("playback");
    destroyEboConfig(&full);
    destroyEboAoConfig(&playback);
    EXPECT_EQ(full, nullptr);
    EXPECT_EQ(playback, nullptr);
    expectReleaseCalls(host, {"safe_free null destroyEboAecConfig", "safe_free #1 destroyEboConfig",
                              "safe_free null destroyEboRxConfig", "safe_free #2 destroyEboAoConfig"});
}

TEST(Destroy, LeavesThePlaybackPathOfAFullRoot) {
    Host host;
    KAEboParam* ebo = createEboConfigs();
    EboRxParam* rx = createEboRxconfig();
    ebo->rx = rx;
    destroyEboConfig(&ebo);
    EXPECT_EQ(rx->model_en, 1);
    EXPECT_EQ(rx->anr->swU, 10);
    if constexpr (Host::kRecords) {
        EXPECT_THAT(leaks(host.recorder()), ElementsAre("createEboRxconfig", "createEboAnrConfig:2"));
    }
    destroyEboRxConfig(&rx);
}

TEST(Destroy, LeavesTheCapturePathOfAPlaybackRoot) {
    Host host;
    auto* ebo = make<KAEboParam>("root");
    EboAecParam* aec = makeAec();
    EboBeamFormParam* bf = makeBeamForm();
    ebo->aec = aec;
    ebo->bf = bf;
    destroyEboAoConfig(&ebo);
    expectReleases(host, {"safe_free root by destroyEboAoConfig"});
    destroyEboAecConfig(&aec);
    destroyEboBeamFormConfig(&bf);
}

TEST(Destroy, NullsThePointersOfARecordBeforeItsRelease) {
    Host host;
    auto* capture = make<KAEboParam>("root");
    capture->aec = makeAec();
    capture->bf = makeBeamForm();
    auto* playback = make<KAEboParam>("root");
    playback->rx = makeRx();
    destroyEboConfig(&capture);
    destroyEboAoConfig(&playback);
    EXPECT_EQ(capture, nullptr);
    EXPECT_EQ(playback, nullptr);
    if constexpr (Host::kRecords) {
        const auto blocks = host.recorder().only({Op::Malloc, Op::Strdup});
        for (const auto& event : host.recorder().only({Op::SafeFree})) {
            const auto& made = blocks.at(static_cast<size_t>(event.block) - 1);
            if (made.op == Op::Strdup) continue;
            EXPECT_EQ(event.bytes, std::string(made.size, '\0')) << made.name;
        }
    }
}

TEST(Destroy, ReleasesADefaultTreeWhole) {
    Host host;
    KAEboParam* ebo = createEboConfigs();
    destroyEboConfig(&ebo);
    EXPECT_EQ(ebo, nullptr);
    if constexpr (Host::kRecords) {
        const auto made = calls(host.recorder(), {Op::SafeFree});
        EXPECT_THAT(made, Contains("safe_free null destroyEboWakeupConfig"));
        EXPECT_THAT(made, Contains("safe_free null destroyEboAiNRConfig"));
    }
    expectReleases(host, {"safe_free createEboAecConfig by destroyEboAecConfig",
                          "safe_free createEboDereverbConfig by destroyEboDereverbConfig",
                          "safe_free createEboNlpconfig by destroyEboNlpConfig",
                          "safe_free createEboAnrConfig by destroyEboAnrConfig",
                          "safe_free createEboAgcConfig by destroyEboAgcConfig",
                          "safe_free createEboCngConfig by destroyEboCngConfig",
                          "safe_free createEboDtdConfig by destroyEboDtdConfig",
                          "safe_free createEboAesconfig by destroyEboAesConfig",
                          "safe_free createEboBeamFormConfig by destroyEboBeamFormConfig",
                          "safe_free createEboConfigs by destroyEboConfig"});
}

}  // namespace
