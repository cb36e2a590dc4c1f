// Many threads at once, each with a file of its own.
#include <ebo_config.h>

#include <atomic>
#include <thread>

#include "harness/modelled.h"

namespace {

constexpr int kThreads = 10;

// A file that differs from every other one in its numbers, words, rows, map and enabled sections.
json fileOf(int thread) {
    const std::string n = std::to_string(thread);
    json document = model::sampleDocument();
    json& capture = document["ebo_configs"];
    capture["aec"]["delay_len"] = thread;
    capture["aec"]["mic_chn_map"] = "2 chn;map:" + n + ",1";
    capture["delay"]["SmoothFactor"] = thread + 0.5;
    capture["aes"]["LimitRatio_1"] = n + ".5  1  2";
    capture["wakeup"]["model_word1"] = "word-" + n;
    capture["ainr"]["model_path"] = "/models/" + n;
    document["ebo_ao_configs"]["howl"]["mode"] = thread;
    document["ebo_agc_configs"]["agc"]["max_gain"] = thread + 0.25;
    if (thread % 2 == 1) capture["dtd"]["status"] = "off";
    // So long to read that other threads come between.
    capture["nlp"]["band_pass_thd"] = n + "," + std::string(40000, ' ') + n;
    return document;
}

struct Files {
    std::string whole;
    std::string broken;  // without a key of "doa"
};

// Loads, dumps and destroys with every entry point. What was seen, to be compared.
std::vector<std::string> run(const Files& files) {
    std::vector<std::string> seen;
    Host host;
    host.expectLeaks(2);  // the gain control's spare record, the map of the load that fails
    const std::string path = host.file(files.whole);

    KAEboParam* ebo = parseEboConfigs(path.c_str());
    if (ebo == nullptr) return {"does not load"};
    dumpEboAecConfig(ebo->aec);
    dumpEboBeamFormConfig(ebo->bf);
    seen.push_back("map of " + std::to_string(ebo->aec->Array_list[0]));
    destroyEboConfig(&ebo);

    EboAecParam* aec = parseEboAecConfigs(path.c_str());
    dumpEboAecConfig(aec);
    destroyEboAecConfig(&aec);

    EboBeamFormParam* bf = parseEboBeamFormConfigs(path.c_str());
    dumpEboBeamFormConfig(bf);
    destroyEboBeamFormConfig(&bf);

    KAEboParam* ao = parseEboAoConfigs(path.c_str());
    dumpEboAoConfig(ao->rx);
    destroyEboAoConfig(&ao);

    EboAgcParam* agc = parseEboAgcConfigsFile(path.c_str());
    seen.push_back("gain of " + std::to_string(agc->max_gain));
    destroyEboAgcConfig(&agc);

    KAEboParam* defaults = createEboConfigs();
    dumpEboBeamFormConfig(defaults->bf);
    destroyEboConfig(&defaults);

    if (parseEboConfigs(host.file(files.broken).c_str()) != nullptr) seen.emplace_back("loaded");

    for (const LogCall& line : host.log()) seen.push_back(toString(line));
    return seen;
}

TEST(Threads, LoadDumpAndDestroyDifferentFilesAtOnce) {
    std::vector<Files> files;
    std::vector<std::vector<std::string>> want;
    for (int i = 0; i < kThreads; ++i) {
        files.push_back({fileOf(i).dump(), without(fileOf(i), "/ebo_configs/doa/rad").dump()});
        want.push_back(run(files.back()));
        if (i > 0) {
            EXPECT_NE(want.back(), want.front());
        }
    }
    EXPECT_GT(want.front().size(), 100U);  // lines of ten dumps and loads

    std::atomic<bool> go = {false};
    std::vector<std::thread> threads;
    for (size_t i = 0; i < files.size(); ++i)
        threads.emplace_back([&, i] {
            while (!go) std::this_thread::yield();
            for (int again = 0; again < 5; ++again) EXPECT_EQ(run(files[i]), want[i]);
        });
    go = true;
    for (std::thread& thread : threads) thread.join();
}

}  // namespace
