// What a frame of an engine's may not do.
#include <gtest/gtest.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <csignal>

#include "files.h"

namespace {

// Frames of a thread that may only read, write and end: for anything else the system ends it.
void runFrames(const std::string& file, int done) {
    EboLiveOptions options;
    options.path = file;
    EboLive live(options);
    if (!live.start()) return;
    EboLiveReader reader(live);
    if (prctl(PR_SET_SECCOMP, SECCOMP_MODE_STRICT) != 0) return;
    int64_t sum = 0;
    for (int i = 0; i < 1000000; ++i) {
        sum += reader.begin()->capture->aec->delay_len;
        reader.end();
    }
    const char good = sum == 5000000 ? 'y' : 'n';
    syscall(SYS_write, done, &good, size_t{1});
    syscall(SYS_exit, 0);
}

TEST(Reader, MakesNoCallOfTheSystem) {
    const live_test::Scratch scratch;
    live_test::writeText(scratch / "tuning.json", live_test::numberedText(5));
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        runFrames(scratch / "tuning.json", ends[1]);
        _exit(1);
    }
    close(ends[1]);
    pollfd done = {ends[0], POLLIN, 0};
    ASSERT_EQ(poll(&done, 1, 20000), 1);  // the loading thread outlives the other
    char good = 0;
    EXPECT_EQ(read(ends[0], &good, 1), 1);
    EXPECT_EQ(good, 'y');
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    close(ends[0]);
}

}  // namespace
