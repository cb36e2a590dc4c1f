#include "engine.h"

#include <chrono>

Engine::Engine(EboLive& tuning) : records_(tuning), thread_(&Engine::run, this) {}

Engine::~Engine() {
    stop_ = true;
    thread_.join();
}

// Takes no lock, and so waits for nobody who prints or loads.
void Engine::run() {
    uint32_t in_use = 0;
    while (!stop_) {
        const EboLiveSet& set = *records_.begin();
        if (set.generation[0] != in_use) {
            in_use = set.generation[0];  // here what depends on the parameters would be set up anew
        }
        ++frames_;  // here the audio would be worked on
        records_.end();
        std::this_thread::sleep_for(std::chrono::milliseconds(16));  // 256 samples at 16 kHz
    }
}
