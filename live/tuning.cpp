#include "tuning.h"

#include <algorithm>

#include "forecast.h"
#include "guard.h"
#include "log.h"

namespace ebo_live {
namespace {

constexpr size_t kMostRejected = 16;

// Of what is no content; no content has this length.
Fingerprint fingerprintOfReason(const std::string& reason) {
    return {~uint64_t{0}, fingerprintOf(reason).hash};
}

// The framework names the copy that it was given.
std::string inTermsOf(const std::string& file, std::string message, const std::string& copy) {
    const size_t slash = file.rfind('/');
    const std::string name = slash == std::string::npos ? file : file.substr(slash + 1);
    const size_t at = message.find(copy);
    if (at != std::string::npos) message.replace(at, copy.size(), name);
    return message;
}

}  // namespace

Tuning::Parts Tuning::wanted() const {
    Parts parts;
    for (const EboLivePart part : {EboLivePart::Capture, EboLivePart::Playback, EboLivePart::Gain}) {
        if (options_.parts[static_cast<size_t>(part)]) parts.push_back(part);
    }
    return parts;
}

bool Tuning::start(bool now) {
    for (const EboLivePart part : wanted()) {
        of(part).rejected = keeper_.rejected(part);
        of(part).kept = keeper_.good(part);
    }
    if (!readFile(now)) return false;
    Parts others;
    for (const EboLivePart part : wanted()) {
        if (of(part).tree != nullptr) continue;
        takeKept(part);
        if (of(part).tree == nullptr) useDefaults(part);
        others.push_back(part);
    }
    if (!others.empty()) publish(others, "");
    return true;
}

bool Tuning::complete() const {
    const Parts parts = wanted();
    return std::all_of(parts.begin(), parts.end(), [this](EboLivePart part) {
        return parts_[static_cast<size_t>(part)].tree != nullptr;
    });
}

bool Tuning::readFile(bool now) {
    const FileRead read = ebo_live::readFile(options_.path, options_.most_bytes);
    if (read.written && !now) return false;
    {
        const std::lock_guard<std::mutex> lock(report_.mutex);
        ++report_.health.reads;
    }
    if (read.bytes != nullptr) {
        takeFile(read.bytes);
    } else {
        for (const EboLivePart part : wanted()) refuse(part, fingerprintOfReason(read.reason), read.reason);
    }
    return true;
}

// Those for which the content is neither what they have nor what they have refused.
Tuning::Parts Tuning::news(const std::string& bytes, const Parts& parts) {
    const Fingerprint print = fingerprintOf(bytes);
    Parts news;
    for (const EboLivePart part : parts) {
        Part& state = of(part);
        const bool same = state.bytes != nullptr && *state.bytes == bytes;
        if (same || state.refused == print) {
            if (same) state.refused.reset();
            if (same) state.source = EboLiveSource::File;
            const std::lock_guard<std::mutex> lock(report_.mutex);
            ++healthOf(part).unchanged;
            healthOf(part).source = state.source;
        } else if (isRejected(part, bytes)) {
            refuse(part, print, "was rejected before: the engine cannot work with it");
        } else {
            news.push_back(part);
        }
    }
    return news;
}

void Tuning::takeFile(const Bytes& bytes) {
    const Parts parts = news(*bytes, wanted());
    if (parts.empty()) return;
    std::vector<Outcome> outcomes = load(*bytes, parts);
    Parts accepted;
    for (size_t i = 0; i < parts.size(); ++i) {
        if (outcomes[i].tree == nullptr) {
            std::optional<Fingerprint> what;
            if (outcomes[i].lasting) what = fingerprintOf(*bytes);
            refuse(parts[i], what, outcomes[i].reason);
            continue;
        }
        use(parts[i], std::move(outcomes[i].tree), bytes, EboLiveSource::File);
        accepted.push_back(parts[i]);
    }
    if (accepted.empty()) return;
    publish(accepted, "from the file");
    for (const EboLivePart part : accepted) keep(part);
}

// The good one, or the one before it, which then is the good one.
void Tuning::takeKept(EboLivePart part) {
    Part& state = of(part);
    for (const bool before : {false, true}) {
        const Bytes bytes = before ? keeper_.before(part) : state.kept;
        state.kept = nullptr;
        if (bytes == nullptr || isRejected(part, *bytes)) continue;
        Outcome outcome = std::move(load(*bytes, {part})[0]);
        if (outcome.tree == nullptr) continue;
        if (before) noteKeeping(keeper_.keepBefore(part));
        state.kept = bytes;
        return use(part, std::move(outcome.tree), bytes, EboLiveSource::Kept);
    }
}

std::vector<Tuning::Outcome> Tuning::load(const std::string& bytes, const Parts& parts) const {
    std::vector<Outcome> outcomes(parts.size());
    const Snapshot snapshot(bytes);
    const std::string& path = snapshot.path();
    bool any = false;
    for (size_t i = 0; i < parts.size(); ++i) {
        const bool whole = !options_.incomplete_playback;
        const Trial trial = options_.guard ? tryLoad(parts[i], path, whole) : Trial::Survived;
        if (path.empty()) {
            outcomes[i] = {nullptr, "cannot be copied to be loaded", false};
        } else if (trial == Trial::Untried) {
            outcomes[i] = {nullptr, "cannot be tried in another process", false};
        } else if (trial == Trial::Died) {
            outcomes[i].reason = "ended the process that tried to load it";
        } else {
            any = true;
        }
    }
    if (!any) return outcomes;

    KAJsonParser parser;
    std::string unreadable;
    {
        const Listening listening(options_.on_log);
        if (parser.parseFile(path.c_str()) == 0) {
            unreadable = inTermsOf(options_.path, listening.firstError(), path);
            if (unreadable.empty()) unreadable = "the framework does not take it";
        }
    }
    for (size_t i = 0; i < parts.size(); ++i) {
        Outcome& outcome = outcomes[i];
        if (!outcome.reason.empty()) continue;
        outcome.reason = unreadable;
        if (!unreadable.empty()) continue;
        outcome.reason = forecast(parser, loadOf(parts[i]), !options_.incomplete_playback).reason;
        if (!outcome.reason.empty()) continue;
        const Listening listening(options_.on_log);
        outcome.tree = loadTree(parts[i], path.c_str());
        if (outcome.tree == nullptr) outcome.reason = "its load failed: " + listening.firstError();
    }
    return outcomes;
}

void Tuning::use(EboLivePart part, std::shared_ptr<Tree> tree, const Bytes& bytes, EboLiveSource source) {
    Part& state = of(part);
    state.tree = std::move(tree);
    state.before = state.bytes;
    state.bytes = bytes;
    state.source = source;
    if (source == EboLiveSource::File) state.refused.reset();
    ++state.generation;
    const std::lock_guard<std::mutex> lock(report_.mutex);
    EboLiveHealth::Part& health = healthOf(part);
    health.source = source;
    health.generation = state.generation;
    if (source == EboLiveSource::File) ++health.accepted;
}

bool Tuning::useDefaults(EboLivePart part) {
    auto tree = defaultTree(part);
    if (tree == nullptr) return false;
    use(part, std::move(tree), nullptr, EboLiveSource::Defaults);
    return true;
}

void Tuning::publish(const Parts& parts, const char* text) {
    auto set = std::make_unique<Set>();
    for (size_t i = 0; i < kEboLiveParts; ++i) {
        set->trees[i] = parts_[i].tree;
        set->generation[i] = parts_[i].generation;
        if (parts_[i].tree == nullptr) continue;
        const auto part = static_cast<EboLivePart>(i);
        if (part == EboLivePart::Capture) set->capture = parts_[i].tree->capture;
        if (part == EboLivePart::Playback) set->playback = parts_[i].tree->playback;
        if (part == EboLivePart::Gain) set->gain = parts_[i].tree->gain;
    }
    current_.publish(std::move(set));
    for (const EboLivePart part : parts) {
        const EboLiveSource source = of(part).source;
        if (source == EboLiveSource::Kept) text = "from the kept file";
        if (source == EboLiveSource::Defaults) text = "from the defaults";
        tell(EboLiveEvent::Kind::Accepted, part, text);
    }
}

// Storage wears: only what is not there already is written.
void Tuning::keep(EboLivePart part) {
    Part& state = of(part);
    if (state.kept != nullptr && *state.kept == *state.bytes) return;
    const std::string failure = keeper_.keep(part, *state.bytes);
    noteKeeping(failure);
    if (failure.empty()) state.kept = state.bytes;
}

// Without `what` it is told again when it comes again.
void Tuning::refuse(EboLivePart part, const std::optional<Fingerprint>& what, const std::string& reason) {
    {
        const std::lock_guard<std::mutex> lock(report_.mutex);
        EboLiveHealth::Part& health = healthOf(part);
        if (what && of(part).refused == what) {
            ++health.unchanged;
            return;
        }
        ++health.refused;
        health.refusal = reason;
    }
    of(part).refused = what;
    tell(EboLiveEvent::Kind::Refused, part, reason.c_str());
}

bool Tuning::reject(EboLivePart part) {
    Part& state = of(part);
    if (state.bytes == nullptr) return false;
    state.refused = fingerprintOf(*state.bytes);
    if (state.rejected.size() == kMostRejected) state.rejected.erase(state.rejected.begin());
    state.rejected.push_back(*state.refused);
    // First of all: whatever happens next, these bytes are not taken again.
    noteKeeping(keeper_.keepRejected(part, state.rejected));
    {
        const std::lock_guard<std::mutex> lock(report_.mutex);
        ++healthOf(part).rejected;
    }
    tell(EboLiveEvent::Kind::Rejected, part, "the engine cannot work with it");

    const Bytes former = state.before != nullptr ? state.before : keeper_.before(part);
    Outcome outcome;
    if (former != nullptr && !isRejected(part, *former)) outcome = std::move(load(*former, {part})[0]);
    if (outcome.tree != nullptr) {
        use(part, std::move(outcome.tree), former, EboLiveSource::Kept);
    } else if (!useDefaults(part)) {
        return false;
    }
    state.before = nullptr;
    publish({part}, "");
    noteKeeping(keeper_.keepBefore(part));
    state.kept = state.bytes;
    return true;
}

void Tuning::clear() {
    for (Part& part : parts_) part.tree.reset();
}

bool Tuning::isRejected(EboLivePart part, const std::string& bytes) {
    const auto& rejected = of(part).rejected;
    return std::find(rejected.begin(), rejected.end(), fingerprintOf(bytes)) != rejected.end();
}

void Tuning::tell(EboLiveEvent::Kind kind, EboLivePart part, const char* text) {
    if (options_.on_event) options_.on_event({kind, part, of(part).source, text});
}

void Tuning::noteKeeping(const std::string& failure) {
    if (failure.empty()) return;
    const std::lock_guard<std::mutex> lock(report_.mutex);
    ++report_.health.keep_failures;
    report_.health.keep_failure = failure;
}

}  // namespace ebo_live
