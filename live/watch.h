// Sees changes of what a path leads to: the file itself, written, renamed or removed, and every folder and
// symbolic link on the way.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace ebo_live {

class Watch {
public:
    explicit Watch(const std::string& path);
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    // Readable when something may have changed; -1 when the system has no watches.
    int descriptor() const { return fd_; }

    // Follows the path as it is now. Before the file is read: no change after that goes unseen.
    void follow();
    // Whether the last follow() could watch every folder on the way.
    bool complete() const { return complete_; }

    // Takes what has come in. True when some of it is about the path.
    bool changed();
    uint32_t overflows() const { return overflows_; }

private:
    struct Step {
        int watch;  // of the folder
        std::string name;
        bool operator==(const Step& other) const { return watch == other.watch && name == other.name; }
    };

    const int fd_;
    std::string path_;  // absolute
    std::vector<Step> steps_;
    bool complete_ = false;
    uint32_t overflows_ = 0;
};

}  // namespace ebo_live
