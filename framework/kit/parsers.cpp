// Several parsers, one after the other and at the same time, and the files that they read.
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <filesystem>
#include <iterator>
#include <memory>
#include <thread>
#include <vector>

#include "kit.h"

using kit::explain;

namespace {

std::string numbered(int value) {
    return "{\"r\": {\"s\": {\"k\": " + std::to_string(value) + ", \"t\": \"text " + std::to_string(value) +
           "\"}}}";
}

void expectNumbered(KAJsonParser& parser, int value) {
    KaMetaData keys;
    EXPECT_NE(parser.getOptions("r", "s", &keys), 0);
    EXPECT_EQ(kit::integer(keys, "k"), value);
    EXPECT_EQ(kit::text(keys, "t"), "text " + std::to_string(value));
}

void expectEmpty(KAJsonParser& parser) {
    KaMetaData keys;
    EXPECT_EQ(parser.getOptions("r", "s", &keys), 0);
    EXPECT_EQ(kit::integer(keys, "k"), kit::kNoInteger);
}

TEST(Parsers, AreIndependentOfEachOther) {
    explain("each parser has a document of its own",
            "a host that opens a second file while it loads one gets values of both in one tree");
    kit::Opened first(numbered(1));
    expectNumbered(first.parser, 1);
    {
        kit::Opened second(numbered(2));
        expectNumbered(second.parser, 2);
        expectNumbered(first.parser, 1);
        KaMetaData keys;
        first.parser.getOptions("r", "s", &keys);
        KaMetaData others;
        second.parser.getOptions("r", "s", &others);
        EXPECT_EQ(kit::integer(keys, "k"), 1);
        EXPECT_EQ(kit::integer(others, "k"), 2);
    }
    expectNumbered(first.parser, 1);
}

TEST(Parsers, ThatHaveOpenedNothingAreEmpty) {
    explain("a parser that has opened nothing has no sections, and can be destroyed",
            "a loader that gives up before it opens a file crashes");
    KAJsonParser parser;
    expectEmpty(parser);
}

TEST(Parsers, AreEmptyAfterAFailure) {
    explain("after a parseFile that has failed the document is empty, whatever was open before",
            "a broken file is answered with the values of the last one, as if it were good");
    const kit::Document good(numbered(1));
    const kit::Document bad("{\"r\": {\"s\": {\"k\": 2}, }}");
    KAJsonParser parser;
    EXPECT_NE(parser.parseFile(good.name()), 0);
    EXPECT_EQ(parser.parseFile(bad.name()), 0);
    expectEmpty(parser);
    EXPECT_NE(parser.parseFile(good.name()), 0);
    EXPECT_EQ(parser.parseFile(nullptr), 0);
    expectEmpty(parser);
}

TEST(Parsers, CanBeUsedAgain) {
    explain("a parser opens another document after a success and after a failure",
            "a host that tries a second file when the first is broken gets neither");
    const kit::Document first(numbered(1));
    const kit::Document second(numbered(2));
    const kit::Document bad("{");
    KAJsonParser parser;
    EXPECT_EQ(parser.parseFile(bad.name()), 0);
    EXPECT_NE(parser.parseFile(first.name()), 0);
    expectNumbered(parser, 1);
    EXPECT_NE(parser.parseFile(second.name()), 0);
    expectNumbered(parser, 2);
}

TEST(Parsers, ReadADocumentAnewEachTime) {
    explain("parseFile reads what the document is now",
            "a tuning that was replaced is ignored until the product starts again");
    kit::Document document(numbered(1));
    KAJsonParser parser;
    EXPECT_NE(parser.parseFile(document.name()), 0);
    document.rewrite(numbered(2));
    EXPECT_NE(parser.parseFile(document.name()), 0);
    expectNumbered(parser, 2);
    document.rewrite(numbered(3));
    KAJsonParser another;
    EXPECT_NE(another.parseFile(document.name()), 0);
    expectNumbered(another, 3);
}

// How many blocks more there are in use after 100 times.
template <typename Work>
long growth(Work work) {
    work();  // once, for what is kept for good
    const long before = kit::allocator::liveBlocks();
    for (int i = 0; i < 100; ++i) work();
    return kit::allocator::liveBlocks() - before;
}

TEST(Parsers, GiveTheirMemoryBack) {
    explain(
        "what a parser and its records have taken is released when they end, after success and failure alike",
        "a product that reloads its tuning runs out of memory after some days");
    if (!kit::allocator::isWatched()) KIT_SKIP(KIT_UNWATCHED "whether memory is all given back");
    const kit::Document good(numbered(1));
    const kit::Document bad("{\"r\": {\"s\": {\"k\": [");
    const auto succeed = [&] {
        KAJsonParser parser;
        EXPECT_NE(parser.parseFile(good.name()), 0);
        KaMetaData keys;
        parser.getOptions("r", "s", &keys);
        kit::text(keys, "t");
        kit::real(keys, "k");
        parser.getOptions("r", "s", &keys);
        parser.getOptions("r", "missing", &keys);
        EXPECT_NE(parser.parseFile(good.name()), 0);
    };
    const auto fail = [&] {
        KAJsonParser parser;
        EXPECT_EQ(parser.parseFile(bad.name()), 0);
        EXPECT_EQ(parser.parseFile(bad.name()), 0);
    };
    // A log may keep its messages.
    const auto log = [&] {
        for (int i = 0; i < 2; ++i)
            ka_err(0, 2, "KAJsonParser", "%s: %s", "parseFile", __LINE__, bad.name(),
                   "a reason of some length");
    };
    const kit::LogWatch watch;
    EXPECT_LT(growth(succeed), 50) << "more blocks in use after 100 loads than before them";
    EXPECT_LT(growth(fail) - growth(log), 50) << "more blocks in use after 100 failures than before them";
}

#if EBO_KIT_FILES

std::string scratch(const char* name) {
    return kit::folder() + name;
}

TEST(Files, ThatCannotBeReadAreRefused) {
    explain("parseFile gives 0 for a path that is missing, a folder, empty or not to be read",
            "a loader reports a missing section of a file that is not there, or the process hangs or ends");
    KAJsonParser parser;
    EXPECT_EQ(parser.parseFile(scratch("missing.json").c_str()), 0);
    EXPECT_EQ(parser.parseFile(scratch("missing/tuning.json").c_str()), 0);
    EXPECT_EQ(parser.parseFile(kit::folder().c_str()), 0);
    EXPECT_EQ(parser.parseFile(""), 0);
    EXPECT_EQ(parser.parseFile(std::string(10000, 'x').c_str()), 0);
    EXPECT_EQ(parser.parseFile(kit::Document("").name()), 0);
    const kit::Document locked(numbered(1));
    chmod(locked.name(), 0);
    if (access(locked.name(), R_OK) != 0) {
        EXPECT_EQ(parser.parseFile(locked.name()), 0);
    }
    expectEmpty(parser);
}

ptrdiff_t openFiles() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

TEST(Files, AreClosedAgain) {
    explain("parseFile closes the file before it returns, also when it refuses it",
            "a product that reloads runs out of open files after some hundred changes");
    if (!std::filesystem::exists("/proc/self/fd"))
        KIT_SKIP("there is no /proc/self/fd: not tried whether files are closed again");
    const kit::Document good(numbered(1));
    const kit::Document bad("{");
    KAJsonParser parser;
    parser.parseFile(bad.name());
    const ptrdiff_t before = openFiles();
    std::vector<std::unique_ptr<KAJsonParser>> parsers;
    for (int i = 0; i < 20; ++i) {
        parsers.push_back(std::make_unique<KAJsonParser>());
        EXPECT_EQ(parsers.back()->parseFile(bad.name()), 0);
        EXPECT_EQ(parsers.back()->parseFile(scratch("missing.json").c_str()), 0);
        EXPECT_NE(parsers.back()->parseFile(good.name()), 0);
    }
    EXPECT_EQ(openFiles(), before);
}

TEST(Files, MayHaveAnyName) {
    explain("parseFile opens the path that it is given, byte for byte",
            "a tuning in a folder with a blank or a letter beyond ASCII is not found");
    for (const char* name : {"two words.json", "\xC3\xA4.json", "no-suffix", "percent%s%n.json"}) {
        const std::string path = scratch(name);
        const kit::Document document(numbered(4));
        ASSERT_EQ(rename(document.name(), path.c_str()), 0);
        KAJsonParser parser;
        EXPECT_NE(parser.parseFile(path.c_str()), 0) << name;
        expectNumbered(parser, 4);
        unlink(path.c_str());
        EXPECT_EQ(parser.parseFile(path.c_str()), 0) << name;
    }
}

#endif

#if EBO_KIT_THREADS

constexpr int kThreads = 4;
constexpr int kRounds = 100;

template <typename Work>
void onThreads(Work work) {
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) threads.emplace_back(work, i);
    for (std::thread& thread : threads) thread.join();
}

TEST(Threads, LoadDocumentsOfTheirOwn) {
    explain(
        "parsers and records of different threads never disturb each other",
        "a product that loads its two paths on two threads mixes up their values, once in a thousand starts");
    onThreads([](int thread) {
        const kit::Document document(numbered(thread));
        const kit::Document bad("{");
        for (int round = 0; round < kRounds; ++round) {
            KAJsonParser parser;
            EXPECT_NE(parser.parseFile(document.name()), 0);
            expectNumbered(parser, thread);
            if (round % 10 == 0) {
                EXPECT_EQ(parser.parseFile(bad.name()), 0);
            }
        }
    });
}

TEST(Threads, LoadTheSameDocument) {
    explain("the same document may be opened by several threads at once",
            "two loads of one file at the same time fail, or see it empty");
    const kit::Document document(numbered(7));
    onThreads([&](int) {
        for (int round = 0; round < kRounds; ++round) {
            KAJsonParser parser;
            EXPECT_NE(parser.parseFile(document.name()), 0);
            expectNumbered(parser, 7);
        }
    });
}

TEST(Threads, UseMemoryTextsAndLog) {
    explain("memory, comparison and log may be used by several threads at once",
            "a load on one thread and a dump on another spoil memory or lines");
    kit::LogWatch watch;
    onThreads([](int thread) {
        for (int round = 0; round < kRounds; ++round) {
            void* block = ka_mem_malloc(64, __func__);
            ASSERT_NE(block, nullptr);
            ka_memset(block, thread, 64);
            EXPECT_EQ(util_strcasecmp("enable", "ENABLE"), 0);
            if (round % 10 == 0)
                ka_log(1, 5, "kit", "thread %d round %d of %s", __func__, __LINE__, thread, round, "many");
            EXPECT_EQ(static_cast<char*>(block)[63], thread);
            ka_mem_safe_free(&block, __func__);
        }
    });
    const std::string log = watch.end();
    if (!kit::logIsSeen()) return;
    for (int thread = 0; thread < kThreads; ++thread) {
        size_t at = 0;
        for (int round = 0; round < kRounds; round += 10) {
            const std::string line =
                "thread " + std::to_string(thread) + " round " + std::to_string(round) + " of many";
            at = log.find(line, at);
            ASSERT_NE(at, std::string::npos) << "not in the log, or not in its order, in one piece: " << line;
        }
    }
}

#endif

}  // namespace
