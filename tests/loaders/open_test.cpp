// How every load of a file begins.
#include <ebo_config.h>

#include "documents.h"
#include "harness/expect.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct EntryPoint {
    const char* name;
    bool (*loads)(const char* path);
};

const EntryPoint kEntryPoints[] = {
    {"Configs", [](const char* path) { return parseEboConfigs(path) != nullptr; }},
    {"AecConfigs", [](const char* path) { return parseEboAecConfigs(path) != nullptr; }},
    {"BeamFormConfigs", [](const char* path) { return parseEboBeamFormConfigs(path) != nullptr; }},
    {"AoConfigs", [](const char* path) { return parseEboAoConfigs(path) != nullptr; }},
    {"AgcConfigsFile", [](const char* path) { return parseEboAgcConfigsFile(path) != nullptr; }},
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
    Host host;
    expectRejected(GetParam(), host, "/nowhere/tuning.json");
}

TEST_P(EveryEntryPoint, GivesUpInSilenceOnABrokenFile) {
    Host host;
    expectRejected(GetParam(), host, host.file(completeDocument().substr(1)));
}

}  // namespace
