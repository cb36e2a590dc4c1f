// Files that are no tuning files, through every loader: null, one report of the framework, none of the
// library.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "model/memory_file.h"
#include "model/observation.h"

using namespace model;

namespace {

std::string outcomeOf(const std::string& path) {
    std::string outcome;
    for (const Loader loader : kLoaders) {
        const Observation seen = observe(loader, path.c_str(), 0);
        EXPECT_TRUE(seen.parts.empty()) << nameOf(loader);
        EXPECT_TRUE(seen.log.empty()) << nameOf(loader);
        EXPECT_EQ(seen.refusals.size(), 1U) << nameOf(loader);
        if (seen.refusals.empty()) return "loads";
        EXPECT_EQ(seen.refusals[0].compare(0, path.size() + 2, path + ": "), 0) << seen.refusals[0];
        const std::string said = seen.refusals[0].substr(path.size() + 2);
        EXPECT_TRUE(outcome.empty() || outcome == said) << said;
        outcome = said;
    }
    return outcome;
}

class HostileFile : public testing::Test {
protected:
    HostileFile() : folder_(testing::TempDir() + "hostile_XXXXXX") {
        EXPECT_NE(mkdtemp(folder_.data()), nullptr);
        std::filesystem::permissions(folder_, std::filesystem::perms::all);
    }
    ~HostileFile() override { std::filesystem::remove_all(folder_); }
    std::string at(const std::string& name) const { return folder_ + "/" + name; }

private:
    std::string folder_;
};

TEST_F(HostileFile, MissingIsRefused) {
    EXPECT_EQ(outcomeOf(at("missing.json")), "cannot be opened: No such file or directory");
}

TEST_F(HostileFile, EmptyIsRefused) {
    EXPECT_EQ(outcomeOf(MemoryFile("").path()), "the file is empty");
}

TEST_F(HostileFile, DirectoryIsRefused) {
    EXPECT_EQ(outcomeOf(at("")), "not a regular file");
}

TEST_F(HostileFile, UnreadableIsRefused) {
    const std::string path = at("secret.json");
    std::ofstream(path) << "{}";
    std::filesystem::permissions(path, std::filesystem::perms::none);
    // Nothing is unreadable to root.
    const uid_t self = geteuid();
    if (self == 0 && seteuid(65534) != 0) FAIL();
    const std::string outcome = outcomeOf(path);
    if (self == 0 && seteuid(0) != 0) FAIL();
    EXPECT_EQ(outcome, "cannot be opened: Permission denied");
}

TEST_F(HostileFile, PipeIsRefusedAtOnce) {
    const std::string path = at("pipe.json");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(outcomeOf(path), "not a regular file");
    const int writer = open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    ASSERT_EQ(write(writer, "{}", 2), 2);
    EXPECT_EQ(outcomeOf(path), "not a regular file");
    close(writer);
}

TEST_F(HostileFile, EndlessDeviceIsRefused) {
    EXPECT_EQ(outcomeOf("/dev/zero"), "not a regular file");
}

TEST_F(HostileFile, Of200MebibytesIsRefusedUnread) {
    const std::string path = at("large.json");
    std::ofstream(path) << "{}";
    std::filesystem::resize_file(path, size_t{200} << 20);
    EXPECT_EQ(outcomeOf(path), "larger than 64 MiB");
}

}  // namespace
