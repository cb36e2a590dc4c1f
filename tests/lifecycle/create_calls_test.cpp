// The allocations behind each create function, and what it does when one of them fails.
#include <functional>

#include "defaults.h"
#include "harness/expect.h"
#include "harness/trace.h"

using ka_recording::Event;
using ka_recording::Op;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Block {
    std::string maker;
    size_t size;
};

const Block kAec = {"createEboAecConfig", sizeof(EboAecParam)};
const Block kAes = {"createEboAesconfig", sizeof(EboAesParam)};
const Block kAgc = {"createEboAgcConfig", sizeof(EboAgcParam)};
const Block kAnr = {"createEboAnrConfig", sizeof(EboAnrParam)};
const Block kBf = {"createEboBeamFormConfig", sizeof(EboBeamFormParam)};
const Block kCng = {"createEboCngConfig", sizeof(EboCngParam)};
const Block kDereverb = {"createEboDereverbConfig", sizeof(EboDereverbParam)};
const Block kDtd = {"createEboDtdConfig", sizeof(EboDtdParam)};
const Block kNlp = {"createEboNlpconfig", sizeof(EboNlpParam)};
const Block kRoot = {"createEboConfigs", sizeof(KAEboParam)};
const Block kRx = {"createEboRxconfig", sizeof(EboRxParam)};

// A create function with its destroy function, and the blocks it allocates in their order.
struct Creation {
    std::string name;
    std::function<void(Host&)> createAndDestroy;  // expects null when the first allocation is told to fail
    std::vector<Block> blocks;
};

template <typename Record>
std::function<void(Host&)> both(Record* (*create)(), void (*destroy)(Record**)) {
    return [create, destroy](Host& host) {
        const bool fails = host.recorder().fail_malloc == 1;
        Record* record = create();
        EXPECT_EQ(record == nullptr, fails);
        EXPECT_THAT(host.log(), IsEmpty());
        if (record) destroy(&record);
    };
}

const std::vector<Creation> kCreations = {
    {"Anr", both(createEboAnrConfig, destroyEboAnrConfig), {kAnr}},
    {"Agc", both(createEboAgcConfig, destroyEboAgcConfig), {kAgc}},
    {"Cng", both(createEboCngConfig, destroyEboCngConfig), {kCng}},
    {"Dtd", both(createEboDtdConfig, destroyEboDtdConfig), {kDtd}},
    {"Dereverb", both(createEboDereverbConfig, destroyEboDereverbConfig), {kDereverb}},
    {"Nlp", both(createEboNlpconfig, destroyEboNlpConfig), {kNlp}},
    {"Aes", both(createEboAesconfig, destroyEboAesConfig), {kAes}},
    {"Aec", both(createEboAecConfig, destroyEboAecConfig), {kAec}},
    {"Rx", both(createEboRxconfig, destroyEboRxConfig), {kRx, kAnr}},
    {"BeamForm",
     both(createEboBeamFormConfig, destroyEboBeamFormConfig),
     {kBf, kAgc, kAnr, kNlp, kDereverb, kCng, kDtd, kAes}},
    {"Configs",
     both(createEboConfigs, destroyEboConfig),
     {kRoot, kAec, kBf, kAgc, kAnr, kNlp, kDereverb, kCng, kDtd, kAes}},
};

// The name of the test.
void PrintTo(const Creation& creation, std::ostream* out) {
    *out << creation.name;
}

class EveryCreation : public testing::TestWithParam<Creation> {};

INSTANTIATE_TEST_SUITE_P(, EveryCreation, testing::ValuesIn(kCreations));

TEST_P(EveryCreation, AllocatesInOrderUnderItsOwnNameAndClearsNothing) {
    Host host;
    GetParam().createAndDestroy(host);
    std::vector<std::string> want;
    for (const Block& block : GetParam().blocks)
        want.push_back(block.maker + " " + std::to_string(block.size));
    std::vector<std::string> got;
    for (const Event& event : host.recorder().only({Op::Malloc}))
        got.push_back(event.name + " " + std::to_string(event.size));
    EXPECT_EQ(got, want);
    EXPECT_THAT(calls(host.recorder(), {Op::Memset, Op::Strdup, Op::Free}), IsEmpty());
}

TEST_P(EveryCreation, ReturnsNullInSilenceWhenItsOwnRecordCannotBeAllocated) {
    Host host;
    host.recorder().fail_malloc = 1;
    GetParam().createAndDestroy(host);
    EXPECT_THAT(calls(host.recorder(), {Op::Malloc, Op::Memset, Op::SafeFree, Op::Free, Op::Log}),
                ElementsAre("malloc null " + GetParam().blocks[0].maker));
}

// The n-th allocation fails; every other one is made all the same.
void expectMissingBlock(Host& host, const std::vector<Block>& blocks, size_t n) {
    std::vector<std::string> want;
    int number = 0;
    for (size_t i = 0; i < blocks.size(); ++i)
        want.push_back("malloc " + (i + 1 == n ? "null" : "#" + std::to_string(++number)) + " " +
                       blocks[i].maker);
    EXPECT_EQ(calls(host.recorder(), {Op::Malloc, Op::Log}), want);
}

// Which of the container's modules are there, in the order of their creation.
std::string modules(const EboBeamFormParam& bf) {
    return std::string(bf.agc ? "agc " : "") + (bf.anr ? "anr " : "") + (bf.nlp ? "nlp " : "") +
           (bf.dereverb ? "dereverb " : "") + (bf.cng ? "cng " : "") + (bf.dtd ? "dtd " : "") +
           (bf.aes ? "aes" : "");
}

struct MissingModule {
    int allocation;  // counted from the container's own
    std::string modules;
};

const MissingModule kMissingModules[] = {
    {2, "anr nlp dereverb cng dtd aes"},  {3, "agc nlp dereverb cng dtd aes"},
    {4, "agc anr dereverb cng dtd aes"},  {5, "agc anr nlp cng dtd aes"},
    {6, "agc anr nlp dereverb dtd aes"},  {7, "agc anr nlp dereverb cng aes"},
    {8, "agc anr nlp dereverb cng dtd "},
};

TEST(CreateWithoutMemory, LeavesAModuleOfTheBeamformerNull) {
    for (const MissingModule& missing : kMissingModules) {
        SCOPED_TRACE(missing.modules);
        Host host;
        host.recorder().fail_malloc = missing.allocation;
        EboBeamFormParam* bf = createEboBeamFormConfig();
        ASSERT_NE(bf, nullptr);
        EXPECT_EQ(modules(*bf), missing.modules);
        EXPECT_EQ(bf->model_en, 1145);
        expectMissingBlock(host, {kBf, kAgc, kAnr, kNlp, kDereverb, kCng, kDtd, kAes},
                           static_cast<size_t>(missing.allocation));
        destroyEboBeamFormConfig(&bf);
    }
}

TEST(CreateWithoutMemory, LeavesAModuleOfTheTreeNull) {
    for (const MissingModule& missing : kMissingModules) {
        SCOPED_TRACE(missing.modules);
        Host host;
        host.recorder().fail_malloc = missing.allocation + 2;
        KAEboParam* ebo = createEboConfigs();
        ASSERT_NE(ebo, nullptr);
        EXPECT_EQ(modules(*ebo->bf), missing.modules);
        EXPECT_EQ(ebo->model_en, 3);
        expectMissingBlock(host, {kRoot, kAec, kBf, kAgc, kAnr, kNlp, kDereverb, kCng, kDtd, kAes},
                           static_cast<size_t>(missing.allocation) + 2);
        destroyEboConfig(&ebo);
    }
}

TEST(CreateWithoutMemory, LeavesTheNoiseReductionOfThePlaybackPathNull) {
    Host host;
    host.recorder().fail_malloc = 2;
    EboRxParam* rx = createEboRxconfig();
    ASSERT_NE(rx, nullptr);
    EXPECT_EQ(rx->model_en, 1);
    EXPECT_EQ(rx->anr, nullptr);
    expectMissingBlock(host, {kRx, kAnr}, 2);
    destroyEboRxConfig(&rx);
}

void createConfigsWithout(int allocation) {
    Host host;
    host.echo();
    host.recorder().fail_malloc = allocation;
    createEboConfigs();
}

TEST(CreateWithoutMemoryDeathTest, AbortsWhenAContainerOfTheTreeCannotBeMade) {
    EXPECT_ASSERTION(createConfigsWithout(2), "createEboConfigs", "param->aec != KA_NULL");
    EXPECT_ASSERTION(createConfigsWithout(3), "createEboConfigs", "param->bf != KA_NULL");
}

}  // namespace
