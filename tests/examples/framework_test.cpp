// What the example of another framework says about files that it does not take.
#include <gtest/gtest.h>
#include <ka/log_ring.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

#include "harness/host.h"

namespace {

// What loading the file logs, without its path; "" when it loads.
std::string complaint(const char* path) {
    const uint64_t before = ka_log_last();
    const int loaded = KAJsonParser().parseFile(path);
    std::string said;
    for (const KaLogEntry& entry : ka_log_since(before)) said += entry.text;
    EXPECT_EQ(loaded == 0, !said.empty());
    const std::string name = path == nullptr ? "(null)" : path;
    return said.rfind(name + ": ", 0) == 0 ? said.substr(name.size() + 2) : said;
}

struct Row {
    const char* name;
    const char* text;
    const char* complaint;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.name;
}

class ExampleFramework : public testing::TestWithParam<Row> {};

INSTANTIATE_TEST_SUITE_P(
    , ExampleFramework,
    testing::Values(Row{"Object", R"({"r": {}})", ""}, Row{"Empty", "", "unexpected end of data"},
                    Row{"Cut", R"({"r": {"s")", "unexpected end of data"}, Row{"Number", "12", ""},
                    Row{"Null", "null", ""}, Row{"Array", "[]", ""},
                    Row{"NulInText", R"({"r": {"s": {"k": "a\u0000b"}}})", ""},
                    Row{"EscapedBackslashInName", R"({"a\\u0000": 1})", ""},
                    Row{"NulInName", R"({"r": {"s": {"k\u0000" : 1}}})", "has a name with \\u0000 inside"},
                    Row{"NulAfterQuoteInName", R"({"a": "b", "\"\u0000": 1})",
                        "has a name with \\u0000 inside"},
                    Row{"BraceTooMany", "{}}", "unexpected character"}));

TEST_P(ExampleFramework, SaysWhyItTakesNoFile) {
    Host host;
    EXPECT_EQ(complaint(host.file(GetParam().text).c_str()), GetParam().complaint);
}

TEST(ExampleFrameworkSection, HasNothingToFillWithoutARecord) {
    Host host;
    Document document(host, R"({"r": {"s": {"k": 1}}})");
    EXPECT_EQ(document.parser()->getOptions("r", "s", nullptr), 0);
}

TEST(ExampleFrameworkFile, MustBeARegularOne) {
    const std::string folder = testing::TempDir();
    const std::string pipe = folder + std::to_string(getpid()) + "-example_framework_pipe";
    std::remove(pipe.c_str());
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(complaint(pipe.c_str()), "is not a regular file");
    std::remove(pipe.c_str());
    EXPECT_EQ(complaint(pipe.c_str()), "cannot be read");
    EXPECT_EQ(complaint(folder.c_str()), "is not a regular file");
    EXPECT_EQ(complaint(nullptr), "no file name");
}

}  // namespace
