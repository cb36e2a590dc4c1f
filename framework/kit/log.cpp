// ka_err and ka_log. Where the log goes is the host's business; what the kit sees of it must be right.
#include <climits>

#include "kit.h"

using kit::explain;

// Formats that live for the call alone, or have no arguments, are what some cases are about.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"

namespace {

constexpr unsigned kChannel = 0x1818180A;
const char* const kRed = "\x1b[31m\x1b[1m";
const char* const kUnseen =
    "the log goes where the kit does not see it: its lines were written, but not read (kitTakeLog in "
    "kit_host.h)";

// The number of times that `part` is in `text`.
int count(const std::string& text, const std::string& part) {
    int found = 0;
    for (size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size()) ++found;
    return found;
}

TEST(Log, Returns) {
    explain("ka_err and ka_log return, whatever the level and whoever sends",
            "a missing key, which a load reports and survives, ends the product");
    for (const int level : {2, 4, 5, 0, 1, 3, 6, 7, -1, 1000, INT_MAX, INT_MIN}) {
        for (const unsigned channel : {kChannel, 0U, UINT_MAX}) {
            kit::LogWatch watch;
            ka_err(channel, level, "kit", "level %d", __func__, __LINE__, level);
            ka_log(channel, level, "kit", "level %d", __func__, __LINE__, level);
        }
    }
}

TEST(Log, TakesEveryFormat) {
    explain("a message is a printf format with any arguments",
            "values of a dump are shown in the wrong place, or reading them crashes");
    kit::LogWatch watch;
    ka_log(kChannel, 5, "kit", "%s=%d %d %f %.2f %u %x %c %5d|%-5s| %ld %lld %zu 100%%", __func__, __LINE__,
           "text", 17, -3, 1.5, 2.25, 42U, 255U, 'c', 12, "ab", 7L, 8LL, size_t{9});
    ka_err(kChannel, 2, "kit", "no arguments", __func__, __LINE__);
    ka_log(kChannel, 5, "kit", "%s", __func__, __LINE__, "%s %n %d are no formats here");
    const std::string log = watch.end();
    if (!kit::logIsSeen()) KIT_SKIP(kUnseen);
    EXPECT_EQ(count(log, "text=17 -3 1.500000 2.25 42 ff c    12|ab   | 7 8 9 100%"), 1) << log;
    EXPECT_GE(count(log, "no arguments"), 1) << log;
    EXPECT_EQ(count(log, "%s %n %d are no formats here"), 1) << log;
}

TEST(Log, TakesANullText) {
    explain("null under \"%s\" is a text to be shown, such as (null)",
            "a record with a model path that could not be copied crashes the product when it is dumped");
    // Hidden from the compiler, which would warn of it.
    const char* volatile null = nullptr;
    kit::LogWatch watch;
    ka_log(kChannel, 5, "kit", "[%s]", __func__, __LINE__, static_cast<const char*>(null));
    ka_err(kChannel, 2, "kit", "first %s and %s then %d", __func__, __LINE__, "one",
           static_cast<const char*>(null), 5);
    const std::string log = watch.end();
    if (!kit::logIsSeen()) KIT_SKIP(kUnseen);
    EXPECT_EQ(count(log, " then 5"), 1) << log;
}

TEST(Log, TakesColoursAndNewlines) {
    explain("a message may hold terminal colours, and end in a newline inside or after them",
            "every error of the library, and both lines of the wake-up mode, are shown spoilt or not at all");
    kit::LogWatch watch;
    ka_err(kChannel, 2, "kit", "%sfind dtd ksiThd_low failed\x1b[0m", __func__, __LINE__, kRed);
    ka_err(kChannel, 2, "kit", "%sAssertion %s failed at %s:%d\n\x1b[0m", __func__, __LINE__, kRed, "aec",
           "f", 3);
    ka_log(kChannel, 4, "kit", "a line of its own\n", __func__, __LINE__);
    ka_log(kChannel, 4, "kit", "\n", __func__, __LINE__);
    ka_log(kChannel, 4, "kit", "%s", __func__, __LINE__, "\x1b[");
    const std::string log = watch.end();
    if (!kit::logIsSeen()) KIT_SKIP(kUnseen);
    EXPECT_GE(count(log, "find dtd ksiThd_low failed"), 1) << log;
    EXPECT_EQ(count(log, "Assertion aec failed at f:3"), 1) << log;
    EXPECT_GE(count(log, "a line of its own"), 1) << log;
}

TEST(Log, TakesLongMessages) {
    explain("a message may be longer than any buffer: it is shown whole, or cut off",
            "a long model path in a dump overwrites the stack");
    for (const size_t length :
         {100u, 127u, 128u, 255u, 256u, 257u, 511u, 512u, 1023u, 1024u, 4095u, 4096u, 70000u}) {
        const std::string text = std::string(20, 's') + std::string(length, 'x');
        kit::LogWatch watch;
        ka_log(kChannel, 5, "kit", "%s", __func__, __LINE__, text.c_str());
        ka_err(kChannel, 2, "kit", text.c_str(), __func__, __LINE__);
        const std::string log = watch.end();
        if (kit::logIsSeen()) {
            EXPECT_GE(count(log, std::string(20, 's')), 2) << length;
        }
    }
}

TEST(Log, KeepsTheOrder) {
    explain("messages of one thread are shown in their order, each once",
            "a dump, a table of many lines, cannot be read");
    kit::LogWatch watch;
    for (int i = 0; i < 50; ++i) {
        if (i % 2 == 0) ka_log(kChannel, 5, "kit", "line %d.", __func__, __LINE__, i);
        if (i % 2 == 1) ka_err(kChannel, 2, "kit", "line %d.", __func__, __LINE__, i);
    }
    const std::string log = watch.end();
    if (!kit::logIsSeen()) KIT_SKIP(kUnseen);
    size_t at = 0;
    for (int i = 0; i < 50; ++i) {
        const std::string line = "line " + std::to_string(i) + ".";
        EXPECT_EQ(count(log, line), 1) << line;
        const size_t found = log.find(line);
        EXPECT_GE(found, at) << line;
        at = found;
    }
}

TEST(Log, TakesTheCallersTextsForTheCallAlone) {
    explain(
        "tag, format, function and arguments belong to the caller, and are done with when the call returns",
        "a line shows the text of another message, or memory that has been released");
    kit::LogWatch watch;
    std::string texts[3][4];
    for (int i = 0; i < 3; ++i) {
        auto& [tag, format, function, argument] = texts[i];
        tag = "kit";
        format = "message %d %s of a format that lives for the call";
        function = "function";
        argument = "argument" + std::to_string(i);
        ka_log(kChannel, 5, tag.c_str(), format.c_str(), function.c_str(), i, i, argument.c_str());
        for (std::string& text : texts[i]) text.assign(text.size(), '?');
    }
    const std::string log = watch.end();
    if (!kit::logIsSeen()) KIT_SKIP(kUnseen);
    for (int i = 0; i < 3; ++i) {
        const std::string line =
            "message " + std::to_string(i) + " argument" + std::to_string(i) + " of a format";
        EXPECT_EQ(count(log, line), 1) << log;
    }
    EXPECT_EQ(count(log, "????"), 0) << log;
}

TEST(Log, IsToldWhyADocumentIsRefused) {
    explain("parseFile reports itself why it refuses a document, and says nothing of one that it takes",
            "a loader returns null without a message: nobody knows that the file is missing or broken");
    for (const char* text : {"{", "", "{\"r\": 01}"}) {
        kit::LogWatch watch;
        EXPECT_FALSE(kit::takes(text));
        const std::string log = watch.end();
        if (kit::logIsSeen()) {
            EXPECT_NE(log, "") << "refused without a word: " << text;
        }
    }
    {
        kit::LogWatch watch;
        KAJsonParser parser;
        EXPECT_EQ(parser.parseFile("/missing/tuning.json"), 0);
        const std::string log = watch.end();
        if (kit::logIsSeen()) {
            EXPECT_NE(log, "") << "a missing file";
        }
    }
    kit::LogWatch watch;
    EXPECT_TRUE(kit::takes("{\"r\": {\"s\": {\"k\": 1}}}"));
    EXPECT_EQ(watch.end(), "");
    if (!kit::logIsSeen()) KIT_SKIP(kUnseen);
}

}  // namespace
