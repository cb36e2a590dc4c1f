// What a record holds after its creation; with garbage-filled memory, that nothing else was written.
#include "defaults.h"
#include "harness/bytes.h"
#include "harness/expect.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// Both kinds of memory that an allocator may hand out; the embedded framework has only the first.
std::vector<unsigned char> fills() {
    if (Host::kRecords) return {0x00, 0xa5};
    return {0x00};
}

void handOut(Host& host, unsigned char fill) {
    if constexpr (Host::kRecords) host.recorder().garbage = fill != 0;
    EXPECT_THAT(host.log(), IsEmpty());
}

// `links` are the pointers that must have been set; their targets are checked elsewhere.
template <typename Record, typename... Pointer>
void expectDefaults(const Record* got, unsigned char fill, Pointer Record::*... links) {
    ASSERT_NE(got, nullptr);
    Record want;
    setDefaultsOver(fill, &want);
    ((want.*links = got->*links), ...);
    EXPECT_EQ(bytes(*got), bytes(want));
}

template <typename Record>
void expectModule(Record* (*create)(), void (*destroy)(Record**)) {
    for (const unsigned char fill : fills()) {
        Host host;
        handOut(host, fill);
        Record* record = create();
        expectDefaults(record, fill);
        destroy(&record);
        EXPECT_THAT(host.log(), IsEmpty());
    }
}

TEST(Create, WritesTheDefaultsOfAModuleAndNothingElse) {
    expectModule(createEboAnrConfig, destroyEboAnrConfig);
    expectModule(createEboAgcConfig, destroyEboAgcConfig);
    expectModule(createEboCngConfig, destroyEboCngConfig);
    expectModule(createEboDtdConfig, destroyEboDtdConfig);
    expectModule(createEboDereverbConfig, destroyEboDereverbConfig);
    expectModule(createEboNlpconfig, destroyEboNlpConfig);
    expectModule(createEboAesconfig, destroyEboAesConfig);
}

void expectAec(EboAecParam* aec, unsigned char fill) {
    expectDefaults(aec, fill, &EboAecParam::Array_list);
    ASSERT_NE(aec->Array_list, nullptr);
    EXPECT_THAT(std::vector<int16_t>(aec->Array_list, aec->Array_list + 8),
                ElementsAre(1, 0, 3, 2, 5, 4, 6, 7));
    aec->delay = nullptr;  // so that it can be destroyed
}

void expectBeamForm(EboBeamFormParam* bf, unsigned char fill) {
    using Bf = EboBeamFormParam;
    expectDefaults(bf, fill, &Bf::agc, &Bf::anr, &Bf::nlp, &Bf::dereverb, &Bf::cng, &Bf::dtd, &Bf::aes);
    expectDefaults(bf->agc, fill);
    expectDefaults(bf->anr, fill);
    expectDefaults(bf->nlp, fill);
    expectDefaults(bf->dereverb, fill);
    expectDefaults(bf->cng, fill);
    expectDefaults(bf->dtd, fill);
    expectDefaults(bf->aes, fill);
    bf->howl = nullptr;  // so that it can be destroyed
    bf->doa = nullptr;
    bf->wakeup = nullptr;
    bf->ainr = nullptr;
}

TEST(Create, PointsTheEchoCancellerAtTheDefaultMap) {
    for (const unsigned char fill : fills()) {
        Host host;
        handOut(host, fill);
        EboAecParam* aec = createEboAecConfig();
        expectAec(aec, fill);
        destroyEboAecConfig(&aec);
    }
}

TEST(Create, SharesOneDefaultMapThatOutlivesTheRecords) {
    Host host;
    EboAecParam* first = createEboAecConfig();
    EboAecParam* second = createEboAecConfig();
    EXPECT_EQ(first->Array_list, second->Array_list);
    destroyEboAecConfig(&first);
    expectAec(second, 0x00);
    destroyEboAecConfig(&second);
    EboAecParam* third = createEboAecConfig();
    expectAec(third, 0x00);
    destroyEboAecConfig(&third);
}

TEST(Create, GivesTheBeamformerItsDefaultModules) {
    for (const unsigned char fill : fills()) {
        Host host;
        handOut(host, fill);
        EboBeamFormParam* bf = createEboBeamFormConfig();
        expectBeamForm(bf, fill);
        destroyEboBeamFormConfig(&bf);
    }
}

TEST(Create, GivesThePlaybackPathItsNoiseReduction) {
    for (const unsigned char fill : fills()) {
        Host host;
        handOut(host, fill);
        EboRxParam* rx = createEboRxconfig();
        expectDefaults(rx, fill, &EboRxParam::anr);
        expectDefaults(rx->anr, fill);
        rx->howl = nullptr;
        destroyEboRxConfig(&rx);
    }
}

TEST(Create, MakesAWholeTreeWithoutPlaybackPath) {
    for (const unsigned char fill : fills()) {
        Host host;
        handOut(host, fill);
        KAEboParam* ebo = createEboConfigs();
        expectDefaults(ebo, fill, &KAEboParam::aec, &KAEboParam::bf, &KAEboParam::rx);
        expectAec(ebo->aec, fill);
        expectBeamForm(ebo->bf, fill);
        EXPECT_EQ(ebo->rx, nullptr);
        EXPECT_THAT(host.log(), IsEmpty());
        destroyEboConfig(&ebo);
    }
}

}  // namespace
