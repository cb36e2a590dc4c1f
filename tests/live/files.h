// What the tests of a live tuning share: a folder of their own, and files that carry a number.
#pragma once

#include <ebo_live.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <mutex>
#include <nlohmann/json.hpp>
#include <string>
#include <thread>
#include <vector>

namespace live_test {

using json = nlohmann::ordered_json;
namespace fs = std::filesystem;

inline std::string readText(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

inline void writeText(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << text;
}

// In one step, as an updater does it.
inline void replaceText(const std::string& path, const std::string& text) {
    writeText(path + ".tmp", text);
    fs::rename(path + ".tmp", path);
}

inline json completeDocument() {
    return json::parse(readText(EBO_TUNINGS "/six-mic-conference.json"));
}

// A complete file that says the number, from 0 to 30000, in its first section, its last, and between.
inline json numbered(int number) {
    json document = completeDocument();
    json& capture = document["ebo_configs"];
    capture["aec"]["delay_len"] = number;
    capture["aec"]["mic_chn_map"] = "2 chn;map:" + std::to_string(number) + ",1";
    capture["doa"]["lg_num"] = number;
    capture["wakeup"]["status"] = "enable";
    capture["wakeup"]["model_word1"] = "word-" + std::to_string(number);
    capture["ainr"]["status"] = "enable";
    capture["ainr"]["model_path"] = std::to_string(number);
    document["ebo_ao_configs"]["howl"]["mode"] = number;
    document["ebo_ao_configs"]["anr"]["swU"] = number;
    document["ebo_agc_configs"]["agc"]["swSmL0"] = number;
    document["ebo_agc_configs"]["agc"]["swSmL2"] = number;
    return document;
}
inline std::string numberedText(int number) {
    return numbered(number).dump(2);
}

constexpr int kDefaults = -1;
constexpr int kTorn = -2;

// The number that a part's records carry.
inline int numberIn(const KAEboParam& capture) {
    const EboAecParam& aec = *capture.aec;
    const EboBeamFormParam& bf = *capture.bf;
    if (bf.doa == nullptr) return kDefaults;
    const int number = static_cast<int>(aec.delay_len);
    const std::string digits = std::to_string(number);
    const bool whole = aec.Array_list[0] == number && bf.doa->lg_num == number &&
                       bf.wakeup->model_word1 == "word-" + digits && bf.ainr->model_path == digits;
    return whole ? number : kTorn;
}
inline int playbackIn(const KAEboParam& playback) {
    const EboRxParam& rx = *playback.rx;
    if (rx.howl == nullptr) return kDefaults;
    return rx.anr->swU == rx.howl->mode ? rx.howl->mode : kTorn;
}
inline int gainIn(const EboAgcParam& gain) {
    if (gain.swSmL0 != gain.swSmL2) return kDefaults;
    return static_cast<int>(gain.swSmL0);
}

template <typename Condition>
bool eventually(Condition condition) {
    for (int i = 0; i < 2000; ++i) {
        if (condition()) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return condition();
}

class Scratch {
public:
    Scratch() {
        static int made = 0;
        folder_ = fs::temp_directory_path().string() + "/" + std::to_string(getpid()) + "-live-" +
                  std::to_string(++made);
        fs::remove_all(folder_);
        fs::create_directories(folder_);
    }
    ~Scratch() { fs::remove_all(folder_); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    std::string operator/(const std::string& name) const { return folder_ + "/" + name; }
    const std::string& folder() const { return folder_; }

private:
    std::string folder_;
};

// A live tuning of tests: all parts, everything that it tells.
class Product {
public:
    explicit Product(const std::string& path) {
        options.path = path;
        options.parts[1] = options.parts[2] = true;
        options.on_event = [this](const EboLiveEvent& event) {
            static const char* const kKinds[] = {"accepted", "refused", "rejected"};
            const std::lock_guard<std::mutex> lock(mutex_);
            told_.push_back(std::string(eboLiveName(event.part)) + " " +
                            kKinds[static_cast<size_t>(event.kind)] + ": " + event.text);
        };
    }

    EboLiveOptions options;

    bool start() {
        live_ = std::make_unique<EboLive>(options);
        return live_->start();
    }
    void stop() { live_.reset(); }
    EboLive& live() { return *live_; }
    EboLiveHealth::Part health(EboLivePart part) const {
        return live_->health().parts[static_cast<size_t>(part)];
    }

    int capture() {
        return with([](const EboLiveSet& set) { return numberIn(*set.capture); });
    }
    int playback() {
        return with([](const EboLiveSet& set) { return playbackIn(*set.playback); });
    }
    int gain() {
        return with([](const EboLiveSet& set) { return gainIn(*set.gain); });
    }

    // What was told since the last call.
    std::vector<std::string> told() {
        const std::lock_guard<std::mutex> lock(mutex_);
        return std::exchange(told_, {});
    }

private:
    template <typename Look>
    int with(Look look) {
        EboLiveReader reader(*live_);
        const int number = look(*reader.begin());
        reader.end();
        return number;
    }

    std::mutex mutex_;
    std::vector<std::string> told_;
    std::unique_ptr<EboLive> live_;
};

}  // namespace live_test
