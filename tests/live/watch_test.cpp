// Every way in which what a path leads to may change is seen, and nothing else.
#include "watch.h"

#include <gtest/gtest.h>

#include "files.h"

using ebo_live::Watch;
using live_test::Scratch;
using live_test::writeText;
namespace fs = std::filesystem;

namespace {

class Watching : public testing::Test {
protected:
    Scratch scratch;

    // Whether a watch of the path sees the change, and the next one, another way to the same end.
    bool sees(const std::string& path, const std::function<void()>& change) {
        Watch watch(path);
        watch.follow();
        EXPECT_TRUE(watch.complete());
        EXPECT_FALSE(watch.changed());
        change();
        const bool seen = watch.changed();
        watch.follow();
        EXPECT_FALSE(watch.changed()) << "of its own doing";
        return seen;
    }
};

TEST_F(Watching, SeesTheFile) {
    const std::string file = scratch / "file";
    EXPECT_TRUE(sees(file, [&] { writeText(file, "made"); }));
    EXPECT_TRUE(sees(file, [&] { writeText(file, "written"); }));
    EXPECT_TRUE(sees(file, [&] { live_test::replaceText(file, "replaced"); }));
    EXPECT_TRUE(sees(file, [&] { fs::rename(file, scratch / "away"); }));
    EXPECT_TRUE(sees(file, [&] { fs::create_hard_link(scratch / "away", file); }));
    EXPECT_TRUE(sees(file, [&] { fs::remove(file); }));
}

TEST_F(Watching, SeesNothingElse) {
    const std::string file = scratch / "file";
    writeText(file, "");
    EXPECT_FALSE(sees(file, [&] {
        writeText(scratch / "files", "");
        writeText(scratch / "fil", "");
        live_test::readText(file);
        fs::create_directory(scratch / "folder");
        writeText(scratch / "folder/file", "");
    }));
}

TEST_F(Watching, SeesLinksAndWhereTheyLead) {
    fs::create_directories(scratch / "v1");
    fs::create_directories(scratch / "v2");
    writeText(scratch / "v1/file", "");
    writeText(scratch / "v2/file", "");
    const auto swap = [&](const std::string& name, const std::string& target) {
        fs::create_symlink(target, scratch / "new");
        fs::rename(scratch / "new", scratch / name);
    };
    swap("data", "v1");                   // a folder by its relative name
    swap("file", "./data/../data/file");  // a file through it
    const std::string file = scratch / "file";
    EXPECT_TRUE(sees(file, [&] { writeText(scratch / "v1/file", "written"); }));
    EXPECT_FALSE(sees(file, [&] { writeText(scratch / "v2/file", "written"); }));
    EXPECT_TRUE(sees(file, [&] { swap("data", scratch / "v2"); }));
    EXPECT_TRUE(sees(file, [&] { writeText(scratch / "v2/file", "written"); }));
    EXPECT_TRUE(sees(file, [&] { swap("file", scratch / "v1/file"); }));
    EXPECT_FALSE(sees(file, [&] { writeText(scratch / "v2/file", "written"); }));
}

TEST_F(Watching, GoesOnWhenFoldersGoAndComeBack) {
    fs::create_directories(scratch / "a/b");
    writeText(scratch / "a/b/file", "");
    Watch watch(scratch / "a/b/file");
    watch.follow();
    for (int i = 0; i < 3; ++i) {
        fs::remove_all(scratch / "a");
        EXPECT_TRUE(watch.changed());
        watch.follow();
        fs::create_directories(scratch / "a/b");
        EXPECT_TRUE(watch.changed());
        watch.follow();
        writeText(scratch / "a/b/file", "");
        EXPECT_TRUE(watch.changed());
        watch.follow();
        fs::rename(scratch / "a", scratch / "elsewhere");
        EXPECT_TRUE(watch.changed());
        watch.follow();
        writeText(scratch / "elsewhere/b/file", "");
        EXPECT_FALSE(watch.changed());
        fs::remove_all(scratch / "elsewhere");
        fs::create_directories(scratch / "a/b");
        EXPECT_TRUE(watch.changed());
        watch.follow();
    }
}

TEST_F(Watching, TakesRelativePathsAndLoopsOfLinks) {
    const fs::path here = fs::current_path();
    fs::current_path(scratch.folder());
    EXPECT_TRUE(sees("file", [] { writeText("file", ""); }));
    fs::create_symlink("two", "one");
    fs::create_symlink("one", "two");
    EXPECT_TRUE(sees("one", [] { fs::remove("two"); }));
    fs::current_path(here);
}

TEST_F(Watching, TakesAnOverflowForAChange) {
    const std::string file = scratch / "file";
    Watch watch(file);
    watch.follow();
    const int most = std::stoi(live_test::readText("/proc/sys/fs/inotify/max_queued_events"));
    for (int i = 0; i <= most / 3; ++i) {  // three events each, no two alike in a row
        writeText(scratch / "other", "");
        fs::remove(scratch / "other");
    }
    EXPECT_TRUE(watch.changed());
    EXPECT_EQ(watch.overflows(), 1U);
    watch.follow();
    writeText(file, "");
    EXPECT_TRUE(watch.changed());
}

}  // namespace
