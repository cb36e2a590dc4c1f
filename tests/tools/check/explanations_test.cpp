// What the findings mean: every example draws its finding, and mended it does not.
#include "check/explanations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <set>
#include <sstream>

#include "check/file.h"
#include "loading.h"
#include "report/check_report.h"

namespace {

std::set<std::string> codesIn(const std::string& text, const char* part) {
    const LogCatcher ignored;
    const std::string path = testing::TempDir() + std::to_string(getpid()) + "-explained.json";
    std::ofstream(path, std::ios::binary) << text;
    std::set<std::string> codes;
    for (const CheckFinding& finding : checkFile(path, partNamed(part)).findings)
        codes.insert(finding.code->id);
    std::remove(path.c_str());
    return codes;
}

TEST(Explanations, HaveExamplesThatDrawTheFindingUntilTheyAreMended) {
    const std::string file = readText(EBO_TUNINGS_DIR "/two-mic-speaker.json");
    for (const CheckCode* code : checkCodes()) {
        const CheckExplanation& row = explanationOf(*code);
        std::string wrong = row.wrong;
        std::string right = row.right;
        // A part of a file stands once in the one that is without fault.
        if (const size_t at = file.find(right); at != std::string::npos) {
            EXPECT_EQ(file.find(right, at + 1), std::string::npos) << code->id;
            wrong = std::string(file).replace(at, right.size(), wrong);
            right = file;
        }
        EXPECT_THAT(codesIn(wrong, row.part), testing::Contains(code->id));
        EXPECT_THAT(codesIn(right, row.part), testing::Not(testing::Contains(code->id)));
        EXPECT_THAT(codesIn(right, row.part), testing::Not(testing::Contains("EBO101"))) << code->id;
    }
}

TEST(Explanations, AreSentencesAndNoTwoAreTheSame) {
    std::set<std::string> examples;
    for (const CheckCode* code : checkCodes()) {
        const CheckExplanation& row = explanationOf(*code);
        ASSERT_EQ(row.code, code);
        for (const std::string text : {row.meaning, row.mend}) {
            EXPECT_EQ(text.back(), '.') << code->id;
            EXPECT_TRUE(text[0] >= 'A' && text[0] <= 'Z') << code->id;
        }
        EXPECT_TRUE(examples.insert(std::string(row.wrong) + row.part).second) << code->id;
    }
}

TEST(Explanations, AreFoundByTheirCodes) {
    for (const CheckCode* code : checkCodes()) EXPECT_EQ(codeNamed(code->id), code);
    for (const char* none : {"", "EBO", "EBO2", "EBO300", "ebo104"}) EXPECT_EQ(codeNamed(none), nullptr);
}

TEST(Explanations, AreWrittenWithAnExample) {
    std::ostringstream out;
    writeExplanation(kUnreadable, 60, out);
    EXPECT_EQ(out.str(), R"(EBO100: file that cannot be read (error)

The file is not there, may not be opened, is empty, is
larger than the framework takes, or is no regular file. A
device reads nothing of it.

With this finding:
    (an empty file)
Without:
    { "ebo_ao_configs": {} }

Look at the path, at the rights of file and folder, and at
what the file holds.
)");
}

}  // namespace
