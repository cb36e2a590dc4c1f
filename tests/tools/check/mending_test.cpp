// What a report says besides words: edits that mend the file, as much as a report may hold, and where it
// ends.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ka/log_sink.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <new>
#include <nlohmann/json.hpp>

#include "check/file.h"
#include "check/syntax/braces.h"
#include "loading.h"

namespace {

CheckReport checkPath(const std::string& path) {
    const LogCatcher ignored;
    return checkFile(path, partNamed(path.find("/ao/") != std::string::npos ? "ao" : "auto"));
}

CheckReport checkText(const std::string& text, const char* part = "auto") {
    const LogCatcher ignored;
    const std::string path = testing::TempDir() + std::to_string(getpid()) + "-mending.json";
    std::ofstream(path, std::ios::binary) << text;
    CheckReport report = checkFile(path, partNamed(part));
    std::remove(path.c_str());
    return report;
}

bool isSyntax(const CheckFinding& finding) {
    return finding.code == &kInvalidJson || finding.code == &kForeign;
}

// Edits of several findings, as who mends a file applies them: from its end to its beginning.
std::string mended(std::string text, const CheckReport& report, bool (*wanted)(const CheckFinding&)) {
    std::vector<TextEdit> edits;
    for (const CheckFinding& finding : report.findings) {
        if (wanted(finding)) edits.insert(edits.end(), finding.edits.begin(), finding.edits.end());
    }
    std::stable_sort(edits.begin(), edits.end(),
                     [](const TextEdit& a, const TextEdit& b) { return a.offset < b.offset; });
    for (size_t i = 1; i < edits.size(); ++i) EXPECT_LE(edits[i - 1].end(), edits[i].offset);
    for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit) {
        EXPECT_LE(edit->end(), text.size());
        text.replace(edit->offset, edit->length, edit->text);
    }
    return text;
}

TEST(Edits, OfSyntaxMakeJsonOfTheFaultyFiles) {
    int mendedFiles = 0;
    for (const std::string& path : filesIn(EBO_FAULTY_INPUTS_DIR, ".json")) {
        const CheckReport report = checkPath(path);
        const auto hasEdits = [](const CheckFinding& finding) { return !finding.edits.empty(); };
        bool all = true;
        int faults = 0;
        for (const CheckFinding& finding : report.findings) {
            if (!isSyntax(finding)) continue;
            ++faults;
            all = all && hasEdits(finding);
        }
        if (faults == 0 || faults == 20 || !all) continue;
        ++mendedFiles;
        EXPECT_TRUE(nlohmann::json::accept(mended(readText(path), report, isSyntax))) << path;
    }
    EXPECT_GT(mendedFiles, 60);
}

TEST(Edits, OfOneFindingLeaveLessToFind) {
    int tried = 0;
    for (const std::string& path : filesIn(EBO_FAULTY_INPUTS_DIR, ".json")) {
        const CheckReport report = checkPath(path);
        for (const CheckFinding& finding : report.findings) {
            if (isSyntax(finding) || finding.edits.empty()) continue;
            std::string text = readText(path);
            for (auto edit = finding.edits.rbegin(); edit != finding.edits.rend(); ++edit) {
                text.replace(edit->offset, edit->length, edit->text);
            }
            ++tried;
            const CheckReport after = checkText(text);
            EXPECT_LT(after.findings.size(), report.findings.size()) << path << ": " << finding.text;
        }
    }
    EXPECT_GT(tried, 20);
}

TEST(Reports, HoldSoManyFindingsOfACodeAndCountTheRest) {
    std::string text = "{";
    for (int i = 0; i < 10000; ++i) text += "\"ebo_configs\":{},\"aec\":{},\"x" + std::to_string(i) + "\":1,";
    text += "\"ebo_configs\":{}}";
    const std::clock_t start = std::clock();
    const CheckReport report = checkText(text);
    EXPECT_LT(std::clock() - start, 20 * CLOCKS_PER_SEC);
    EXPECT_EQ(report.left.at(&kDuplicate), 10000U + 9999U - CheckReport::kMost);
    EXPECT_LE(report.findings.size(), 4 * CheckReport::kMost);
    EXPECT_GE(report.count(CheckLevel::Warning), 29999U);
}

TEST(Reports, TakeRepeatedSectionsInLinearTime) {
    std::string text = "{\"ebo_configs\":{";
    for (int i = 0; i < 40000; ++i) text += "\"dtd\":{},";
    text += "\"dtd\":{}}}";
    const std::clock_t start = std::clock();
    const CheckReport report = checkText(text);
    EXPECT_LT(std::clock() - start, 10 * CLOCKS_PER_SEC);
    EXPECT_EQ(report.left.at(&kDuplicate), 40000U - CheckReport::kMost);
}

TEST(Reports, ReadOnUpToSoManyFaultsOfSyntax) {
    std::string text = "{\"ebo_configs\": {\n";
    for (int i = 0; i < 30; ++i) text += "\"_\": +1,\n";
    const CheckReport report = checkText(text + "\"_\": 1}}");
    EXPECT_EQ(report.findings.size(), 20U);
    EXPECT_EQ(report.findings.back().place.line, 21U);
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) && !defined(__clang__)
TEST(SeveralFiles, AreRefusedWithoutMemory) {
    const std::string path = testing::TempDir() + std::to_string(getpid()) + "-large.json";
    std::ofstream(path) << "{\"_\": \"" << std::string(60'000'000, 'x') << "\"}";
    const auto check = [&path] {
        size_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        const rlim_t used = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
        const rlimit room = {used + 40'000'000, used + 40'000'000};
        setrlimit(RLIMIT_AS, &room);
        ka_install_log_sink([](const KaLogMessage&, void*) {}, nullptr);
        // Who finds no memory first says so: the framework as a file that it cannot read, others by an
        // exception.
        size_t refused = 0;
        try {
            for (const CheckReport& report :
                 checkFiles({path, path, path}, nullptr, 3, [](size_t, size_t) {}))
                refused += report.count(CheckLevel::Error);
        } catch (const std::bad_alloc&) {
            refused = 3;
        }
        std::_Exit(refused == 3 ? 7 : 0);
    };
    EXPECT_EXIT(check(), testing::ExitedWithCode(7), "");
    std::remove(path.c_str());
}
#endif

TEST(Parts, ThatAMisspeltRootMeansAreJudged) {
    const CheckReport report = checkText("{\"ebo_agc_config\": {}, \"ebo_ao_configs\": {}}");
    ASSERT_EQ(report.loads.size(), 2U);
    EXPECT_STREQ(report.loads[0].load->name, "ao");
    EXPECT_STREQ(report.loads[1].load->name, "agc");
    EXPECT_EQ(report.loads[1].outcome, CheckOutcome::Fails);
}

TEST(Parts, FullDemandsTheCapturePath) {
    const CheckReport report = checkText("{\"ebo_ao_configs\": {}}", "full");
    EXPECT_EQ(report.loads.size(), 1U);
    EXPECT_EQ(report.outcome(), CheckOutcome::Fails);
}

TEST(Braces, AreNotJudgedWhereNothingIsIndented) {
    EXPECT_FALSE(findBraceFault("{\n\"a\": {\n\"b\": 1\n\"c\": {\n}\n}\n"));
    EXPECT_FALSE(findBraceFault("{\n  \"a\": {\n    \"b\": 1\n    },\n  \"c\": 1\n}\n"));
}

}  // namespace
