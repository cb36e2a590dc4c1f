// Stand-in for a signal-processing engine: a thread of its own works on one frame after another, with
// parameters that it borrows.
#pragma once

#include <ebo_config.h>

#include <mutex>
#include <thread>

class Engine {
public:
    explicit Engine(const KAEboParam& tuning);  // starts
    ~Engine();                                  // stops
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    // From the next frame on. On return the former records are in no use any more.
    void use(const KAEboParam& tuning);

    long frames();  // done so far

private:
    void run();

    std::mutex mutex_;  // held for one frame at a time
    const KAEboParam* tuning_;
    long frames_ = 0;
    bool stop_ = false;
    std::thread thread_;
};
