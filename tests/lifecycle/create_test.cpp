// What a record holds after its creation, which blocks are allocated for it, and what becomes of it when one
// fails.
#include "harness/modelled.h"
#include "harness/trace.h"

using ka_recording::Op;
using model::Key;
using model::Section;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Block {
    const char* maker;
    size_t size;
};

// A create function with its destroy function, and the blocks in the order of their allocation.
struct Creation {
    const char* name;  // of its section
    void* (*create)();
    void (*destroy)(void* record);
    std::vector<Block> blocks;
};

template <auto Create, auto Destroy>
Creation creation(const char* name, std::vector<Block> blocks) {
    return {name, [] { return static_cast<void*>(Create()); },
            [](void* record) {
                auto* typed = static_cast<decltype(Create())>(record);
                if (typed) Destroy(&typed);
            },
            std::move(blocks)};
}

// clang-format off
#define BLOCK(create) Block{#create, sizeof(*create())}
#define MODULE(section, create, destroy) creation<create, destroy>(section, {BLOCK(create)})

// In the order in which the beamformer makes them.
const std::vector<Creation>& modules() {
    static const std::vector<Creation> made = {
        MODULE("agc", createEboAgcConfig, destroyEboAgcConfig),
        MODULE("anr", createEboAnrConfig, destroyEboAnrConfig),
        MODULE("nlp", createEboNlpconfig, destroyEboNlpConfig),
        MODULE("dereverb", createEboDereverbConfig, destroyEboDereverbConfig),
        MODULE("cng", createEboCngConfig, destroyEboCngConfig),
        MODULE("dtd", createEboDtdConfig, destroyEboDtdConfig),
        MODULE("aes", createEboAesconfig, destroyEboAesConfig),
    };
    return made;
}

std::vector<Block> withModules(std::vector<Block> blocks) {
    for (const Creation& module : modules()) blocks.push_back(module.blocks[0]);
    return blocks;
}

const Creation& root() {
    static const auto made = creation<createEboConfigs, destroyEboConfig>("root", withModules({BLOCK(createEboConfigs), BLOCK(createEboAecConfig), BLOCK(createEboBeamFormConfig)}));
    return made;
}

std::vector<Creation> creations() {
    std::vector<Creation> made = modules();
    made.push_back(creation<createEboAecConfig, destroyEboAecConfig>("aec", {BLOCK(createEboAecConfig)}));
    made.push_back(creation<createEboRxconfig, destroyEboRxConfig>("rx", {BLOCK(createEboRxconfig), BLOCK(createEboAnrConfig)}));
    made.push_back(creation<createEboBeamFormConfig, destroyEboBeamFormConfig>("bf", withModules({BLOCK(createEboBeamFormConfig)})));
    made.push_back(root());
    return made;
}
// clang-format on

class EveryCreation : public testing::TestWithParam<Creation> {};
INSTANTIATE_TEST_SUITE_P(Of, EveryCreation, testing::ValuesIn(creations()), nameOfCase<Creation>);

[[maybe_unused]] std::vector<std::string> mallocs(const std::vector<Block>& blocks, size_t missing = 0) {
    std::vector<std::string> lines;
    int number = 0;
    for (size_t i = 0; i < blocks.size(); ++i)
        lines.push_back("malloc " + (i + 1 == missing ? "null" : "#" + std::to_string(++number)) + " " +
                        blocks[i].maker);
    return lines;
}

TEST_P(EveryCreation, AllocatesInOrderUnderItsOwnNameAndClearsNothing) {
    Host host;
    GetParam().destroy(GetParam().create());
    expectLog(host, {});
    if constexpr (Host::kRecords) {
        EXPECT_EQ(calls(host.recorder(), {Op::Malloc, Op::Memset, Op::Strdup, Op::Free}),
                  mallocs(GetParam().blocks));
        const auto made = host.recorder().only({Op::Malloc});
        for (size_t i = 0; i < made.size(); ++i) EXPECT_EQ(made[i].size, GetParam().blocks.at(i).size);
    }
}

[[maybe_unused]] void createWithout(const Creation& creation, int allocation) {
    Host host;
    host.echo();
    if constexpr (Host::kRecords) host.recorder().fail_malloc = allocation;
    creation.create();
}

// The containers of the tree are asserted; a record of its own that fails is null, a module leaves its slot
// null.
TEST_P(EveryCreation, GoesOnWithoutAModuleThatCannotBeAllocated) {
    if constexpr (Host::kRecords) {
        const bool is_root = GetParam().name == std::string("root");
        for (size_t n = 1; n <= GetParam().blocks.size(); ++n) {
            if (is_root && (n == 2 || n == 3)) continue;
            Host host;
            host.recorder().fail_malloc = static_cast<int>(n);
            void* const record = GetParam().create();
            EXPECT_EQ(record == nullptr, n == 1);
            const auto want =
                mallocs(n == 1 ? std::vector<Block>{GetParam().blocks[0]} : GetParam().blocks, n);
            EXPECT_EQ(calls(host.recorder(), {Op::Malloc, Op::Memset, Op::SafeFree, Op::Free, Op::Log}),
                      want);
            const std::string missing = GetParam().blocks[n - 1].maker;
            const auto* const bf = is_root && record ? static_cast<KAEboParam*>(record)->bf
                                   : GetParam().name == std::string("bf")
                                       ? static_cast<EboBeamFormParam*>(record)
                                       : nullptr;
            for (const Creation& module : modules()) {
                if (!bf) break;
                const auto parts = partsOf(model::Loader::BeamForm, bf, 0);
                EXPECT_EQ(parts.count(module.name), module.blocks[0].maker == missing ? 0U : 1U);
            }
            GetParam().destroy(record);
        }
    }
}

TEST(CreateDeathTest, AbortsWhenAContainerOfTheTreeCannotBeMade) {
    if constexpr (Host::kRecords) {
        EXPECT_ASSERTION(createWithout(root(), 2), "createEboConfigs", "param->aec != KA_NULL");
        EXPECT_ASSERTION(createWithout(root(), 3), "createEboConfigs", "param->bf != KA_NULL");
    }
}

// ---- defaults

// Each field with a default has it, and no other was written; `written` are the places of pointers that were.
void expectDefaults(const Section& section, const void* record, char fill,
                    const std::vector<size_t>& written = {}) {
    ASSERT_NE(record, nullptr) << section.name;
    const std::string got(static_cast<const char*>(record), section.reader.size);
    std::string want(got.size(), fill);
    for (const Key& key : section.keys)
        if (!key.by_default.is_null()) store(key, model::valueOf(key.by_default), want);
    for (const size_t place : written) want.replace(place, sizeof(void*), got, place, sizeof(void*));
    EXPECT_EQ(got, want) << section.name;
}

void expectAec(EboAecParam* aec, char fill) {
    expectDefaults(model::sectionOf("aec"), aec, fill, {offsetof(EboAecParam, Array_list)});
    EXPECT_THAT(std::vector<int16_t>(aec->Array_list, aec->Array_list + 8),
                ElementsAre(1, 0, 3, 2, 5, 4, 6, 7));
    aec->delay = nullptr;  // so that it can be destroyed
}

void expectBeamForm(EboBeamFormParam* bf, char fill) {
    char* const bytes = reinterpret_cast<char*>(bf);
    std::vector<size_t> slots;
    for (const Creation& made : modules()) {
        const Section& section = model::sectionOf(made.name);
        slots.push_back(section.reader.slot);
        const void* module = nullptr;
        std::memcpy(&module, bytes + section.reader.slot, sizeof module);
        expectDefaults(section, module, fill);
    }
    expectDefaults(model::sectionOf("bf"), bf, fill, slots);
    // The other slots are cleared, so that it can be destroyed.
    for (const Section& section : model::allSections()) {
        const size_t slot = section.reader.slot;
        if (slot && std::count(slots.begin(), slots.end(), slot) == 0)
            std::memset(bytes + slot, 0, sizeof(void*));
    }
}

// Both kinds of memory that an allocator may hand out; the real frameworks have only the first.
class Defaults : public testing::TestWithParam<char> {
protected:
    Defaults() {
        if constexpr (Host::kRecords) host.recorder().garbage = GetParam() != 0;
    }
    Host host;
};
INSTANTIATE_TEST_SUITE_P(Over, Defaults,
                         testing::ValuesIn(Host::kRecords ? std::vector<char>{'\0', '\xa5'}
                                                          : std::vector<char>{'\0'}));

TEST_P(Defaults, AreAllThatIsWrittenToAModule) {
    for (const Creation& module : modules()) {
        void* const record = module.create();
        expectDefaults(model::sectionOf(module.name), record, GetParam());
        module.destroy(record);
    }
}

TEST_P(Defaults, MakeAWholeTreeWithoutPlaybackPath) {
    KAEboParam* ebo = createEboConfigs();
    EXPECT_EQ(ebo->model_en, 3);
    EXPECT_EQ(ebo->rx, nullptr);
    expectAec(ebo->aec, GetParam());
    expectBeamForm(ebo->bf, GetParam());
    destroyEboConfig(&ebo);
}

TEST_P(Defaults, GiveThePlaybackPathItsNoiseReduction) {
    EboRxParam* rx = createEboRxconfig();
    EXPECT_EQ(rx->model_en, 1);
    expectDefaults(model::sectionOf("anr"), rx->anr, GetParam());
    std::string howl(sizeof rx->howl, GetParam());
    EXPECT_EQ(std::memcmp(&rx->howl, howl.data(), howl.size()), 0);
    rx->howl = nullptr;
    destroyEboRxConfig(&rx);
}

TEST(DefaultMap, IsSharedAndOutlivesTheRecords) {
    Host host;
    EboAecParam* first = createEboAecConfig();
    EboAecParam* second = createEboAecConfig();
    EXPECT_EQ(first->Array_list, second->Array_list);
    destroyEboAecConfig(&first);
    expectAec(second, '\0');
    destroyEboAecConfig(&second);
}

}  // namespace
