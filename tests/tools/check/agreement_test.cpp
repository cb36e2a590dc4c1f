// The check and the loaders agree about every file: what fails, what aborts, and with which messages.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <set>

#include "../random/memory_file.h"
#include "check/file.h"
#include "check/plan.h"
#include "loading.h"
#include "mutation.h"

namespace {

// True when the check of `part` and the loader of each load that it judges agree; `part` may be "auto".
bool agrees(const std::string& part, const std::string& path, CheckReport* report) {
    {
        const LogCatcher ignored;
        *report = checkFile(path, partNamed(part));
    }
    bool hasErrors = false;
    for (const CheckLoad& load : report->loads) {
        const Loading loading = loadPart(load.load->name, path, load.outcome == CheckOutcome::Aborts);
        EXPECT_EQ(std::string(nameOf(load.outcome)), nameOf(loading.outcome));
        EXPECT_EQ(load.log, loading.log);
        hasErrors = hasErrors || loading.outcome != CheckOutcome::Loads;
        if (part == "auto") hasErrors = hasErrors || loading.lacksRecords;
        if (loading.outcome == CheckOutcome::Loads && load.load->maskless == 0) {
            EXPECT_EQ(!load.lacks.empty(), loading.lacksRecords);
        }
    }
    EXPECT_EQ(report->count(CheckLevel::Error) > 0, hasErrors);
    return !testing::Test::HasFailure();
}

// EBO_AGREEMENT_FOLDER names a folder of further files, such as a fuzzer's corpus.
TEST(Agreement, HoldsForTheExamplesTheFaultyFilesAndWhatFuzzersFound) {
    std::vector<std::string> files = filesIn(EBO_TUNINGS_DIR, ".json");
    std::vector<std::string> folders = {EBO_FAULTY_INPUTS_DIR, EBO_FUZZ_DOCUMENTS_DIR};
    if (const char* folder = std::getenv("EBO_AGREEMENT_FOLDER")) folders.emplace_back(folder);
    for (const std::string& folder : folders) {
        for (const std::string& file : filesIn(folder, "")) files.push_back(file);
    }
    for (const std::string& file : files) {
        for (const std::string& part : partNames()) {
            CheckReport report;
            ASSERT_TRUE(agrees(part, file, &report)) << part << ' ' << file;
        }
    }
}

class AgreementOnMutations : public testing::TestWithParam<unsigned> {};

constexpr unsigned kShards = 8;
constexpr unsigned kMutationsPerShard = 2500;

TEST_P(AgreementOnMutations, Holds) {
    const MemoryFile mutation;
    std::vector<Tree> trees;
    for (const std::string& file : filesIn(EBO_TUNINGS_DIR, ".json")) trees.push_back(treeOf(readText(file)));

    std::mt19937 random(GetParam());
    std::map<CheckOutcome, int> outcomes;
    std::set<std::string> messages;
    for (unsigned i = 0; i < kMutationsPerShard; ++i) {
        const std::string text = mutated(trees[i % trees.size()], random);
        mutation.write(text);
        const std::string other = kEboLoads[1 + i % (kEboLoadCount - 1)].name;
        for (const std::string& part : {std::string("full"), std::string("auto"), other}) {
            CheckReport report;
            ASSERT_TRUE(agrees(part, mutation.path(), &report))
                << "mutation " << i << ", part " << part << ":\n"
                << text;
            ++outcomes[report.outcome()];
            messages.insert(report.loads.front().log.begin(), report.loads.front().log.end());
        }
    }
    // The mutations reach all that they are made for.
    EXPECT_GT(outcomes[CheckOutcome::Loads], 500);
    EXPECT_GT(outcomes[CheckOutcome::Fails], 500);
    EXPECT_GT(outcomes[CheckOutcome::Aborts], 10);
    EXPECT_GT(messages.size(), 80U);
}

INSTANTIATE_TEST_SUITE_P(Seeds, AgreementOnMutations, testing::Range(1U, kShards + 1));

}  // namespace
