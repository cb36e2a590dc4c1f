// Many threads at once. Worth most under a race detector.
#include <gtest/gtest.h>
#include <ka/log_sink.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "scratch.h"

namespace {

constexpr int kThreads = 8;
constexpr int kRounds = 50;

template <typename Work>
void onManyThreads(Work work) {
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) threads.emplace_back(work, i);
    for (std::thread& thread : threads) thread.join();
}

TEST(Threads, LoadAndLookUpDocumentsOfTheirOwn) {
    const Messages messages;
    onManyThreads([](int thread) {
        for (int round = 0; round < kRounds; ++round) {
            const int expected = thread * kRounds + round;
            Document document("{\"r\": {\"s\": {\"f\": 1e400, \"k\": " + std::to_string(expected) + "}}}");
            KaMetaData keys;
            document.parser.getOptions("r", "s", &keys);
            int value = -1;
            float real = 0;
            EXPECT_TRUE(keys.findInt32("k", &value));
            EXPECT_EQ(expected, value);
            EXPECT_TRUE(keys.findFloat("f", &real));
        }
    });
}

TEST(Threads, LoadTheSameFileAndFailOnAnother) {
    const ScratchFile good(R"({"r": {"s": {"k": 5}}})");
    const ScratchFile bad("{\n]");
    const Messages messages;
    onManyThreads([&](int) {
        for (int round = 0; round < kRounds; ++round) {
            KAJsonParser parser;
            EXPECT_EQ(0, parser.parseFile(bad.path()));
            EXPECT_NE(0, parser.parseFile(good.path()));
        }
    });
    const std::vector<std::string> texts = messages.texts();
    EXPECT_EQ(static_cast<size_t>(kThreads * kRounds), texts.size());
    const std::string expected = bad.path() + std::string(":2:1: missing a key in double quotes");
    for (const std::string& text : texts) EXPECT_EQ(expected, text);
}

TEST(Threads, AllocateAndFree) {
    onManyThreads([](int) {
        for (int round = 0; round < kRounds; ++round) {
            void* block = ka_mem_malloc(100, __func__);
            ka_mem_safe_free(&block, __func__);
            static int fixed;
            block = &fixed;
            ka_mem_safe_free(&block, __func__);
        }
    });
}

// When the call that replaced a sink has returned, what the sink worked on may go at once.
TEST(Threads, LogWhileSinksComeAndGo) {
    constexpr int kChanges = 200;
    const auto count = [](const KaLogMessage&, void* user) { ++*static_cast<std::atomic<int>*>(user); };
    const Messages former;
    std::atomic<bool> done{false};
    std::thread changing([&] {
        for (int i = 0; i < kChanges; ++i) {
            auto counter = std::make_unique<std::atomic<int>>(0);
            ka_install_log_sink(count, counter.get());
            while (*counter == 0) std::this_thread::yield();
            ka_install_log_sink([](const KaLogMessage&, void*) {}, nullptr);
        }
        done = true;
    });
    const ScratchFile file("{");
    onManyThreads([&](int) {
        while (!done) {
            ka_log(1, 5, "T", "%s", "f", 1, "text");
            KAJsonParser().parseFile(file.path());
            std::this_thread::yield();
        }
    });
    changing.join();
}

}  // namespace
