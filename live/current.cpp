#include "current.h"

#include <algorithm>

namespace ebo_live {

void Current::add(Slot* slot) {
    const std::lock_guard<std::mutex> lock(mutex_);
    slots_.push_back(slot);
}

void Current::remove(Slot* slot) {
    const std::lock_guard<std::mutex> lock(mutex_);
    slots_.erase(std::find(slots_.begin(), slots_.end(), slot));
}

void Current::publish(std::unique_ptr<const Set> set) {
    std::unique_ptr<const Set> former(set_.exchange(set.release()));
    const uint32_t next = epoch_.fetch_add(2) + 2;
    if (former) retired_.push_back({std::move(former), next});
}

void Current::reclaim() {
    while (!retired_.empty()) {
        const uint32_t free_from = retired_.front().epoch;
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            for (const Slot* slot : slots_) {
                const uint32_t epoch = slot->epoch.load();
                if (epoch != 0 && static_cast<int32_t>(epoch - free_from) < 0) return;
            }
        }
        retired_.pop_front();
    }
}

void Current::clear() {
    publish(nullptr);
    retired_.clear();
}

}  // namespace ebo_live
