#include "engine.h"

#include <chrono>
#include <cstdio>

namespace {

void report(const KAEboParam& tuning) {
    std::printf("engine: paths 0x%x, modules 0x%x, filter length %d\n",
                static_cast<unsigned>(tuning.model_en), static_cast<unsigned>(tuning.bf->model_en),
                tuning.aec->filter_len);
}

}  // namespace

Engine::Engine(const KAEboParam& tuning) : tuning_(&tuning), thread_(&Engine::run, this) {
    report(tuning);
}

Engine::~Engine() {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        stop_ = true;
    }
    thread_.join();
}

void Engine::use(const KAEboParam& tuning) {
    const std::lock_guard<std::mutex> lock(mutex_);
    tuning_ = &tuning;
    report(tuning);
}

long Engine::frames() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return frames_;
}

void Engine::run() {
    for (;;) {
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            if (stop_) return;
            ++frames_;  // here the audio would be worked on
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(16));  // 256 samples at 16 kHz
    }
}
