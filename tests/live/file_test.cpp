// Files read whole, and handed on where nobody writes to them.
#include "file.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include "files.h"

using ebo_live::readFile;
using ebo_live::Snapshot;
using live_test::Scratch;
using live_test::writeText;

namespace {

TEST(ReadFile, TakesRegularFilesUpToTheLimit) {
    const Scratch scratch;
    const std::string path = scratch / "file";
    writeText(path, "12345");
    EXPECT_EQ(*readFile(path, 5).bytes, "12345");
    EXPECT_EQ(readFile(path, 4).bytes, nullptr);
    EXPECT_EQ(readFile(path, 4).reason, "is larger than 4 bytes");
    writeText(path, "");
    EXPECT_EQ(*readFile(path, 5).bytes, "");
    EXPECT_EQ(readFile(scratch / "none", 5).reason, "cannot be opened: No such file or directory");
    EXPECT_EQ(readFile(scratch.folder(), 5).reason, "is not a regular file");
    ASSERT_EQ(mkfifo((scratch / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(readFile(scratch / "pipe", 5).reason, "is not a regular file");
}

// Its size is said to be 0.
TEST(ReadFile, TakesFilesThatAreLongerThanTheySay) {
    EXPECT_GT(readFile("/proc/self/status", 1U << 20).bytes->size(), 100U);
    EXPECT_EQ(readFile("/proc/self/status", 100).reason, "is larger than 100 bytes");
}

TEST(ReadFile, SeesThatSomebodyIsWriting) {
    const Scratch scratch;
    const std::string path = scratch / "file";
    writeText(path, "12345");
    EXPECT_FALSE(readFile(path, 5).written);
    {
        const ebo_live::Descriptor writer(open(path.c_str(), O_WRONLY | O_CLOEXEC));
        EXPECT_TRUE(readFile(path, 5).written);
    }
    EXPECT_FALSE(readFile(path, 5).written);
}

TEST(Fingerprint, IsThatOfTheSameBytesOnly) {
    const auto print = ebo_live::fingerprintOf("abc");
    EXPECT_EQ(print.hash, 0xe71fa2190541574bU);  // published for this function
    EXPECT_TRUE(print == ebo_live::fingerprintOf("abc"));
    EXPECT_FALSE(print == ebo_live::fingerprintOf("abd"));
}

TEST(Snapshot, InMemoryIsWrittenByNobody) {
    const Snapshot snapshot("text");
    EXPECT_EQ(snapshot.path().rfind("/proc/self/fd/", 0), 0U);
    EXPECT_EQ(live_test::readText(snapshot.path()), "text");
    const ebo_live::Descriptor writer(open(snapshot.path().c_str(), O_WRONLY | O_CLOEXEC));
    EXPECT_FALSE(writer.open() && ebo_live::writeAll(writer.get(), "other"));
    EXPECT_NE(truncate(snapshot.path().c_str(), 0), 0);
    EXPECT_EQ(live_test::readText(snapshot.path()), "text");
}

TEST(Snapshot, InAFolderIsPrivateAndGoes) {
    const Scratch scratch;
    setenv("TMPDIR", scratch.folder().c_str(), 1);
    {
        const Snapshot snapshot("text", Snapshot::Where::Folder);
        EXPECT_EQ(snapshot.path().rfind(scratch.folder() + "/", 0), 0U);
        EXPECT_EQ(live_test::readText(snapshot.path()), "text");
        struct stat about = {};
        ASSERT_EQ(stat(snapshot.path().c_str(), &about), 0);
        EXPECT_EQ(about.st_mode & 0777U, 0600U);
    }
    EXPECT_TRUE(std::filesystem::is_empty(scratch.folder()));
    setenv("TMPDIR", (scratch / "none").c_str(), 1);
    EXPECT_EQ(Snapshot("text", Snapshot::Where::Folder).path(), "");
    unsetenv("TMPDIR");
}

}  // namespace
