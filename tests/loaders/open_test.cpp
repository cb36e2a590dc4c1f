// How every load of a file begins.
#include <ebo_config.h>

#include "documents.h"
#include "harness/expect.h"

using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

struct EntryPoint {
    const char* name;
    bool (*loads)(const char* path);
    int leaks;  // blocks that it leaves behind on purpose
};

template <typename Record>
bool made(Record* record, void (*destroy)(Record**)) {
    if (record == nullptr) return false;
    destroy(&record);
    return true;
}

const EntryPoint kEntryPoints[] = {
    {"Configs", [](const char* path) { return made(parseEboConfigs(path), destroyEboConfig); }, 0},
    {"AecConfigs", [](const char* path) { return made(parseEboAecConfigs(path), destroyEboAecConfig); }, 0},
    {"BeamFormConfigs",
     [](const char* path) { return made(parseEboBeamFormConfigs(path), destroyEboBeamFormConfig); }, 0},
    {"AoConfigs", [](const char* path) { return made(parseEboAoConfigs(path), destroyEboAoConfig); }, 0},
    {"AgcConfigsFile",
     [](const char* path) { return made(parseEboAgcConfigsFile(path), destroyEboAgcConfig); }, 1},
};

// The name of the test.
void PrintTo(const EntryPoint& entry, std::ostream* out) {
    *out << entry.name;
}

class EveryEntryPoint : public testing::TestWithParam<EntryPoint> {};

INSTANTIATE_TEST_SUITE_P(, EveryEntryPoint, testing::ValuesIn(kEntryPoints));

TEST_P(EveryEntryPoint, MakesNothingOfANullPath) {
    Host host;
    EXPECT_FALSE(GetParam().loads(nullptr));
    EXPECT_THAT(host.log(), IsEmpty());
    if constexpr (Host::kRecords) {
        EXPECT_TRUE(host.recorder().events.empty());
    }
}

void expectRejected(const EntryPoint& entry, Host& host, const std::string& path) {
    EXPECT_FALSE(entry.loads(path.c_str()));
    EXPECT_THAT(host.log(), IsEmpty());
    if constexpr (Host::kRecords) {
        std::vector<std::string> events;
        for (const auto& event : host.recorder().events) events.push_back(toString(event));
        EXPECT_THAT(events, ElementsAre("parser made", "missing parseFile " + path, "parser gone"));
    }
}

TEST_P(EveryEntryPoint, GivesUpInSilenceOnAMissingFile) {
    for (const char* path : {"/nowhere/tuning.json", ""}) {
        Host host;
        expectRejected(GetParam(), host, path);
    }
}

TEST_P(EveryEntryPoint, GivesUpInSilenceOnABrokenFile) {
    Host host;
    expectRejected(GetParam(), host, host.file(completeDocument().substr(1)));
}

// Whether a load of the text gives a record, and what it says.
std::string outcome(const EntryPoint& entry, const std::string& text) {
    Host host;
    const std::string path = host.file(text);
    if (KAJsonParser().parseFile(path.c_str()) == 0) return "refused";
    if (entry.leaks > 0) host.expectLeaks(entry.leaks);
    std::string said = entry.loads(path.c_str()) ? "loads" : "";
    for (const LogCall& line : host.log()) said += line.text;
    return said;
}

TEST_P(EveryEntryPoint, MissesEverySectionOfADocumentOrARootThatIsNoObject) {
    const std::string missing = outcome(GetParam(), "{}");
    EXPECT_THAT(missing, HasSubstr(" failed"));
    for (const char* text : {"[]", "7", "\"ebo_configs\"", "null", "true", R"([{"ebo_configs": {}}])",
                             R"({"ebo_configs": [], "ebo_ao_configs": 7, "ebo_agc_configs": "agc"})",
                             R"({"ebo_configs": null, "ebo_ao_configs": {}, "ebo_agc_configs": true})"})
        EXPECT_EQ(outcome(GetParam(), text), missing) << text;
}

// A framework takes no such name, or keeps it apart from the one before the zero.
TEST_P(EveryEntryPoint, TakesNoKeyForOneThatGoesOnAfterAZero) {
    std::string text = completeDocument();
    for (size_t at = 0; (at = text.find("\"status\"", at)) != std::string::npos; at += 8)
        text.replace(at, 8, R"("status\u0000")");
    EXPECT_THAT(outcome(GetParam(), text), AnyOf("refused", outcome(GetParam(), "{}")));
}

TEST_P(EveryEntryPoint, TakesWhateverIsNotZeroForSuccess) {
    for (const int result : {1, 2, -1, 0x100}) {
        Host host;
        if (GetParam().leaks > 0) host.expectLeaks(GetParam().leaks);
        if constexpr (Host::kRecords) {
            host.recorder().file_result = result;
        }
        EXPECT_TRUE(GetParam().loads(host.file(completeDocument()).c_str())) << result;
    }
}

}  // namespace
