#include <algorithm>
#include <iterator>

#include "ka/recording.h"
#include "ledger.h"

namespace ka_recording {

namespace {

thread_local Recorder* t_recorder = nullptr;

}  // namespace

Recorder::Recorder() : former_(t_recorder) {
    t_recorder = this;
}

Recorder::~Recorder() {
    t_recorder = former_;
    releaseBlocksOf(this);
}

Recorder* Recorder::current() {
    return t_recorder;
}

std::vector<Event> Recorder::only(std::initializer_list<Op> ops) const {
    std::vector<Event> found;
    std::copy_if(events.begin(), events.end(), std::back_inserter(found), [&](const Event& event) {
        return std::find(ops.begin(), ops.end(), event.op) != ops.end();
    });
    return found;
}

std::vector<int> Recorder::live() const {
    return liveBlocksOf(this);
}

}  // namespace ka_recording
