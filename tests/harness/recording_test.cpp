#include <cstdlib>
#include <cstring>
#include <thread>

#include "harness/expect.h"

using ka_recording::kForeign;
using ka_recording::Op;
using ka_recording::Recorder;
using testing::ElementsAre;

namespace {

std::vector<std::string> trace(const Recorder& recorder) {
    std::vector<std::string> lines;
    for (const auto& event : recorder.events) lines.push_back(toString(event));
    return lines;
}

TEST(Recording, TellsTheTwoReleasesApart) {
    Recorder recorder;
    void* first = ka_mem_malloc(8, "maker");
    void* second = ka_mem_malloc(8, "maker");
    EXPECT_THAT(recorder.live(), ElementsAre(1, 2));
    std::free(first);
    ka_mem_safe_free(&second, "ender");
    EXPECT_EQ(second, nullptr);
    EXPECT_THAT(recorder.live(), ElementsAre());
    EXPECT_THAT(trace(recorder),
                ElementsAre("malloc #1 maker", "malloc #2 maker", "free #1", "safe_free #2 ender"));
}

TEST(Recording, CountsCopiedTextsAndReleasesThem) {
    Recorder recorder;
    void* copy = strdup("word");
    EXPECT_THAT(recorder.live(), ElementsAre(1));
    ka_mem_safe_free(&copy, "ender");
    EXPECT_THAT(trace(recorder), ElementsAre("strdup #1 word", "safe_free #1 ender"));
    EXPECT_EQ(recorder.events.back().bytes, std::string("word\0", 5));
}

TEST(Recording, LeavesNullAndStaticStorageAlone) {
    static int table = 7;
    Recorder recorder;
    void* fixed = &table;
    void* none = nullptr;
    ka_mem_safe_free(&fixed, "ender");
    ka_mem_safe_free(&none, "ender");
    std::free(nullptr);
    std::free(std::malloc(4));
    EXPECT_EQ(fixed, nullptr);
    EXPECT_EQ(table, 7);
    EXPECT_THAT(trace(recorder), ElementsAre("safe_free foreign ender", "safe_free null ender"));
}

TEST(Recording, FailsTheAllocationThatItIsToldTo) {
    Recorder recorder;
    recorder.fail_malloc = 2;
    recorder.fail_strdup = 1;
    void* first = ka_mem_malloc(8, "a");
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(ka_mem_malloc(8, "b"), nullptr);
    EXPECT_EQ(strdup("word"), nullptr);
    void* third = ka_mem_malloc(8, "c");
    EXPECT_NE(third, nullptr);
    std::free(first);
    std::free(third);
}

TEST(Recording, HandsOutZerosOrGarbage) {
    Recorder recorder;
    auto* clean = static_cast<unsigned char*>(ka_mem_malloc(2, "a"));
    recorder.garbage = true;
    auto* dirty = static_cast<unsigned char*>(ka_mem_malloc(2, "a"));
    EXPECT_EQ(clean[1], 0);
    EXPECT_EQ(dirty[1], 0xa5);
    ka_memset(dirty, 0, 2);
    EXPECT_EQ(dirty[1], 0);
    EXPECT_EQ(recorder.only({Op::Memset})[0].block, 2);
}

TEST(Recording, ReleasesWhatIsLeftAtItsEnd) {
    Recorder recorder;
    ka_mem_malloc(8, "leaked");
    EXPECT_EQ(recorder.live().size(), 1U);
}

TEST(Recording, KeepsTheThreadsApart) {
    Recorder mine;
    void* block = ka_mem_malloc(8, "mine");
    std::thread([&] {
        Recorder theirs;
        std::free(block);
        EXPECT_THAT(trace(theirs), ElementsAre("free #1"));
    }).join();
    EXPECT_THAT(mine.live(), ElementsAre());
    EXPECT_THAT(trace(mine), ElementsAre("malloc #1 mine"));
}

TEST(Recording, LooksKeysUpByType) {
    Host host;
    Document document(host,
                      R"({"root": {"section": {"whole": 7, "real": 7.0, "big": 2147483648, "text": "x"}}})");
    ASSERT_TRUE(document.accepted());
    int whole = -1;
    float real = -1;
    const char* text = nullptr;
    KaMetaData meta;
    EXPECT_FALSE(document.parser()->getOptions("root", "other", &meta));
    EXPECT_FALSE(meta.findInt32("whole", &whole));
    EXPECT_FALSE(document.parser()->getOptions("root", "section", nullptr));
    EXPECT_TRUE(document.parser()->getOptions("root", "section", &meta));
    EXPECT_FALSE(meta.findInt32("real", &whole));
    EXPECT_FALSE(meta.findInt32("big", &whole));
    EXPECT_FALSE(meta.findInt32("text", &whole));
    EXPECT_EQ(whole, 0x5a5a5a5a) << "spoilt";
    EXPECT_TRUE(meta.findInt32("whole", &whole));
    EXPECT_EQ(whole, 7);
    EXPECT_FALSE(meta.findFloat("text", &real));
    EXPECT_TRUE(meta.findFloat("whole", &real));
    EXPECT_EQ(real, 7.0F);
    EXPECT_FALSE(meta.findCString("whole", &text));
    EXPECT_TRUE(meta.findCString("text", &text));
    EXPECT_STREQ(text, "x");
}

TEST(Recording, RejectsWhatIsNoDocument) {
    Host host;
    KAJsonParser parser;
    EXPECT_FALSE(parser.parseFile("no such file"));
    EXPECT_FALSE(parser.parseFile(host.file("{").c_str()));
    EXPECT_TRUE(parser.parseFile(host.file("{}").c_str()));
}

TEST(Recording, SaysOfSuccessWhatItIsToldTo) {
    Host host;
    host.recorder().file_result = -1;
    host.recorder().section_result = 0;
    KAJsonParser parser;
    EXPECT_EQ(parser.parseFile(host.file(R"({"root": {"section": {"key": 7}}})").c_str()), -1);
    KaMetaData meta;
    EXPECT_EQ(parser.getOptions("root", "section", &meta), 0);
    int value = 0;
    EXPECT_TRUE(meta.findInt32("key", &value));
    EXPECT_EQ(parser.parseFile(host.file("[").c_str()), 0);
}

TEST(Recording, KeepsTheFormatBesideTheText) {
    Host host;
    ka_err(0x1818180A, 2, "KAAEboConfig", "\x1b[31m\x1b[1m%s\x1b[0m", "reader", 12, "text");
    ka_log(0x1818180A, 5, "KAAEboConfig", "n = %d", "reader", 13, 4);
    expectLog(host, {{true, 2, "reader", red("%s"), red("text")}, info("reader", "n = %d", "n = 4")});
}

void assertion(const char* expression, int line, int line_in_text) {
    Host host;
    host.echo();
    ka_err(0x1818180A, 2, "KAAEboConfig", "\x1b[31m\x1b[1mAssertion %s failed at %s:%d\n\x1b[0m", "reader",
           line, expression, "reader", line_in_text);
    std::abort();
}

TEST(RecordingDeathTest, EchoesAssertions) {
    EXPECT_ASSERTION(assertion("aec->map != KA_NULL", 12, 12), "reader", "aec->map != KA_NULL");
    EXPECT_EXIT(assertion("other", 12, 12), testing::KilledBySignal(SIGABRT),
                testing::Not(isAssertion("reader", "one")));
    EXPECT_EXIT(assertion("one", 12, 13), testing::KilledBySignal(SIGABRT),
                testing::Not(isAssertion("reader", "one")));
}

}  // namespace
