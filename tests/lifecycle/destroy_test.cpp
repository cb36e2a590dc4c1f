// The destroy functions: what they release and in which order, null pointers included.
#include <cstdlib>

#include "harness/modelled.h"
#include "harness/trace.h"

using ka_recording::Op;
using testing::ElementsAre;

namespace {

using Lines = std::vector<std::string>;

template <typename Record>
Record* make(const char* name = "record") {
    return static_cast<Record*>(ka_mem_malloc(sizeof(Record), name));
}

// Every pointer that is handed to a release from its making on, null included.
class Releases {
public:
    Host host;
    void expect(const Lines& want) {
        expectLog(host, {});
        if constexpr (Host::kRecords) {
            EXPECT_EQ(calls(host.recorder(), {Op::SafeFree, Op::Free}), want);
        }
    }
};

// Owns nothing but itself.
bool isPlain(const model::Section& section) {
    for (const model::Key& key : section.keys)
        if (key.kind == model::Kind::Word) return false;
    return section.hasRecord() && section.name != "aec" && section.name != "bf";
}

TEST(Destroy, ReleasesAPlainRecordAndHandsNullOn) {
    for (const model::Section& section : model::allSections()) {
        if (!isPlain(section)) continue;
        const std::string name = section.reader.destroyer;
        Releases releases;
        void* record = ka_mem_malloc(section.reader.size, "record");
        for (const char* const time : {"once", "again"}) {
            section.reader.destroy(&record);
            EXPECT_EQ(record, nullptr) << name << " " << time;
        }
        releases.expect({"safe_free #1 " + name, "safe_free null " + name});
    }
}

// An all-zero record or a null pointer.
template <typename Record>
void expectEmpty(void (*destroy)(Record**), const Lines& of_empty, const Lines& of_null) {
    Releases empty;
    auto* record = make<Record>();
    destroy(&record);
    EXPECT_EQ(record, nullptr);
    empty.expect(of_empty);
    Releases null;
    destroy(&record);
    EXPECT_EQ(record, nullptr);
    null.expect(of_null);
}

TEST(Destroy, HandsEmptySlotsOnAndSurvivesNull) {
    expectEmpty(destroyEboAecConfig,
                {"safe_free null destroyEboDelayConfig", "safe_free null destroyEboAecConfig",
                 "safe_free #1 destroyEboAecConfig"},
                {"safe_free null destroyEboAecConfig"});
    expectEmpty(destroyEboWakeupConfig,
                {"safe_free null destroyEboWakeupConfig", "safe_free null destroyEboWakeupConfig",
                 "safe_free #1 destroyEboWakeupConfig"},
                {"safe_free null destroyEboWakeupConfig"});
    expectEmpty(destroyEboAiNRConfig,
                {"safe_free null destroyEboAiNRConfig", "safe_free #1 destroyEboAiNRConfig"},
                {"safe_free null destroyEboAiNRConfig"});
    expectEmpty(destroyEboRxConfig,
                {"safe_free null destroyEboAnrConfig", "safe_free null destroyEboHowlConfig",
                 "safe_free #1 destroyEboRxConfig"},
                {"safe_free null destroyEboRxConfig"});
    Lines slots;
    for (const std::string& name : model::destroyOrder())
        slots.push_back(std::string("safe_free null ") + model::sectionOf(name).reader.destroyer);
    slots.emplace_back("safe_free #1 destroyEboBeamFormConfig");
    expectEmpty(destroyEboBeamFormConfig, slots, {});
    expectEmpty(destroyEboConfig, {"safe_free null destroyEboAecConfig", "safe_free #1 destroyEboConfig"},
                {});
    expectEmpty(destroyEboAoConfig, {"safe_free null destroyEboRxConfig", "safe_free #1 destroyEboAoConfig"},
                {});
}

// A tree from a file, where a block bears the name of its reader, ":2" for its second one, or of its text.
class LoadedTree : public testing::Test {
protected:
    Host host;
    const std::string path = host.file(model::sampleDocument().dump());

    template <typename Record>
    void expectReleased(void (*destroy)(Record**), Record* record, const Lines& want) {
        host.clearLog();
        destroy(&record);
        EXPECT_EQ(record, nullptr);
        expectLog(host, {});
        if constexpr (Host::kRecords) {
            Lines got;
            for (const std::string& line : releases(host.recorder()))
                got.push_back(line.substr(line.find(' ') + 1));
            EXPECT_EQ(got, want);
        }
    }
};

// The words and the path go before their records.
Lines capture() {
    Lines lines = {"parseEboDelayConfigs by destroyEboDelayConfig",
                   "parseEboAecConfigs:2 by destroyEboAecConfig",
                   "parseEboAecConfigs by destroyEboAecConfig"};
    for (const std::string& name : model::destroyOrder()) {
        const model::Section& section = model::sectionOf(name);
        const std::string by = std::string(" by ") + section.reader.destroyer;
        for (const model::Key& key : section.keys)
            if (key.kind == model::Kind::Word) lines.push_back(key.sample.get<std::string>() + by);
        lines.push_back(section.reader.function + by);
    }
    lines.insert(lines.end(),
                 {"parseEboBfConfigs by destroyEboBeamFormConfig", "parseEboConfigs by destroyEboConfig"});
    return lines;
}

TEST_F(LoadedTree, OfTheCapturePathIsReleasedInOrderButForTheReservedSlot) {
    KAEboParam* ebo = parseEboConfigs(path.c_str());
    void* const reserved = std::malloc(1);
    ebo->bf->reserved = reserved;
    expectReleased(destroyEboConfig, ebo, capture());
    std::free(reserved);
}

TEST_F(LoadedTree, OfThePlaybackPathIsReleasedInOrder) {
    expectReleased(
        destroyEboAoConfig, parseEboAoConfigs(path.c_str()),
        {"parseEboAnrConfigs by destroyEboAnrConfig", "parseEboHowlConfigs by destroyEboHowlConfig",
         "parseEboAoConfigs:2 by destroyEboRxConfig", "parseEboAoConfigs by destroyEboAoConfig"});
}

// Pointers are nulled before their record is released.
TEST_F(LoadedTree, HasNoPointerLeftWhenItIsReleased) {
    KAEboParam* capture = parseEboConfigs(path.c_str());
    KAEboParam* playback = parseEboAoConfigs(path.c_str());
    destroyEboConfig(&capture);
    destroyEboAoConfig(&playback);
    if constexpr (Host::kRecords) {
        std::vector<size_t> slots;
        for (const model::Section& section : model::allSections())
            if (section.reader.slot) slots.push_back(section.reader.slot);
        const std::tuple<std::string, size_t, std::vector<size_t>> pointers[] = {
            {"destroyEboConfig", sizeof(KAEboParam), {offsetof(KAEboParam, aec), offsetof(KAEboParam, bf)}},
            {"destroyEboAoConfig", sizeof(KAEboParam), {offsetof(KAEboParam, rx)}},
            {"destroyEboAecConfig",
             sizeof(EboAecParam),
             {offsetof(EboAecParam, Array_list), offsetof(EboAecParam, delay)}},
            {"destroyEboBeamFormConfig", sizeof(EboBeamFormParam), slots},
            {"destroyEboRxConfig",
             sizeof(EboRxParam),
             {offsetof(EboRxParam, anr), offsetof(EboRxParam, howl)}},
            {"destroyEboWakeupConfig",
             sizeof(EboWakeupParam),
             {offsetof(EboWakeupParam, model_word1), offsetof(EboWakeupParam, model_word2)}},
            {"destroyEboAiNRConfig", sizeof(EboAiNRParam), {0}},
        };
        for (const auto& [function, size, places] : pointers) {
            size_t found = 0;
            for (const auto& event : host.recorder().only({Op::SafeFree})) {
                if (event.name != function || event.bytes.size() != size) continue;
                ++found;
                for (const size_t place : places)
                    EXPECT_EQ(model::get<uintptr_t>(event.bytes, place), 0U) << function;
            }
            EXPECT_EQ(found, 1U) << function;
        }
    }
}

TEST(Destroy, HandsTheDefaultMapToTheFramework) {
    Releases releases;
    EboAecParam* aec = createEboAecConfig();
    destroyEboAecConfig(&aec);
    releases.expect({"safe_free null destroyEboDelayConfig", "safe_free foreign destroyEboAecConfig",
                     "safe_free #1 destroyEboAecConfig"});
}

TEST(Destroy, ReleasesADefaultTreeWhole) {
    Host host;
    KAEboParam* ebo = createEboConfigs();
    destroyEboConfig(&ebo);
    EXPECT_EQ(ebo, nullptr);
    if constexpr (Host::kRecords) {
        EXPECT_TRUE(host.recorder().live().empty());
    }
}

TEST(Destroy, LeavesThePathOfTheOtherRoot) {
    Host host;
    KAEboParam* full = createEboConfigs();
    EboRxParam* rx = full->rx = createEboRxconfig();
    destroyEboConfig(&full);
    EXPECT_EQ(rx->anr->swU, 10);
    auto* playback = make<KAEboParam>();
    EboAecParam* aec = playback->aec = createEboAecConfig();
    EboBeamFormParam* bf = playback->bf = createEboBeamFormConfig();
    destroyEboAoConfig(&playback);
    EXPECT_EQ(aec->Array_list[0], 1);
    EXPECT_EQ(bf->anr->swU, 10);
    destroyEboRxConfig(&rx);
    destroyEboAecConfig(&aec);
    destroyEboBeamFormConfig(&bf);
}

}  // namespace
