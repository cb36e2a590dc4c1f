// The parts and what becomes of them: taken, refused, rejected, kept. Used by the loading thread alone.
#pragma once

#include <array>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "current.h"
#include "keeper.h"

namespace ebo_live {

// What health() shows.
struct Report {
    mutable std::mutex mutex;
    EboLiveHealth health;
};

class Tuning {
public:
    Tuning(const EboLiveOptions& options, Current& current, Report& report)
        : options_(options), current_(current), report_(report), keeper_(options) {}

    // Reads the file for the first time, and gives records to each part that it does not serve. False as
    // readFile().
    bool start(bool now);
    // Each part has records: there was memory for them.
    bool complete() const;

    // Reads the file and takes what is good of it. False, and nothing is done, when somebody is writing to
    // it; `now`: it is read all the same.
    bool readFile(bool now);

    bool reject(EboLivePart part);

    // Destroys the records.
    void clear();

private:
    struct Part {
        std::shared_ptr<Tree> tree;
        Bytes bytes;                         // of the file that it is from; null: none
        Bytes before;                        // those before, as far as this process has seen them
        Bytes kept;                          // the kept file's; null: none, or not whole
        std::optional<Fingerprint> refused;  // last, since there was a good one
        std::vector<Fingerprint> rejected;   // the last ones
        EboLiveSource source = EboLiveSource::Nowhere;
        uint32_t generation = 0;
    };
    struct Outcome {
        std::shared_ptr<Tree> tree;
        std::string reason;   // when there is none
        bool lasting = true;  // the content's fault: the same bytes need no second try
    };
    using Parts = std::vector<EboLivePart>;

    Part& of(EboLivePart part) { return parts_[static_cast<size_t>(part)]; }
    EboLiveHealth::Part& healthOf(EboLivePart part) {
        return report_.health.parts[static_cast<size_t>(part)];
    }
    Parts wanted() const;

    std::vector<Outcome> load(const std::string& bytes, const Parts& parts) const;
    Parts news(const std::string& bytes, const Parts& parts);
    void takeFile(const Bytes& bytes);
    void takeKept(EboLivePart part);
    void use(EboLivePart part, std::shared_ptr<Tree> tree, const Bytes& bytes, EboLiveSource source);
    bool useDefaults(EboLivePart part);
    void publish(const Parts& parts, const char* text);
    void keep(EboLivePart part);
    void refuse(EboLivePart part, const std::optional<Fingerprint>& what, const std::string& reason);
    bool isRejected(EboLivePart part, const std::string& bytes);
    void tell(EboLiveEvent::Kind kind, EboLivePart part, const char* text);
    void noteKeeping(const std::string& failure);

    const EboLiveOptions& options_;
    Current& current_;
    Report& report_;
    const Keeper keeper_;
    std::array<Part, kEboLiveParts> parts_;
};

}  // namespace ebo_live
