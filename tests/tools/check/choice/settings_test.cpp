// eboconf.toml: what it says, its faults, and which one a file has.
#include "check/choice/settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <regex>

namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class SettingsFiles : public testing::Test {
protected:
    void SetUp() override { fs::create_directories(folder_); }
    void TearDown() override { fs::remove_all(folder_); }

    void write(const std::string& name, const std::string& text) const {
        fs::create_directories(fs::path(at(name)).parent_path());
        std::ofstream(at(name)) << text;
    }

    std::string at(const std::string& name) const { return folder_ + '/' + name; }

    // "2:1: ..."
    std::string faultsOf(const std::string& text) const {
        write("eboconf.toml", text);
        std::string all;
        for (const SettingsFault& fault : readSettings(at("eboconf.toml")).faults) {
            all += std::to_string(fault.line) + ':' + std::to_string(fault.column) + ": " + fault.text + '\n';
        }
        return all;
    }

private:
    const std::string folder_ =
        fs::canonical(testing::TempDir()).string() + "/settings-" + std::to_string(getpid());
};

TEST_F(SettingsFiles, SayWhatACommandLineSays) {
    write("eboconf.toml", R"(
[check]
select = ["EBO1", "EBO23"]
ignore = [
    "EBO232",  # one a line
]
error = ["EBO230"]
warn = []
max = 7
fail-on = "never"
exclude = ["drafts/", "**/*.tmp.json"]
)");
    const Settings settings = readSettings(at("eboconf.toml"));
    EXPECT_TRUE(settings.faults.empty());
    EXPECT_EQ(settings.file, at("eboconf.toml"));
    EXPECT_EQ(settings.check.select, Names({"EBO1", "EBO23"}));
    EXPECT_EQ(settings.check.ignore, Names({"EBO232"}));
    EXPECT_EQ(settings.check.error, Names({"EBO230"}));
    EXPECT_EQ(settings.check.warn, Names());
    EXPECT_EQ(settings.check.max, 7U);
    EXPECT_EQ(settings.check.failOn, FailOn::Never);
    EXPECT_EQ(settings.exclude, std::vector<PathParts>({{"drafts"}, {"**", "*.tmp.json"}}));
}

TEST_F(SettingsFiles, HaveFaultsWithTheirPlaces) {
    const struct {
        const char* text;
        const char* faults;
    } rows[] = {
        {"", ""},
        {"[check]\n", ""},
        {"check.warn = ['EBO1']", ""},
        {"[chekc]\n", "1:2: unknown table \"chekc\"; did you mean \"check\"?\n"},
        {"\n  [rules]\n", "2:4: unknown table \"rules\"; expected \"check\"\n"},
        {"[[rules]]\n", "1:3: unknown table \"rules\"; expected \"check\"\n"},
        {"max = 1\n", "1:1: unknown key \"max\" outside of a table; expected \"check\"\n"},
        {"check = 5\n", "1:9: \"check\" is an integer; expected a table\n"},
        {"[[check]]\n", "1:1: \"check\" is an array; expected a table\n"},
        {"[check]\nfial-on = 'error'\n",
         "2:1: unknown key \"fial-on\" of [check]; did you mean \"fail-on\"?\n"},
        {"[check]\n\"a\\nb\" = 1\n",
         "2:1: unknown key \"a\\nb\" of [check]; expected one of \"select\", \"ignore\", \"error\", "
         "\"warn\", "
         "\"fail-on\", \"max\", \"exclude\"\n"},
        {"[check]\n[check.select]\n", "2:1: \"select\" is a table; expected an array of strings\n"},
        {"[check]\nselect = 'EBO1'\n", "2:10: \"select\" is a string; expected an array of strings\n"},
        {"[check]\nselect = ['EBO1', true]\n", "2:19: value of \"select\" is a boolean; expected a string\n"},
        {"[check]\nerror = [1.5]\n",
         "2:10: value of \"error\" is a number with a fraction or exponent; expected a string\n"},
        {"[check]\nexclude = [1979-05-27]\n",
         "2:12: value of \"exclude\" is a date or time; expected a string\n"},
        {"[check]\nwarn = [\n 'EBO2',\n 'ebo104']\n",
         "4:2: there is no code \"ebo104\"; did you mean \"EBO104\"?\n"},
        {"[check]\nfail-on = 'errors'\n", "2:11: unknown level \"errors\"; did you mean \"error\"?\n"},
        {"[check]\nfail-on = 'mild'\n",
         "2:11: unknown level \"mild\"; expected one of \"error\", \"warning\", \"info\", \"never\"\n"},
        {"[check]\nfail-on = 1\n", "2:11: \"fail-on\" is an integer; expected a string\n"},
        {"[check]\nmax = -1\n", "2:7: \"max\" is negative\n"},
        {"[check]\nmax = '1'\n", "2:7: \"max\" is a string; expected an integer\n"},
        // All of them, in their order.
        {"[check]\nwarn = 1\nmax = -1\nerror = ['X', 'Y']\n",
         "2:8: \"warn\" is an integer; expected an array of strings\n3:7: \"max\" is negative\n"
         "4:10: there is no code \"X\"\n4:15: there is no code \"Y\"\n"},
    };
    for (const auto& row : rows) EXPECT_EQ(faultsOf(row.text), row.faults) << row.text;
}

TEST_F(SettingsFiles, ThatAreNoTomlHaveOneFault) {
    EXPECT_THAT(faultsOf("[check]\nmax = \n"), testing::MatchesRegex("2:[0-9]+: Error while parsing.*\n"));
    EXPECT_THAT(faultsOf("[check]\nmax = 1\nmax = 2\n"), testing::StartsWith("3:"));
    EXPECT_THAT(faultsOf("[check\n"), testing::StartsWith("1:7: "));
    EXPECT_THAT(faultsOf("\xFF"), testing::HasSubstr("utf-8"));
    EXPECT_THAT(faultsOf("{}"), testing::StartsWith("1:1: "));
}

TEST_F(SettingsFiles, ThatCannotBeReadSayWhy) {
    fs::create_directories(at("folder"));
    for (const auto& [name, why] :
         {std::pair("none", "No such file or directory"), std::pair("folder", "Is a directory")}) {
        const Settings settings = readSettings(at(name));
        ASSERT_EQ(settings.faults.size(), 1U);
        EXPECT_EQ(settings.faults[0].line, 0U);
        EXPECT_EQ(settings.faults[0].text, "cannot be read: " + std::string(why));
    }
}

TEST_F(SettingsFiles, ThatAreNearestCount) {
    write("eboconf.toml", "[check]\nmax = 1\nexclude = ['a/x.json', 'drafts', '*.json']\n");
    write("b/eboconf.toml", "[check]\nmax = 2\n");
    fs::create_directories(at("a"));
    fs::create_directories(at("b/c/d"));
    fs::create_directory_symlink("b/c", at("link"));
    NearestSettings nearest;
    const auto maxOf = [&](const std::string& file) { return nearest.of(file).check.max; };
    EXPECT_EQ(maxOf(at("x.json")), 1U);
    EXPECT_EQ(maxOf(at("a/x.json")), 1U);
    EXPECT_EQ(maxOf(at("b/x.json")), 2U);
    EXPECT_EQ(maxOf(at("b/c/d/x.json")), 2U);
    EXPECT_EQ(maxOf(at("link/d/../x.json")), 2U);
    EXPECT_EQ(maxOf(at("link/x.json")), 2U);
    EXPECT_EQ(maxOf(at("nowhere/x.json")), std::nullopt);
    EXPECT_EQ(maxOf("/x.json"), std::nullopt);
    EXPECT_TRUE(nearest.isExcluded(at("a/x.json")));
    EXPECT_TRUE(nearest.isExcluded(at("drafts")));
    EXPECT_TRUE(nearest.isExcluded(at("x.json")));
    EXPECT_FALSE(nearest.isExcluded(at("a/y.json")));
    EXPECT_FALSE(nearest.isExcluded(at("a/drafts")));
    EXPECT_FALSE(nearest.isExcluded(at("b/x.json")));
    EXPECT_FALSE(nearest.isExcluded("/x.json"));
    EXPECT_TRUE(nearest.faulty().empty());
    // Each is read once.
    write("b/eboconf.toml", "[check]\nmax = 3\n");
    EXPECT_EQ(maxOf(at("b/c/x.json")), 2U);
}

TEST_F(SettingsFiles, WithFaultsAreNamed) {
    write("a/eboconf.toml", "[check]\n");
    write("b/eboconf.toml", "[chek]\n");
    fs::create_directories(at("c"));
    fs::create_symlink("nowhere", at("c/eboconf.toml"));
    NearestSettings nearest;
    for (const char* file : {"a/x.json", "b/x.json", "b/y.json", "c/x.json", "x.json"}) nearest.of(at(file));
    Names named;
    for (const Settings* settings : nearest.faulty()) named.push_back(settings->file);
    EXPECT_EQ(named, Names({at("b/eboconf.toml"), at("c/eboconf.toml")}));
}

TEST_F(SettingsFiles, OfAFileWithoutFolderAreThoseOfTheCurrentOne) {
    write("eboconf.toml", "[check]\nmax = 1\n");
    const fs::path before = fs::current_path();
    fs::create_directories(at("a"));
    fs::current_path(at("a"));
    NearestSettings nearest;
    EXPECT_EQ(nearest.of("x.json").check.max, 1U);
    EXPECT_EQ(nearest.of("-").check.max, 1U);
    EXPECT_EQ(nearest.of("../x.json").check.max, 1U);
    EXPECT_EQ(nearest.of("../../x.json").check.max, std::nullopt);
    fs::current_path(before);
}

TEST_F(SettingsFiles, AreAsThePageShowsThem) {
    std::ifstream page(EBO_DOCS_DIR "/eboconf-toml.md");
    std::string example;
    std::string keys;
    bool isExample = false;
    for (std::string line; std::getline(page, line);) {
        if (line == "```") isExample = false;
        if (isExample) example += line + '\n';
        if (line == "```toml") isExample = true;
        const std::string column = line.compare(0, 3, "| `") == 0 ? line.substr(0, line.find(" | ")) : "";
        const std::regex name("`([^`]+)`");
        for (std::sregex_iterator at(column.begin(), column.end(), name), end; at != end; ++at) {
            keys += (keys.empty() ? "\"" : ", \"") + at->str(1) + '"';
        }
    }
    EXPECT_GT(example.size(), 100U);
    EXPECT_EQ(faultsOf(example), "");
    EXPECT_EQ(faultsOf("[check]\nx = 1"),
              "2:1: unknown key \"x\" of [check]; expected one of " + keys + '\n');
}

}  // namespace
