// The blocks that are live, whoever made them; shared by all threads.
#pragma once

#include <vector>

#include "ka/recording.h"

namespace ka_recording {

// Adds the call to this thread's record, if it keeps one.
void record(Event event);

std::vector<int> liveBlocksOf(const Recorder* owner);
void releaseBlocksOf(const Recorder* owner);

}  // namespace ka_recording
