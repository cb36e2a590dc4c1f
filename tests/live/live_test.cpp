// A product's tuning while it runs: what is in use after what has happened.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ka/log_sink.h>

#include "files.h"
#include "log.h"

using live_test::eventually;
using live_test::json;
using live_test::kDefaults;
using live_test::numbered;
using live_test::numberedText;
using live_test::Product;
using live_test::replaceText;
using live_test::Scratch;
using live_test::writeText;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
namespace fs = std::filesystem;

namespace {

class Live : public testing::Test {
protected:
    Scratch scratch;
    const std::string file = scratch / "tuning.json";
    Product product{file};

    std::string without(int number, const std::string& root, const std::string& section,
                        const std::string& key) {
        json document = numbered(number);
        document[root][section].erase(key);
        return document.dump();
    }
    void reloadWith(const std::string& text) {
        replaceText(file, text);
        product.live().reload();
    }
    bool runsWith(int capture, int playback, int gain) {
        return product.capture() == capture && product.playback() == playback && product.gain() == gain;
    }
};

// By calls of the host's alone.
class LiveByHand : public Live {
protected:
    LiveByHand() { product.options.watch = false; }
};

TEST_F(LiveByHand, TakesTheFileAtTheStart) {
    writeText(file, numberedText(7));
    ASSERT_TRUE(product.start());
    EXPECT_TRUE(runsWith(7, 7, 7));
    EXPECT_THAT(product.told(),
                ElementsAre("capture accepted: from the file", "playback accepted: from the file",
                            "gain accepted: from the file"));
    EXPECT_FALSE(product.live().start()) << "a second time";
}

TEST_F(LiveByHand, HasDefaultsWithoutAFile) {
    ASSERT_TRUE(product.start());
    EXPECT_THAT(product.told(),
                ElementsAre("capture refused: cannot be opened: No such file or directory",
                            "playback refused: cannot be opened: No such file or directory",
                            "gain refused: cannot be opened: No such file or directory",
                            "capture accepted: from the defaults", "playback accepted: from the defaults",
                            "gain accepted: from the defaults"));
    EboLiveReader reader(product.live());
    const EboLiveSet& set = *reader.begin();
    dumpEboAecConfig(set.capture->aec);
    dumpEboBeamFormConfig(set.capture->bf);
    dumpEboAoConfig(set.playback->rx);
    EXPECT_EQ(set.capture->aec->model_aec_en & EBO_AEC_DELAY, 0);
    EXPECT_EQ(set.playback->model_en, EBO_PATH_RX);
    EXPECT_EQ(set.gain->sample_rate, 16000);
    reader.end();
    EXPECT_FALSE(fs::exists(file + ".good-capture"));
}

TEST_F(LiveByHand, HasOnlyThePartsThatWereAskedFor) {
    product.options.parts[1] = product.options.parts[2] = false;
    writeText(file, numberedText(7));
    ASSERT_TRUE(product.start());
    EboLiveReader reader(product.live());
    const EboLiveSet& set = *reader.begin();
    EXPECT_NE(set.capture, nullptr);
    EXPECT_EQ(set.playback, nullptr);
    EXPECT_EQ(set.gain, nullptr);
    reader.end();
    EXPECT_FALSE(product.live().reject(EboLivePart::Gain));
    EXPECT_FALSE(fs::exists(file + ".good-gain"));
}

TEST_F(LiveByHand, TakesOrRefusesEachPartOnItsOwn) {
    writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    product.told();
    reloadWith(without(2, "ebo_configs", "dtd", "ksiThd_low"));
    EXPECT_TRUE(runsWith(1, 2, 2));
    EXPECT_THAT(product.told(),
                ElementsAre("capture refused: parseEboDtdConfigs: find dtd ksiThd_low failed",
                            "playback accepted: from the file", "gain accepted: from the file"));
    reloadWith(without(3, "ebo_ao_configs", "anr", "status"));
    EXPECT_TRUE(runsWith(3, 2, 3));
    EXPECT_THAT(product.told(),
                testing::Contains("playback refused: parseEboAnrConfigs: find anr status failed"));
    reloadWith(without(4, "ebo_agc_configs", "agc", "fRk0"));
    EXPECT_TRUE(runsWith(4, 4, 3));
    EXPECT_THAT(product.told(), testing::Contains("gain refused: parseEboAgcConfigs: find agc fRk0 failed"));
}

TEST_F(LiveByHand, RefusesWhatWouldAbortTheProcess) {
    writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    product.told();
    json document = numbered(2);
    document["ebo_configs"]["aec"]["mic_chn_map"] = "17 chn;map:1,2,3";
    reloadWith(document.dump());
    EXPECT_TRUE(runsWith(1, 2, 2));
    EXPECT_THAT(product.told(),
                testing::Contains("capture refused: parseEboAecConfigs: mic_chn_map has 17 channels; "
                                  "the most are 16"));
}

TEST_F(LiveByHand, SaysWhyTheFrameworkDoesNotTakeAFile) {
    writeText(file, "{\n  \"a\": 1 2\n}");
    ASSERT_TRUE(product.start());
    EXPECT_THAT(product.health(EboLivePart::Capture).refusal, testing::StartsWith("tuning.json:2:"));
}

TEST_F(LiveByHand, TakesAnIncompletePlaybackPathWhereThatIsWanted) {
    product.options.incomplete_playback = true;
    writeText(file, without(2, "ebo_ao_configs", "howl", "mode"));
    ASSERT_TRUE(product.start());
    EXPECT_TRUE(runsWith(2, kDefaults, 2));
    EXPECT_EQ(product.health(EboLivePart::Playback).source, EboLiveSource::File);
}

TEST_F(LiveByHand, RefusesWhatIsTooLargeOrNoFile) {
    product.options.most_bytes = 100;
    writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    EXPECT_EQ(product.health(EboLivePart::Gain).refusal, "is larger than 100 bytes");
    fs::remove(file);
    fs::create_directory(file);
    product.live().reload();
    EXPECT_EQ(product.health(EboLivePart::Gain).refusal, "is not a regular file");
}

TEST_F(LiveByHand, TellsEachRefusalOnce) {
    writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    product.told();
    for (int i = 0; i < 3; ++i) reloadWith("{");
    EXPECT_EQ(product.told().size(), 3U);
    EXPECT_EQ(product.health(EboLivePart::Capture).refused, 1U);
    EXPECT_EQ(product.health(EboLivePart::Capture).unchanged, 2U);
    fs::remove(file);
    for (int i = 0; i < 3; ++i) product.live().reload();
    EXPECT_EQ(product.told().size(), 3U);
    reloadWith("[");
    EXPECT_EQ(product.told().size(), 3U);
    // After another good content, or the same one, it is news again.
    reloadWith(numberedText(1));
    EXPECT_THAT(product.told(), IsEmpty());
    reloadWith("[");
    EXPECT_EQ(product.told().size(), 3U);
    EXPECT_EQ(product.health(EboLivePart::Capture).refused, 4U);
    EXPECT_EQ(product.health(EboLivePart::Capture).accepted, 1U);
    EXPECT_EQ(product.live().health().reads, 10U);
}

TEST_F(LiveByHand, KeepsTheLastGoodFileForTheNextStart) {
    writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    reloadWith(without(2, "ebo_configs", "cng", "fGain"));
    product.stop();
    writeText(file, "");
    ASSERT_TRUE(product.start());
    EXPECT_TRUE(runsWith(1, 2, 2));
    EXPECT_EQ(product.health(EboLivePart::Capture).source, EboLiveSource::Kept);
    EXPECT_EQ(product.health(EboLivePart::Capture).accepted, 0U);
    product.told();
    reloadWith(numberedText(3));
    EXPECT_TRUE(runsWith(3, 3, 3));
    EXPECT_EQ(product.health(EboLivePart::Capture).source, EboLiveSource::File);
}

TEST_F(LiveByHand, FallsBackToTheKeptFileBeforeTheLast) {
    writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    reloadWith(numberedText(2));
    product.stop();
    writeText(file, "");
    writeText(file + ".good-capture", "{");
    fs::remove(file + ".good-playback");
    ASSERT_TRUE(product.start());
    EXPECT_TRUE(runsWith(1, 1, 2));
    product.stop();
    // It has become the last one: a new one does not push it out before it is there itself.
    EXPECT_EQ(live_test::readText(file + ".good-capture"), numberedText(1));
    EXPECT_EQ(live_test::readText(file + ".good-playback"), numberedText(1));
    for (const char* kept : {".good-capture", ".before-capture"}) writeText(file + kept, "{");
    ASSERT_TRUE(product.start());
    EXPECT_TRUE(runsWith(kDefaults, 1, 2));
}

TEST_F(LiveByHand, WritesOnlyWhatChanged) {
    writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    const auto inode = [&] {
        struct stat about = {};
        EXPECT_EQ(stat((file + ".good-capture").c_str(), &about), 0);
        EXPECT_EQ(about.st_mode & 0777U, 0600U);
        return about.st_ino;
    };
    const auto first = inode();
    reloadWith("{");
    reloadWith(numberedText(1));
    EXPECT_EQ(inode(), first);
    EXPECT_EQ(product.health(EboLivePart::Capture).unchanged, 1U);
    product.stop();
    ASSERT_TRUE(product.start());
    EXPECT_EQ(inode(), first);
    EXPECT_FALSE(fs::exists(file + ".before-capture"));
    EXPECT_FALSE(fs::exists(file + ".new-capture"));
}

TEST_F(LiveByHand, KeepsWhereItIsTold) {
    product.options.kept_folder = scratch / "kept";
    writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    EXPECT_TRUE(runsWith(1, 1, 1));
    EXPECT_EQ(product.live().health().keep_failures, 3U);
    EXPECT_THAT(product.live().health().keep_failure, HasSubstr("cannot create"));
    fs::create_directory(scratch / "kept");
    reloadWith(numberedText(2));
    EXPECT_EQ(product.live().health().keep_failures, 3U);
    EXPECT_EQ(live_test::readText(scratch / "kept/tuning.json.good-gain"), numberedText(2));
    product.stop();
    product.options.keep = false;
    writeText(file, "");
    ASSERT_TRUE(product.start());
    EXPECT_TRUE(runsWith(kDefaults, kDefaults, kDefaults));
}

TEST_F(LiveByHand, GoesBackWhenTheEngineCannotWorkWithATuning) {
    writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    reloadWith(numberedText(2));
    product.told();
    EXPECT_TRUE(product.live().reject(EboLivePart::Capture));
    EXPECT_TRUE(runsWith(1, 2, 2));
    EXPECT_THAT(product.told(), ElementsAre("capture rejected: the engine cannot work with it",
                                            "capture accepted: from the kept file"));
    EXPECT_EQ(live_test::readText(file + ".good-capture"), numberedText(1));
    product.live().reload();  // the same bytes
    EXPECT_TRUE(runsWith(1, 2, 2));
    EXPECT_THAT(product.told(), IsEmpty());
    reloadWith(numberedText(3));
    EXPECT_TRUE(runsWith(3, 3, 3));
    product.told();
    reloadWith(numberedText(2));
    EXPECT_TRUE(runsWith(3, 2, 2));
    EXPECT_THAT(product.told(),
                testing::Contains("capture refused: was rejected before: the engine cannot work with "
                                  "it"));
    EXPECT_EQ(product.health(EboLivePart::Capture).rejected, 1U);
}

TEST_F(LiveByHand, RemembersAcrossARestartWhatWasRejected) {
    writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    reloadWith(numberedText(2));
    product.stop();  // as when the engine brought it down
    ASSERT_TRUE(product.start());
    EXPECT_TRUE(runsWith(2, 2, 2));
    EXPECT_TRUE(product.live().reject(EboLivePart::Gain));
    EXPECT_TRUE(runsWith(2, 2, 1));
    product.stop();
    ASSERT_TRUE(product.start());
    EXPECT_TRUE(runsWith(2, 2, 1));
    // Nor is it taken from a kept file.
    product.stop();
    writeText(file + ".good-gain", numberedText(2));
    ASSERT_TRUE(product.start());
    EXPECT_TRUE(runsWith(2, 2, kDefaults));
}

TEST_F(LiveByHand, GoesBackToTheDefaultsAtLast) {
    writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    EXPECT_TRUE(product.live().reject(EboLivePart::Capture));
    EXPECT_TRUE(runsWith(kDefaults, 1, 1));
    EXPECT_FALSE(fs::exists(file + ".good-capture"));
    EXPECT_FALSE(product.live().reject(EboLivePart::Capture));
    product.stop();
    ASSERT_TRUE(product.start());
    EXPECT_TRUE(runsWith(kDefaults, 1, 1));
}

TEST_F(LiveByHand, CanBeAskedFromACallback) {
    writeText(file, numberedText(1));
    int turn = 0;
    bool asked = false;
    product.options.on_event = [&](const EboLiveEvent& event) {
        if (event.kind != EboLiveEvent::Kind::Accepted || event.part != EboLivePart::Capture) return;
        if (++turn == 1) writeText(file, numberedText(2));
        if (turn == 1) product.live().reload();
        if (turn == 2) asked = product.live().reject(EboLivePart::Capture);
    };
    ASSERT_TRUE(product.start());
    EXPECT_TRUE(eventually([&] { return product.health(EboLivePart::Capture).rejected == 1; }));
    EXPECT_TRUE(eventually([&] { return runsWith(1, 2, 2); }));
    EXPECT_TRUE(asked);
}

TEST_F(LiveByHand, HandsTheLogOn) {
    std::vector<std::string> here;
    std::vector<std::string> there;
    std::mutex mutex;
    const auto host = std::this_thread::get_id();
    product.options.on_log = [&](const EboLiveMessage& message) {
        const std::lock_guard<std::mutex> lock(mutex);
        (std::this_thread::get_id() == host ? here : there)
            .push_back(std::string(message.error ? "E " : "I ") + message.function + ": " + message.text);
    };
    writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    EXPECT_THAT(there, testing::Contains("I parseEboAecConfigs: mic_chn_map:2 chn;map:1,1"));
    EXPECT_THAT(here, IsEmpty());
    EboAecParam* const aec = createEboAecConfig();
    aec->model_aec_en = 0;
    dumpEboAecConfig(aec);
    EboAecParam* gone = aec;
    destroyEboAecConfig(&gone);
    EXPECT_THAT(here, testing::Contains("I dumpEboAecConfig: pos = 1, drop_ref_channel = 0"));
    const size_t before = here.size();
    product.stop();
    testing::internal::CaptureStderr();
    dumpEboAecConfig(nullptr);
    parseEboConfigs((scratch / "none").c_str());
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("none"))
        << "the log is the framework's again";
    EXPECT_EQ(here.size(), before);
}

TEST(PlainText, HasNoColoursAndNoNewlinesAtItsEnd) {
    EXPECT_EQ(ebo_live::plainText("\x1b[31m\x1b[1ma\nb \x1b[2Jc  \n\x1b[0m\r\n"), "a b \x1b[2Jc  ");
}

// Nobody reads what standard error holds, and it is full.
TEST_F(LiveByHand, LoadsWhenStandardErrorBlocks) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    fcntl(ends[1], F_SETFL, O_NONBLOCK);
    while (write(ends[1], "x", 1) == 1) {
    }
    fcntl(ends[1], F_SETFL, 0);
    const int standard_error = dup(STDERR_FILENO);
    dup2(ends[1], STDERR_FILENO);
    writeText(file, numberedText(1));
    const bool started = product.start();
    reloadWith(numberedText(2));
    reloadWith("{");
    dup2(standard_error, STDERR_FILENO);
    for (const int fd : {standard_error, ends[0], ends[1]}) close(fd);
    EXPECT_TRUE(started);
    EXPECT_TRUE(runsWith(2, 2, 2));
}

TEST_F(LiveByHand, KeepsRecordsAsLongAsAnEngineHoldsThem) {
    writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    EboLiveReader reader(product.live());
    EboLiveReader other(product.live());
    const EboLiveSet* const set = reader.begin();
    reloadWith(numberedText(2));
    EXPECT_EQ(live_test::numberIn(*set->capture), 1);
    EXPECT_EQ(set->generation[0], 1U);
    EXPECT_EQ(product.live().health().sets_in_use, 1U);
    const EboLiveSet* const newer = other.begin();
    EXPECT_EQ(live_test::numberIn(*newer->capture), 2);
    EXPECT_EQ(newer->generation[0], 2U);
    reloadWith(numberedText(3));
    EXPECT_EQ(product.live().health().sets_in_use, 2U);
    reader.end();
    EXPECT_EQ(live_test::numberIn(*newer->capture), 2);
    EXPECT_TRUE(eventually([&] {
        product.live().reload();
        return product.live().health().sets_in_use == 1;
    }));
    other.end();
    EXPECT_TRUE(eventually([&] {
        product.live().reload();
        return product.live().health().sets_in_use == 0;
    }));
}

// Records of a part that did not change are the same.
TEST_F(LiveByHand, ChangesOnlyTheRecordsOfPartsThatChange) {
    writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    EboLiveReader reader(product.live());
    const EboAgcParam* const gain = reader.begin()->gain;
    reloadWith(without(2, "ebo_agc_configs", "agc", "status"));
    reader.end();
    EXPECT_EQ(reader.begin()->gain, gain);
    EXPECT_EQ(reader.begin()->generation[2], 1U);
    EXPECT_EQ(reader.begin()->generation[0], 2U);
    reader.end();
}

TEST_F(Live, TakesChangesByItself) {
    writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    EXPECT_TRUE(product.live().health().watching);
    const auto comes = [&](int number) {
        return eventually([&] { return runsWith(number, number, number); });
    };
    replaceText(file, numberedText(2));
    EXPECT_TRUE(comes(2));
    writeText(file, numberedText(3));
    EXPECT_TRUE(comes(3));
    fs::rename(scratch.folder(), scratch.folder() + "-gone");
    fs::remove_all(scratch.folder() + "-gone");
    fs::create_directories(scratch.folder());
    writeText(file, numberedText(4));
    EXPECT_TRUE(comes(4));
    writeText(scratch / "other.json", numberedText(5));
    fs::create_symlink("other.json", scratch / "link");
    fs::rename(scratch / "link", file);
    EXPECT_TRUE(comes(5));
    writeText(scratch / "other.json", numberedText(6));
    EXPECT_TRUE(comes(6));
}

TEST_F(Live, TakesABurstOfChangesAsOne) {
    writeText(file, numberedText(1));
    product.options.quiet_ms = 200;
    product.options.burst_ms = 5000;
    ASSERT_TRUE(product.start());
    for (int i = 2; i <= 20; ++i) replaceText(file, numberedText(i));
    EXPECT_TRUE(eventually([&] { return runsWith(20, 20, 20); }));
    EXPECT_EQ(product.live().health().reads, 2U);
}

TEST_F(Live, DoesNotWaitForTheEndOfALongBurst) {
    writeText(file, numberedText(1));
    product.options.quiet_ms = 60000;
    product.options.burst_ms = 50;
    ASSERT_TRUE(product.start());
    replaceText(file, numberedText(2));
    EXPECT_TRUE(eventually([&] { return runsWith(2, 2, 2); }));
}

// Half of it is the former content, and all of it a file that would load.
TEST_F(Live, WaitsForSomebodyWhoIsWriting) {
    const std::string former = numberedText(1);
    const std::string fresh = numberedText(2);
    ASSERT_EQ(former.size(), fresh.size());
    writeText(file, former);
    product.options.burst_ms = 60000;
    ASSERT_TRUE(product.start());
    const int writer = open(file.c_str(), O_WRONLY | O_CLOEXEC);
    ASSERT_EQ(write(writer, fresh.data(), fresh.size() / 2), static_cast<ssize_t>(fresh.size() / 2));
    close(open(file.c_str(), O_WRONLY | O_CLOEXEC));  // a change that is seen
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_TRUE(runsWith(1, 1, 1));
    EXPECT_EQ(product.live().health().reads, 1U);
    ASSERT_GT(write(writer, fresh.data() + fresh.size() / 2, fresh.size() - fresh.size() / 2), 0);
    close(writer);
    EXPECT_TRUE(eventually([&] { return runsWith(2, 2, 2); }));
}

// An engine that stands in its frame does not let records pile up.
TEST_F(Live, LetsFilesWaitWhileAnEngineHoldsMany) {
    writeText(file, numberedText(1));
    ASSERT_TRUE(product.start());
    EboLiveReader reader(product.live());
    reader.begin();
    for (int i = 2; i <= 5; ++i) reloadWith(numberedText(i));
    EXPECT_TRUE(eventually([&] { return product.live().health().sets_in_use >= 4; }));
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    replaceText(file, numberedText(6));
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_EQ(product.capture(), 5);
    reader.end();
    EXPECT_TRUE(eventually([&] { return runsWith(6, 6, 6); }));
}

}  // namespace
