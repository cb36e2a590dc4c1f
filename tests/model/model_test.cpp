// The library against the model: over the examples, over thousands of wrong versions of them, and over what a
// fuzzer has found before.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "model/edits.h"
#include "model/expected_leaks.h"
#include "model/memory_file.h"
#include "model/observation.h"
#include "model/row_check.h"

using namespace model;

namespace {

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> examples() {
    std::vector<std::string> texts;
    for (const auto& entry : std::filesystem::directory_iterator(EBO_TUNINGS_DIR)) {
        texts.push_back(contentOf(entry.path()));
    }
    return texts;
}

struct Totals {
    int loaded = 0;
    int failed = 0;
    int aborting = 0;
};

void expectAsModelled(const std::string& text, Totals& totals) {
    const MemoryFile file(text);
    const std::optional<Value> document = readDocument(text);
    for (const Loader loader : kLoaders) {
        Expectation expected;
        expect(loader, document, expected);
        ASSERT_EQ(expected.aborts, readsAec(loader) && wouldAbort(file.path())) << text;
        ++(expected.aborts ? totals.aborting : expected.failed ? totals.failed : totals.loaded);
        if (expected.aborts) continue;
        const ExpectedLeaks leaks(expected.leaks);
        const Observation observed = observe(loader, file.path(), expected.channels);
        ASSERT_EQ(differences(loader, expected, observed), "") << text;
    }
}

class RandomChooser : public Chooser {
public:
    explicit RandomChooser(unsigned seed) : random_(seed) {}
    size_t below(size_t limit) override { return random_() % limit; }

private:
    std::mt19937 random_;
};

TEST(Model, AgreesOverTheExamples) {
    Totals totals;
    const std::vector<std::string> texts = examples();
    for (const std::string& text : texts) expectAsModelled(text, totals);
    EXPECT_GE(texts.size(), 3U);
    EXPECT_EQ(totals.loaded, 5 * static_cast<int>(texts.size()));
}

// The fuzzers start from the examples: a key that no example has would be found by luck alone.
TEST(Examples, HoldEveryKeyOfEveryRoot) {
    const json sample = sampleDocument();
    for (const std::string& text : examples()) {
        const json document = json::parse(text);
        for (const auto& [root, sections] : sample.items())
            for (const auto& [section, keys] : sections.items())
                for (const auto& [key, value] : keys.items())
                    EXPECT_TRUE(document.at(root).at(section).contains(key))
                        << root << "/" << section << "/" << key;
    }
}

class WrongVersions : public testing::TestWithParam<unsigned> {};

TEST_P(WrongVersions, AgreeWithTheModel) {
    RandomChooser chooser(GetParam());
    const std::vector<std::string> texts = examples();
    Totals totals;
    for (int i = 0; i < 400; ++i) {
        expectAsModelled(edited(documentOf(texts[chooser.below(texts.size())]), chooser), totals);
        if (HasFatalFailure()) return;
    }
    // The versions are not all wrong in the same way.
    EXPECT_GT(totals.loaded, 300);
    EXPECT_GT(totals.failed, 100);
}

INSTANTIATE_TEST_SUITE_P(Seeds, WrongVersions, testing::Range(1U, 9U));

// Text that is cut off or changed in a byte: mostly not JSON any more.
TEST(Model, AgreesOverBrokenText) {
    RandomChooser chooser(2026);
    const std::vector<std::string> texts = examples();
    Totals totals;
    for (int i = 0; i < 500; ++i) {
        std::string text = texts[chooser.below(texts.size())];
        if (chooser.below(4) == 0) text.resize(chooser.below(text.size()));
        for (size_t n = chooser.below(3); n > 0 && !text.empty(); --n) {
            text[chooser.below(text.size())] = static_cast<char>(chooser.below(256));
        }
        expectAsModelled(text, totals);
        if (HasFatalFailure()) return;
    }
    EXPECT_GT(totals.loaded, 50);
    EXPECT_GT(totals.failed, 50);
}

// What the model takes for an abort is one.
TEST(ModelDeathTest, MapsOfTooManyChannelsEndTheProcess) {
    RandomChooser chooser(17);
    const std::vector<std::string> texts = examples();
    int aborting = 0;
    while (aborting < 20) {
        const std::string text = edited(documentOf(texts[chooser.below(texts.size())]), chooser);
        const std::optional<Value> document = readDocument(text);
        for (const Loader loader : {Loader::Full, Loader::Aec}) {
            Expectation expected;
            expect(loader, document, expected);
            if (!expected.aborts) continue;
            ++aborting;
            const MemoryFile file(text);
            EXPECT_EXIT(load(loader, file.path()), testing::KilledBySignal(SIGABRT),
                        "Assertion chns <= 16 failed at parseEboAecConfigs")
                << text;
        }
    }
}

TEST(Model, AgreesOverDocumentsThatWereFoundBefore) {
    Totals totals;
    for (const auto& entry : std::filesystem::directory_iterator(EBO_REGRESSIONS_DIR "/documents")) {
        SCOPED_TRACE(entry.path());
        expectAsModelled(contentOf(entry.path()), totals);
    }
}

TEST(Rows, AgreeWithTheCLibraryOverTextsThatWereFoundBefore) {
    for (const auto& entry : std::filesystem::directory_iterator(EBO_REGRESSIONS_DIR "/rows")) {
        EXPECT_EQ(rowDifferences(contentOf(entry.path())), "") << entry.path();
    }
}

TEST(Rows, AgreeWithTheCLibrary) {
    RandomChooser chooser(4);
    for (int i = 0; i < 20000; ++i) ASSERT_EQ(rowDifferences(oddRow(chooser)), "");
}

}  // namespace
