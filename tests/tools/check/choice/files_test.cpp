// Folders and patterns as names of files.
#include "check/choice/files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

// In a folder of its own, which is the current one.
class Files : public testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(folder_);
        fs::current_path(folder_);
    }

    void TearDown() override {
        fs::current_path(before_);
        fs::remove_all(folder_);
    }

    static void make(const Names& names) {
        for (const std::string& name : names) {
            if (const fs::path parent = fs::path(name).parent_path(); !parent.empty())
                fs::create_directories(parent);
            std::ofstream(name) << "{}";
        }
    }

    // Without `excluded`, a file or a folder.
    static FoundFiles find(const Names& named, const std::string& excluded = "") {
        return findFiles(named, [&](const std::string& path) {
            std::error_code unknown;
            EXPECT_NE(fs::symlink_status(path, unknown).type(), fs::file_type::not_found) << path;
            return path == excluded;
        });
    }

    // Some files, and nothing that stands for none.
    static void expect(const Names& named, const Names& files) {
        const FoundFiles found = find(named);
        EXPECT_EQ(found.files, files) << testing::PrintToString(named);
        EXPECT_EQ(found.empty, Names()) << testing::PrintToString(named);
    }

private:
    const fs::path before_ = fs::current_path();
    const std::string folder_ = testing::TempDir() + "files-" + std::to_string(getpid());
};

const Names kTree = {"a.json",           "b/c.json", "b/d/e.json",      "b/d/readme.md", "b/.hidden.json",
                     ".git/config.json", "b/d.json", "b/x.json/f.json", "no.jsonc",      "json"};
const Names kAll = {"a.json", "b/c.json", "b/d/e.json", "b/d.json", "b/x.json/f.json"};

TEST_F(Files, OfAFolderAreItsJsonByNameAndNothingHidden) {
    make(kTree);
    expect({"."}, kAll);
    expect({"./"}, kAll);
    expect({"b"}, {"b/c.json", "b/d/e.json", "b/d.json", "b/x.json/f.json"});
    expect({"b/d/"}, {"b/d/e.json"});
    expect({"b/d", "a.json"}, {"b/d/e.json", "a.json"});
    expect({".git"}, {".git/config.json"});
    expect({fs::current_path() / "b/d"}, {fs::current_path() / "b/d/e.json"});
}

TEST_F(Files, OfAPatternAreThoseThatMatch) {
    make(kTree);
    expect({"*.json"}, {"a.json"});
    expect({"*/*.json"}, {"b/c.json", "b/d.json"});
    expect({"**/*.json"}, kAll);
    expect({"./**/*.json"}, kAll);
    expect({"**"}, {"a.json", "b/c.json", "b/d/e.json", "b/d/readme.md", "b/d.json", "b/x.json/f.json",
                    "json", "no.jsonc"});
    expect({"b/**/e.json"}, {"b/d/e.json"});
    expect({"b/[c-d].js?n"}, {"b/c.json", "b/d.json"});
    expect({"b/[!c].json"}, {"b/d.json"});
    expect({"*/d/*"}, {"b/d/e.json", "b/d/readme.md"});
    expect({".git/*.json"}, {".git/config.json"});
    expect({fs::current_path() / "b/c*"}, {fs::current_path() / "b/c.json"});
}

TEST_F(Files, ThatAreNamedThemselvesAreTakenAsTheyAre) {
    make({"[a].json", "a.json", "no.txt"});
    expect({"[a].json", "no.txt", "-", "missing.json", ""}, {"[a].json", "no.txt", "-", "missing.json", ""});
    expect({"a.json", "a.json"}, {"a.json", "a.json"});
    expect({".", "a.json", "[a]*"}, {"[a].json", "a.json"});
    EXPECT_EQ(find({"a.json", "*"}, "a.json").files, Names({"a.json", "[a].json", "no.txt"}));
}

TEST_F(Files, CanBeExcludedWithTheirFolders) {
    make(kTree);
    const Names rest = {"a.json", "b/c.json", "b/d.json", "b/x.json/f.json"};
    for (const char* name : {".", "**/*.json"}) EXPECT_EQ(find({name}, "b/d").files, rest);
    EXPECT_EQ(find({"b/*/*.json"}, "b/d").files, Names({"b/x.json/f.json"}));
    EXPECT_EQ(find({"b/d"}, "b/d").files, Names({"b/d/e.json"}));
    EXPECT_EQ(find({"b/d", "b/d/*.json"}, "b/d/e.json").empty, Names({"b/d", "b/d/*.json"}));
}

TEST_F(Files, AreNotFoundInEmptyFoldersAndByPatternsOfNone) {
    make({"a.json", "b/readme.md"});
    const Names none = {"b", "*.jsn", "c/*.json", "a.json/*", "*/a.json", "[b"};
    const FoundFiles found = find(none);
    EXPECT_EQ(found.empty, Names({"b", "*.jsn", "c/*.json", "a.json/*", "*/a.json", "[b"}));
    EXPECT_EQ(found.files, Names());
}

TEST_F(Files, BeyondLinkedFoldersAreLeftOut) {
    make({"a/b.json", "c/d.json"});
    fs::create_directory_symlink("..", "a/up");
    fs::create_directory_symlink("../c", "a/c");
    fs::create_symlink("../c/d.json", "a/d.json");
    fs::create_symlink("nowhere", "a/broken.json");
    fs::create_symlink("self.json", "a/self.json");
    fs::create_directory_symlink("../c", "a/folder.json");
    ASSERT_EQ(mkfifo("a/pipe.json", 0600), 0);
    expect({"a"}, {"a/b.json", "a/broken.json", "a/d.json", "a/self.json"});
    expect({"a/c"}, {"a/c/d.json"});
    expect({"a/pipe.json", "a/up/a/b.*"}, {"a/pipe.json", "a/up/a/b.json"});
    EXPECT_EQ(find({"a/u*/*.json"}).files, Names());
}

TEST_F(Files, MayHaveAnyName) {
    make({"two words.json", "line\nbreak.json", "quote\".json", "\xFF.json", "-x.json", "d\n/*.json"});
    expect({"."},
           {"-x.json", "d\n/*.json", "line\nbreak.json", "quote\".json", "two words.json", "\xFF.json"});
    expect({"*\n*.json"}, {"line\nbreak.json"});
    expect({"d\n/*.json"}, {"d\n/*.json"});
}

// Deeper than a path can be long: nobody can open that, root included.
TEST_F(Files, OfAFolderThatCannotBeReadAreReportedByTheFolder) {
    const std::string name(200, 'f');
    const fs::path top = fs::current_path();
    make({"a/z.json"});
    fs::current_path("a");
    for (int depth = 0; depth < 22; ++depth) {
        ASSERT_EQ(mkdir(name.c_str(), 0700), 0);
        ASSERT_EQ(chdir(name.c_str()), 0);
    }
    ASSERT_EQ(chdir(top.c_str()), 0);
    const Names files = find({"a"}).files;
    ASSERT_EQ(files.size(), 2U) << testing::PrintToString(files);
    EXPECT_THAT(files[0], testing::EndsWith("/f" + name.substr(1)));
    EXPECT_FALSE(std::ifstream(files[0]).is_open());
    EXPECT_EQ(files[1], "a/z.json");
    EXPECT_EQ(find({"a/" + std::string(300, 'x') + "/*.json"}).files, Names({"a/" + std::string(300, 'x')}));
}

}  // namespace
