// Every way in which a whole file can fail to load: what is said, what is released, what is left.
#include <ebo_config.h>

#include <algorithm>

#include "documents.h"
#include "harness/expect.h"
#include "harness/trace.h"
#include "sections.h"

using ka_recording::Op;
using testing::ElementsAre;

namespace {

const std::string kMap = "parseEboAecConfigs:2";  // the second block of this reader

// The order in which a load that fails releases the records that it has, each by its maker's name.
const std::vector<std::string> kCleanUp = {
    "parseEboDelayConfigs", "parseEboAecConfigs",      "parseEboAnrConfigs", "parseEboAgcConfigs",
    "parseEboNlpConfigs",   "parseEboDereverbConfigs", "parseEboCngConfigs", "parseEboDtdConfigs",
    "parseEboAesConfigs",   "parseEboHowlConfigs",     "parseEboDoaConfigs", "parseEboWakeupConfigs",
    "parseEboAINRConfigs",  "parseEboBfConfigs",       "parseEboConfigs"};

struct Fault {
    std::string section;
    std::string key;  // empty: the whole section is missing
};

std::string place(const Fault& fault) {
    return "/ebo_configs/" + fault.section + (fault.key.empty() ? "" : "/" + fault.key);
}

std::vector<Fault> allFaults() {
    std::vector<Fault> faults;
    for (const RequiredSection& section : requiredSections()) {
        faults.push_back({section.name, ""});
        for (const std::string& key : section.keys) faults.push_back({section.name, key});
    }
    return faults;
}

// Everything that is known of a load that ends in `section`.
struct Failure {
    std::vector<std::string> sections;  // looked at
    std::vector<std::string> releases;
    std::vector<std::string> leaks;
    std::vector<ExpectedLine> log;
};

bool hasRecord(const std::string& section) {
    return section != "fast_aec" && section != "gsc" && section != "wind";
}

Failure failureOf(const Fault& fault) {
    const bool map_is_read = fault.section != "aec" || (fault.key != "status" && !fault.key.empty());
    const bool words_are_read = fault.section == "ainr";
    Failure failure;
    std::vector<std::string> made = {"parseEboConfigs"};
    for (const RequiredSection& section : requiredSections()) {
        if (section.name == "bf") {
            failure.sections.push_back("getOptions ebo_configs/delay");
            made.push_back("parseEboDelayConfigs");
        }
        if (section.name == "ainr") {
            failure.sections.push_back("getOptions ebo_configs/wakeup");
            made.push_back("parseEboWakeupConfigs");
        }
        const bool fails = section.name == fault.section;
        failure.sections.push_back(
            (fails && fault.key.empty() ? "missing getOptions ebo_configs/" : "getOptions ebo_configs/") +
            section.name);
        if (!fails) {
            if (hasRecord(section.name)) made.push_back(section.reader);
            continue;
        }
        // The reader's own record goes first; only this one reader hands it to the framework.
        if (section.name == "ainr")
            failure.releases.push_back("safe_free " + section.reader + " by " + section.reader);
        else if (hasRecord(section.name))
            failure.releases.push_back("free " + section.reader);
        if (map_is_read)
            failure.log.push_back(
                info("parseEboAecConfigs", "mic_chn_map:%s", "mic_chn_map:3 chn;map:2,0,-1"));
        if (words_are_read)
            failure.log.push_back({false, 4, "parseEboWakeupConfigs", green("Current wakeup mode is: %d\n"),
                                   green("Current wakeup mode is: 2\n")});
        failure.log.push_back(
            error(section.reader, missingText(section.name, fault.key.empty() ? "status" : fault.key)));
        break;
    }
    for (const std::string& maker : kCleanUp)
        if (std::count(made.begin(), made.end(), maker) == 1) failure.releases.push_back("free " + maker);
    if (map_is_read) failure.leaks.push_back(kMap);
    if (words_are_read) failure.leaks.insert(failure.leaks.end(), {"hello-lamp", "good-night"});
    return failure;
}

// The name of the test.
void PrintTo(const Fault& fault, std::ostream* out) {
    *out << fault.section << (fault.key.empty() ? "" : ".") << fault.key;
}

class EveryRequiredKey : public testing::TestWithParam<Fault> {};

INSTANTIATE_TEST_SUITE_P(FullLoad, EveryRequiredKey, testing::ValuesIn(allFaults()));

TEST_P(EveryRequiredKey, FailsTheLoadWhenMissing) {
    const Failure want = failureOf(GetParam());
    Host host;
    host.expectLeaks(static_cast<int>(want.leaks.size()));
    EXPECT_EQ(parseEboConfigs(host.file(without(completeDocument(), place(GetParam()))).c_str()), nullptr);
    expectLog(host, want.log);
    if constexpr (Host::kRecords) {
        EXPECT_EQ(calls(host.recorder(), {Op::GetOptions}), want.sections);
        EXPECT_EQ(releases(host.recorder()), want.releases);
        EXPECT_EQ(leaks(host.recorder()), want.leaks);
        EXPECT_EQ(host.recorder().events.back().op, Op::ParserGone);
    }
}

// The same keys are required when every section is disabled.
TEST_P(EveryRequiredKey, FailsTheLoadOfADisabledSectionWhenMissing) {
    const std::string& key = GetParam().key;
    std::string document = allDisabled(completeDocument());
    document = without(document, "/ebo_configs/aec/mic_chn_map");
    Host host;
    EXPECT_EQ(parseEboConfigs(host.file(without(document, place(GetParam()))).c_str()), nullptr);
    const std::vector<LogCall> log = host.log();
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(log.back().text, red(missingText(GetParam().section, key.empty() ? "status" : key)));
}

TEST(FullLoadFailure, IsReportedOnceWhenEverySectionIsMissing) {
    Host host;
    EXPECT_EQ(parseEboConfigs(host.file(R"({"ebo_configs": {}})").c_str()), nullptr);
    expectLog(host, {error("parseEboAecConfigs", "find aec status failed")});
}

TEST(FullLoadFailure, IsReportedOnceWhenTheRootIsMissing) {
    Host host;
    EXPECT_EQ(parseEboConfigs(host.file(without(completeDocument(), "/ebo_configs")).c_str()), nullptr);
    expectLog(host, {error("parseEboAecConfigs", "find aec status failed")});
    if constexpr (Host::kRecords) {
        EXPECT_THAT(releases(host.recorder()),
                    ElementsAre("free parseEboAecConfigs", "free parseEboConfigs"));
    }
}

TEST(FullLoadFailure, ReleasesTheRestOfTheTreeWithoutADelayRecord) {
    Host host;
    host.expectLeaks(1);
    const std::string document = with(completeDocument(), "/ebo_configs/delay/status", R"("off")");
    EXPECT_EQ(parseEboConfigs(host.file(without(document, "/ebo_configs/agc")).c_str()), nullptr);
    if constexpr (Host::kRecords) {
        EXPECT_THAT(
            releases(host.recorder()),
            ElementsAre("safe_free parseEboDelayConfigs by parseEboDelayConfigs", "free parseEboAgcConfigs",
                        "free parseEboAecConfigs", "free parseEboBfConfigs", "free parseEboConfigs"));
        EXPECT_THAT(leaks(host.recorder()), ElementsAre(kMap));
    }
}

}  // namespace
