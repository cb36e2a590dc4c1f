// Files that cannot be read, and how files are read.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "calls.h"
#include "scratch.h"

namespace {

constexpr char kText[] = R"({"r": {"s": {"k": 1}}})";
constexpr size_t kLimit = size_t{64} << 20;

// What loading the file logs, without its path; "" when it loads.
std::string complaint(const char* path) {
    KAJsonParser parser;
    const Messages messages;
    calls = {};
    const int loaded = parser.parseFile(path);
    EXPECT_EQ(calls.open, calls.close) << "files left open";
    const std::string message = messages.without(path ? path : "");
    EXPECT_EQ(loaded == 0, !message.empty());
    return message;
}

// A folder of its own, gone with the object.
class ScratchFolder {
public:
    ScratchFolder() : path_(testing::TempDir() + "framework_test_XXXXXX") {
        EXPECT_NE(nullptr, mkdtemp(path_.data()));
    }
    ~ScratchFolder() { std::filesystem::remove_all(path_); }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::string file(const char* name) const { return path_ + "/" + name; }

private:
    std::string path_;
};

TEST(File, NoNameIsReported) {
    EXPECT_EQ("(null): no file name\n", complaint(nullptr));
}

TEST(File, ThatIsMissingIsReported) {
    const ScratchFolder folder;
    EXPECT_EQ(": cannot be opened: No such file or directory\n",
              complaint(folder.file("missing.json").c_str()));
    EXPECT_EQ(": cannot be opened: No such file or directory\n", complaint(""));
}

TEST(File, ThatCannotBeOpenedIsReported) {
    const ScratchFolder folder;
    const ScratchFile file(kText);
    const std::string below = std::string(file.path()) + "/below.json";
    EXPECT_EQ(": cannot be opened: Not a directory\n", complaint(below.c_str()));
    const std::string loop = folder.file("loop.json");
    ASSERT_EQ(0, symlink(loop.c_str(), loop.c_str()));
    EXPECT_EQ(": cannot be opened: Too many levels of symbolic links\n", complaint(loop.c_str()));
    const std::string long_name = folder.file(std::string(5000, 'x').c_str());
    EXPECT_EQ(": cannot be opened: File name too long\n", complaint(long_name.c_str()));
}

TEST(File, MustBeARegularOne) {
    const ScratchFolder folder;
    const std::string pipe = folder.file("pipe.json");
    ASSERT_EQ(0, mkfifo(pipe.c_str(), 0600));
    EXPECT_EQ(": not a regular file\n", complaint(pipe.c_str()));
    EXPECT_EQ(": not a regular file\n", complaint(folder.file(".").c_str()));
    EXPECT_EQ(": not a regular file\n", complaint("/dev/zero"));
    EXPECT_EQ(": not a regular file\n", complaint("/dev/null"));
}

TEST(File, MayBeALink) {
    const ScratchFolder folder;
    const ScratchFile file(kText);
    const std::string link = folder.file("link.json");
    ASSERT_EQ(0, symlink(file.path(), link.c_str()));
    EXPECT_EQ("", complaint(link.c_str()));
}

TEST(File, ThatIsEmptyIsReported) {
    EXPECT_EQ(": the file is empty\n", complaint(ScratchFile("").path()));
}

TEST(File, MayBeOneByteLong) {
    EXPECT_EQ("", complaint(ScratchFile("1").path()));
}

TEST(File, MayHave64MebibytesAndNotOneMore) {
    ScratchFile file(kText);
    EXPECT_EQ(0, truncate(file.path(), static_cast<off_t>(kLimit + 1)));
    EXPECT_EQ(": larger than 64 MiB\n", complaint(file.path()));
    EXPECT_EQ(0, calls.read);
    EXPECT_EQ("", complaint(ScratchFile(std::string(kLimit - 1, ' ') + "1").path()));
}

TEST(File, TakesFourCallsOfTheSystem) {
    const ScratchFile file(kText);
    EXPECT_EQ("", complaint(file.path()));
    EXPECT_EQ(1, calls.open);
    EXPECT_EQ(1, calls.fstat);
    EXPECT_EQ(1, calls.read);
    EXPECT_EQ(1, calls.close);
}

TEST(File, IsNotInheritedAndNeverBlocks) {
    const ScratchFile file(kText);
    EXPECT_EQ("", complaint(file.path()));
    EXPECT_EQ(O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, calls.open_flags);
}

int valueAfter(const Calls& orders) {
    const ScratchFile file(kText);
    KAJsonParser parser;
    calls = orders;
    EXPECT_NE(0, parser.parseFile(file.path()));
    calls = {};
    KaMetaData keys;
    parser.getOptions("r", "s", &keys);
    int value = -1;
    keys.findInt32("k", &value);
    return value;
}

TEST(File, ReadInPiecesOrAfterInterruptsIsWhole) {
    Calls orders;
    orders.read_limit = 5;
    EXPECT_EQ(1, valueAfter(orders));
    orders.read_limit = 1;
    orders.interrupts = 3;
    orders.open_interrupts = 2;
    EXPECT_EQ(1, valueAfter(orders));
}

std::string complaintAfter(std::string_view text, const Calls& orders) {
    const ScratchFile file(text);
    const Messages messages;
    KAJsonParser parser;
    calls = orders;
    EXPECT_EQ(0, parser.parseFile(file.path()));
    EXPECT_EQ(calls.open, calls.close);
    calls = {};
    return messages.without(file.path());
}

TEST(File, ThatCannotBeReadIsReported) {
    Calls orders;
    orders.read_errno = EIO;
    EXPECT_EQ(": cannot be read: Input/output error\n", complaintAfter(kText, orders));
}

TEST(File, OfUnknownKindIsReported) {
    Calls orders;
    orders.fstat_errno = EIO;
    EXPECT_EQ(": cannot be opened: Input/output error\n", complaintAfter(kText, orders));
}

TEST(File, ThatWasEmptiedMeanwhileIsReported) {
    Calls orders;
    orders.reads_to_end = 0;
    EXPECT_EQ(": the file is empty\n", complaintAfter(kText, orders));
}

TEST(File, ThatWasCutMeanwhileIsReadAsFarAsItGoes) {
    Calls orders;
    orders.read_limit = 4;
    orders.reads_to_end = 1;
    EXPECT_EQ(":1:5: the text ends too early\n", complaintAfter("[12, 3]", orders));
    const ScratchFile whole("[12], 3");
    KAJsonParser parser;
    calls = orders;
    EXPECT_NE(0, parser.parseFile(whole.path()));
    calls = {};
}

}  // namespace
