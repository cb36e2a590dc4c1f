// The last good file and the one before it, kept for the next start; and what the host has rejected.
//
// Whenever the process or the machine stops, one of the two is there, and whole: a file gets its name only
// when all of it is on the storage.
#pragma once

#include <string>
#include <vector>

#include "ebo_live.h"
#include "file.h"

namespace ebo_live {

class Keeper {
public:
    explicit Keeper(const EboLiveOptions& options);

    // Null where there is none.
    Bytes good(EboLivePart part) const { return read("good", part); }
    Bytes before(EboLivePart part) const { return read("before", part); }
    std::vector<Fingerprint> rejected(EboLivePart part) const;

    // Each returns why it did not work; empty when it did.
    std::string keep(EboLivePart part, const std::string& bytes) const;  // and the good one is the one before
    std::string keepBefore(EboLivePart part) const;                      // the one before is the good one
    std::string keepRejected(EboLivePart part, const std::vector<Fingerprint>& rejected) const;

private:
    std::string nameOf(const char* kind, EboLivePart part) const;
    Bytes read(const char* kind, EboLivePart part) const;
    std::string syncFolder() const;

    const bool on_;
    const size_t most_bytes_;
    std::string folder_;
    std::string start_;  // of the names, folder included
};

}  // namespace ebo_live
