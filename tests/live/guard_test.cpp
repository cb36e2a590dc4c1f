// A load that goes wrong as no forecast can tell: this program puts a fault between the component and the
// library.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <csignal>
#include <cstdlib>

#include "files.h"

using live_test::numberedText;
using live_test::Product;
using live_test::Scratch;

namespace {

bool g_falls = false;  // the loader of the capture path ends its process
bool g_hangs = false;  // it never returns

}  // namespace

// The linker puts this in the place of parseEboConfigs(), which becomes the other.
extern "C" KAEboParam* __real__Z15parseEboConfigsPKc(const char* path);
extern "C" KAEboParam* __wrap__Z15parseEboConfigsPKc(const char* path) {
    if (g_falls) std::raise(SIGSEGV);
    while (g_hangs) pause();
    return __real__Z15parseEboConfigsPKc(path);
}

namespace {

class Guarded : public testing::Test {
protected:
    Guarded() { product.options.guard = true; }

    Scratch scratch;
    const std::string file = scratch / "tuning.json";
    Product product{file};
};

TEST_F(Guarded, TakesAGoodFile) {
    live_test::writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    EXPECT_EQ(product.capture() + product.playback() + product.gain(), 3);
}

TEST_F(Guarded, SaysWhatTheForecastSays) {
    live_test::writeText(file, "{}");
    ASSERT_TRUE(product.start());
    EXPECT_EQ(product.health(EboLivePart::Capture).refusal, "parseEboAecConfigs: find aec status failed");
}

TEST_F(Guarded, SurvivesALoadThatEndsItsProcess) {
    // As with a handler that reports crashes.
    std::signal(SIGSEGV, [](int) { std::abort(); });
    g_falls = true;
    live_test::writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    EXPECT_EQ(product.capture(), live_test::kDefaults);
    EXPECT_EQ(product.playback() + product.gain(), 2);
    EXPECT_EQ(product.health(EboLivePart::Capture).refusal, "ended the process that tried to load it");
    g_falls = false;
    std::signal(SIGSEGV, SIG_DFL);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child is left over";
}

// The same bytes may fare better when they come again.
TEST_F(Guarded, SurvivesALoadThatNeverEnds) {
    g_hangs = true;
    live_test::writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    EXPECT_EQ(product.health(EboLivePart::Capture).refusal, "cannot be tried in another process");
    EXPECT_EQ(product.health(EboLivePart::Capture).refused, 1U);
    g_hangs = false;
    product.live().reload();
    EXPECT_EQ(product.capture(), 1);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child is left over";
}

// Then the system forgets children at once, and their status with them.
TEST_F(Guarded, WorksInAHostThatIgnoresItsChildren) {
    std::signal(SIGCHLD, SIG_IGN);
    live_test::writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    EXPECT_EQ(product.capture(), 1);
    std::signal(SIGCHLD, SIG_DFL);
}

}  // namespace
