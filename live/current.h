// The set in use: handed to engines without a lock, and destroyed once none of them can hold it.
#pragma once

#include <atomic>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

#include "ebo_live.h"
#include "tree.h"

namespace ebo_live {

// With the owners of its records; of a part that did not change they are the former set's, too.
struct Set : EboLiveSet {
    std::shared_ptr<Tree> trees[kEboLiveParts];
};

// One per reader.
struct alignas(64) Slot {
    std::atomic<uint32_t> epoch{0};  // when its frame began; 0: between frames
};

// A frame notes the epoch and then takes the pointer; publish() replaces the pointer and then begins the next
// epoch. A frame that got the former set has therefore noted an earlier epoch, where reclaim() sees it.
class Current {
public:
    // Wait-free.
    const EboLiveSet* enter(Slot& slot) {
        slot.epoch.store(epoch_.load());
        return set_.load();
    }
    static void leave(Slot& slot) { slot.epoch.store(0, std::memory_order_release); }

    void add(Slot* slot);
    void remove(Slot* slot);

    // These by one thread.
    void publish(std::unique_ptr<const Set> set);
    // Destroys what no engine holds any more.
    void reclaim();
    size_t waiting() const { return retired_.size(); }
    void clear();  // no slot is in a frame

private:
    static_assert(std::atomic<uint32_t>::is_always_lock_free && std::atomic<const Set*>::is_always_lock_free);

    struct Retired {
        std::unique_ptr<const Set> set;
        uint32_t epoch;  // the first in which nobody gets it
    };

    std::atomic<const Set*> set_{nullptr};
    std::atomic<uint32_t> epoch_{1};  // odd, and so never 0 when it overflows
    std::deque<Retired> retired_;
    std::mutex mutex_;
    std::vector<Slot*> slots_;
};

}  // namespace ebo_live
