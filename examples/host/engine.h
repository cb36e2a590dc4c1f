// Stand-in for a signal-processing engine: a thread of its own works on one frame after another, with the
// records that are in use when a frame begins.
#pragma once

#include <ebo_live.h>

#include <atomic>
#include <thread>

class Engine {
public:
    explicit Engine(EboLive& tuning);  // starts
    ~Engine();                         // stops
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    long frames() const { return frames_; }  // done so far

private:
    void run();

    EboLiveReader records_;
    std::atomic<long> frames_{0};
    std::atomic<bool> stop_{false};
    std::thread thread_;
};
