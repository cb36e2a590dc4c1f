// Lines on standard error, and the sink in their place.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <ka/log_sink.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "calls.h"
#include "scratch.h"

namespace {

const char* volatile g_null = nullptr;  // volatile: compilers object to a null that they can see
constexpr char kRed[] = "\x1b[31m\x1b[1m";

// Standard error goes to `fd` while it lives.
class StandardError {
public:
    explicit StandardError(int fd) : former_(dup(STDERR_FILENO)) { EXPECT_GE(dup2(fd, STDERR_FILENO), 0); }
    ~StandardError() {
        dup2(former_, STDERR_FILENO);
        close(former_);
    }
    StandardError(const StandardError&) = delete;
    StandardError& operator=(const StandardError&) = delete;

private:
    const int former_;
};

template <typename Logging>
std::string lines(Logging logging) {
    FILE* const file = tmpfile();
    {
        const StandardError to(fileno(file));
        calls = {};
        logging();
    }
    std::string all;
    rewind(file);
    for (int c; (c = fgetc(file)) != EOF;) all += static_cast<char>(c);
    fclose(file);
    return all;
}

template <typename Logging>
std::string terminalLine(Logging logging) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    EXPECT_EQ(0, grantpt(terminal));
    EXPECT_EQ(0, unlockpt(terminal));
    const int screen = open(ptsname(terminal), O_RDWR | O_NOCTTY);
    {
        const StandardError to(screen);
        logging();
    }
    // It comes in pieces when the machine is busy.
    std::string seen;
    char piece[1000];
    ssize_t size = 1;
    while (size > 0 && (seen.empty() || seen.back() != '\n')) {
        size = read(terminal, piece, sizeof piece);
        if (size > 0) seen.append(piece, static_cast<size_t>(size));
    }
    EXPECT_GE(seen.size(), 2U);
    close(screen);
    close(terminal);
    // The terminal turns the newline into two characters.
    return seen.size() < 2 ? "" : seen.substr(0, seen.size() - 2) + '\n';
}

TEST(LogLine, NamesLevelTagFunctionAndLine) {
    EXPECT_EQ("E KAAEboConfig parse:12: find aec status failed\n",
              lines([] { ka_err(1, 2, "KAAEboConfig", "find %s status failed", "parse", 12, "aec"); }));
    EXPECT_EQ("N T f:3: notice\n", lines([] { ka_log(1, 4, "T", "notice", "f", 3); }));
    EXPECT_EQ("I T f:3: information 7\n", lines([] { ka_log(1, 5, "T", "information %d", "f", 3, 7); }));
    EXPECT_EQ("0 T f:3: x\n", lines([] { ka_log(1, 0, "T", "x", "f", 3); }));
    EXPECT_EQ("-2147483648 T f:-2147483648: x\n",
              lines([] { ka_log(1, -2147483647 - 1, "T", "x", "f", -2147483647 - 1); }));
}

TEST(LogLine, SurvivesNullTexts) {
    EXPECT_EQ("E T f:1: text (null)!\n", lines([] { ka_err(1, 2, "T", "text %s!", "f", 1, g_null); }));
    EXPECT_EQ("E - -:1: x\n", lines([] { ka_err(1, 2, nullptr, "x", nullptr, 1); }));
}

struct Row {
    const char* name;
    std::string text;
    std::string line;           // what a file gets
    std::string terminal_line;  // what a terminal gets
};

class LogLineOf : public testing::TestWithParam<Row> {};

TEST_P(LogLineOf, IsOneLineWithoutColour) {
    const Row& row = GetParam();
    EXPECT_EQ("E T f:1: " + row.line + "\n",
              lines([&row] { ka_err(1, 2, "T", "%s", "f", 1, row.text.c_str()); }));
    EXPECT_EQ(1, calls.write);
}

TEST_P(LogLineOf, KeepsColourOnATerminal) {
    const Row& row = GetParam();
    EXPECT_EQ("E T f:1: " + row.terminal_line + "\n",
              terminalLine([&row] { ka_err(1, 2, "T", "%s", "f", 1, row.text.c_str()); }));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(, LogLineOf, testing::Values(
    Row{"Plain", "x y", "x y", "x y"},
    Row{"Empty", "", "", ""},
    Row{"Coloured", "\x1b[31m\x1b[1mbad\x1b[0m", "bad", "\x1b[31m\x1b[1mbad\x1b[0m"},
    Row{"ManyNumbers", "\x1b[1;31;40mbad\x1b[m", "bad", "\x1b[1;31;40mbad\x1b[m"},
    Row{"Newline", "x\n", "x", "x"},
    Row{"NewlinesOfAllKinds", "x\n\r\n\n", "x", "x"},
    Row{"NewlineInsideColour", "\x1b[31mbad\n\x1b[0m", "bad", "\x1b[31mbad\x1b[0m"},
    Row{"NewlineAfterColour", "\x1b[31mbad\x1b[0m\n", "bad", "\x1b[31mbad\x1b[0m"},
    Row{"NewlinesInsideAndAfter", "\x1b[31mbad\n\x1b[0m\n", "bad", "\x1b[31mbad\x1b[0m"},
    Row{"NewlinesWithin", "a\nb\n\nc\n", "a b  c", "a b  c"},
    Row{"OnlyNewline", "\n", "", ""},
    Row{"OnlyColour", "\x1b[31m\n\x1b[0m", "", "\x1b[31m\x1b[0m"},
    Row{"OtherEscapes", "a\x1b[2Jb\x1b", "a\x1b[2Jb\x1b", "a\x1b[2Jb\x1b"},
    Row{"CutColour", "a\x1b[31", "a\x1b[31", "a\x1b[31"},
    Row{"Utf8", "\xC3\xA4", "\xC3\xA4", "\xC3\xA4"}),
    [](const auto& row) { return row.param.name; });
// clang-format on

TEST(LogLine, HasAnyLength) {
    for (const size_t length : {400u, 511u, 512u, 513u, 600u, 640u, 700u, 100000u}) {
        const std::string text(length, 'x');
        EXPECT_EQ("E T f:1: " + text + "\n",
                  lines([&text] { ka_err(1, 2, "T", "%s%s", "f", 1, kRed, text.c_str()); }));
        EXPECT_EQ(1, calls.write) << length;
        EXPECT_EQ(0, calls.held) << length;
        constexpr int kLongest = -2147483647 - 1;
        EXPECT_EQ("-2147483648 T f:-2147483648: " + text + "\n",
                  lines([&text] { ka_err(1, kLongest, "T", "%s", "f", kLongest, text.c_str()); }));
        EXPECT_EQ("E " + text + " " + text + ":1: x\n",
                  lines([&text] { ka_err(1, 2, text.c_str(), "x", text.c_str(), 1); }));
    }
}

TEST(LogLine, ShortOnesTakeNoMemory) {
    lines([] { ka_err(1, 2, "KAAEboConfig", "%sfind %s failed\x1b[0m", "parse", 1, kRed, "aec status"); });
    EXPECT_EQ(0, calls.allocations);
}

TEST(LogLine, IsCutWhenThereIsNoMemory) {
    const std::string text(5000, 'x');
    EXPECT_EQ("E T f:1: " + text.substr(0, 630) + "\n", lines([&text] {
                  calls.fail_allocation = 0;
                  calls.fail_later_too = true;
                  ka_err(1, 2, "T", "%s", "f", 1, text.c_str());
                  calls.fail_allocation = -1;
              }));
    const std::string cut = lines([&text] {
        calls.fail_allocation = 0;
        ka_err(1, 2, text.c_str(), "x", "f", 1);
    });
    EXPECT_EQ("E xxx", cut.substr(0, 5));
    EXPECT_EQ("x\n", cut.substr(cut.size() - 2));
    EXPECT_EQ(640u, cut.size());
}

TEST(LogLine, IsWholeAroundTheLengthThatTakesMemory) {
    for (size_t length = 600; length < 660; ++length) {
        const std::string text(length, 'x');
        const char* const x = text.c_str();
        EXPECT_EQ("E T f:1: 7" + text + "\n", lines([x] { ka_err(1, 2, "T", "%d%s", "f", 1, 7, x); }));
        EXPECT_EQ("E T f:1: " + text + "-7\n", lines([x] { ka_err(1, 2, "T", "%s%d", "f", 1, x, -7); }));
        EXPECT_EQ("E T f:1: " + text + "!7\n", lines([x] { ka_err(1, 2, "T", "%s!%u", "f", 1, x, 7U); }));
        EXPECT_EQ("E T f:1: " + text + "!\n", lines([x] { ka_err(1, 2, "T", "%s!", "f", 1, x); }));
    }
}

TEST(LogLine, WrittenAfterAnInterruptIsWhole) {
    EXPECT_EQ("E T f:1: x\n", lines([] {
                  calls.write_interrupts = 2;
                  ka_err(1, 2, "T", "x", "f", 1);
              }));
}

TEST(LogLine, IsEmptyWhereTheTextCannotBeFormatted) {
    EXPECT_EQ("E T f:1: \n", lines([] { ka_err(1, 2, "T", "x %ls", "f", 1, L"\x4e00"); }));
}

TEST(LogLine, PrintsNumbersAlikeInEveryLocale) {
    const CommaLocale comma;
    EXPECT_EQ("I T f:1: 1.500000 1234567\n", lines([] { ka_log(1, 5, "T", "%f %d", "f", 1, 1.5, 1234567); }));
    char text[8];
    snprintf(text, sizeof text, "%.1f", 1.5);
    EXPECT_STREQ("1,5", text) << "the log changed the process's locale";
}

TEST(LogLine, LeavesErrnoAlone) {
    lines([] {
        errno = ENOENT;
        ka_err(1, 2, "T", "%s", "f", 1, std::string(5000, 'x').c_str());
        EXPECT_EQ(ENOENT, errno);
    });
    errno = ENOENT;
    {
        const int full = open("/dev/full", O_WRONLY);
        const StandardError to(full);
        errno = ENOENT;
        ka_err(1, 2, "T", "x", "f", 1);
        EXPECT_EQ(ENOENT, errno);
        close(full);
    }
}

TEST(LogLine, DoesNotMixWithThoseOfOtherThreads) {
    const std::string all = lines([] {
        std::vector<std::thread> threads;
        for (int i = 0; i < 8; ++i) {
            threads.emplace_back([i] {
                const std::string text(static_cast<size_t>(i * 150), static_cast<char>('a' + i));
                for (int line = 0; line < 200; ++line) ka_log(1, 5, "T", "<%s>", "f", i, text.c_str());
            });
        }
        for (std::thread& thread : threads) thread.join();
    });
    size_t count[8] = {};
    for (size_t begin = 0; begin < all.size(); begin = all.find('\n', begin) + 1) {
        const std::string line = all.substr(begin, all.find('\n', begin) - begin);
        const int i = line.size() > 6 ? line[6] - '0' : 0;
        ASSERT_TRUE(i >= 0 && i < 8) << line;
        EXPECT_EQ("I T f:" + std::to_string(i) + ": <" +
                      std::string(static_cast<size_t>(i * 150), static_cast<char>('a' + i)) + ">",
                  line);
        ++count[i];
    }
    for (const size_t lines_of_thread : count) EXPECT_EQ(200u, lines_of_thread);
}

TEST(LogSink, GetsMessagesAsTheyAreInsteadOfStandardError) {
    struct Seen {
        int count = 0;
        bool error = false;
        std::string texts;
    } seen;
    const auto take = [](const KaLogMessage& message, void* user) {
        Seen& to = *static_cast<Seen*>(user);
        ++to.count;
        to.error = message.error;
        to.texts = std::to_string(message.channel) + "|" + std::to_string(message.level) + "|" + message.tag +
                   "|" + message.function + "|" + std::to_string(message.line) + "|" + message.format + "|" +
                   message.text;
    };
    EXPECT_EQ("", lines([&] {
                  ka_install_log_sink(take, &seen);
                  ka_err(0x1818180A, 2, "T", "\x1b[31mbad %s\n\x1b[0m", "f", 9, "aec");
                  EXPECT_EQ("404232202|2|T|f|9|\x1b[31mbad %s\n\x1b[0m|\x1b[31mbad aec\n\x1b[0m", seen.texts);
                  EXPECT_TRUE(seen.error);
                  ka_log(1, 5, "T", "%d%%", "g", 10, 50);
                  EXPECT_EQ("1|5|T|g|10|%d%%|50%", seen.texts);
                  EXPECT_FALSE(seen.error);
                  ka_remove_log_sink();
              }));
    EXPECT_EQ(2, seen.count);
    EXPECT_EQ("I T f:1: back\n", lines([] { ka_log(1, 5, "T", "back", "f", 1); }));
    EXPECT_EQ(2, seen.count);
}

TEST(LogSink, IsReplacedByTheNextOne) {
    Messages outer;
    int count = 0;
    ka_install_log_sink([](const KaLogMessage&, void* user) { ++*static_cast<int*>(user); }, &count);
    ka_log(1, 5, "T", "x", "f", 1);
    EXPECT_EQ(1, count);
    EXPECT_TRUE(outer.texts().empty());
    ka_install_log_sink(nullptr, nullptr);
    EXPECT_EQ("I T f:1: y\n", lines([] { ka_log(1, 5, "T", "y", "f", 1); }));
}

TEST(LogSink, MayLog) {
    std::vector<std::string> texts;
    ka_install_log_sink(
        [](const KaLogMessage& message, void* user) {
            static_cast<std::vector<std::string>*>(user)->push_back(message.text);
            if (message.level == 2) ka_log(1, 5, "T", "about: %s", "f", 1, message.text);
        },
        &texts);
    ka_err(1, 2, "T", "x", "f", 1);
    ka_remove_log_sink();
    EXPECT_EQ((std::vector<std::string>{"x", "about: x"}), texts);
}

// Sets the level for as long as it lives.
class LogLevel {
public:
    explicit LogLevel(int level) { ka_set_log_level(level); }
    ~LogLevel() { ka_set_log_level(INT_MAX); }
    LogLevel(const LogLevel&) = delete;
    LogLevel& operator=(const LogLevel&) = delete;
};

void sendOneOfEachLevel() {
    ka_err(1, 2, "T", "%500d", "f", 1, 2);
    ka_log(1, 4, "T", "%700d", "f", 1, 4);
    ka_log(1, 5, "T", "%800d", "f", 1, 5);
}

struct LevelRow {
    const char* name;
    int level;
    std::string passed;  // last characters of the messages
    int long_ones;       // messages too long for the stack: formatted, they take memory
};

class LogLevelOf : public testing::TestWithParam<LevelRow> {};

TEST_P(LogLevelOf, LetsNoHigherOnePassToTheSinkNorFormatsIt) {
    const LogLevel level(GetParam().level);
    std::string passed;  // too short to take memory
    ka_install_log_sink(
        [](const KaLogMessage& message, void* user) {
            *static_cast<std::string*>(user) += message.text[strlen(message.text) - 1];
        },
        &passed);
    calls = {};
    sendOneOfEachLevel();
    EXPECT_EQ(GetParam().long_ones, calls.allocations);
    ka_remove_log_sink();
    EXPECT_EQ(GetParam().passed, passed);
}

TEST_P(LogLevelOf, LetsNoHigherOnePassToStandardError) {
    const LogLevel level(GetParam().level);
    std::string passed;
    const std::string all = lines(sendOneOfEachLevel);
    for (size_t i = 1; i < all.size(); ++i) {
        if (all[i] == '\n') passed += all[i - 1];
    }
    EXPECT_EQ(GetParam().passed, passed);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(, LogLevelOf, testing::Values(
    LevelRow{"Lowest", INT_MIN, "", 0},
    LevelRow{"BelowErrors", 1, "", 0},
    LevelRow{"Errors", 2, "2", 0},
    LevelRow{"BetweenTwo", 3, "2", 0},
    LevelRow{"WakeUpMode", 4, "24", 1},
    LevelRow{"Information", 5, "245", 2},
    LevelRow{"Highest", INT_MAX, "245", 2}),
    [](const auto& row) { return row.param.name; });
// clang-format on

TEST(LogSink, SeesNumbersAlikeInEveryLocaleAndNull) {
    const CommaLocale comma;
    const Messages messages;
    ka_log(1, 5, "T", "%g %s", "f", 1, 1.5, g_null);
    EXPECT_EQ((std::vector<std::string>{"1.5 (null)"}), messages.texts());
}

}  // namespace
