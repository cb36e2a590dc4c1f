#include "check/plan.h"

namespace {

CheckPass capture(const char* load) {
    return {kCaptureRoot, load, {}, true};
}

CheckPass fullPass() {
    CheckPass pass = capture("the whole load");
    for (const EboLoadStep& step : kEboLoadOrder) {
        pass.steps.push_back({step.section, step.section != &kEboDelaySection});
    }
    return pass;
}

CheckPass aecPass() {
    CheckPass pass = capture("the load of the echo canceller");
    pass.steps = {{&kEboAecSection, true}, {&kEboDelaySection, false}};
    return pass;
}

CheckPass beamFormPass() {
    CheckPass pass = capture("the load of the beamformer");
    for (const EboLoadStep& step : kEboLoadOrder) {
        const EboSection* section = step.section;
        if (section != &kEboAecSection && section != &kEboDelaySection) {
            pass.steps.push_back({section, section == &kEboBfSection});
        }
    }
    return pass;
}

// Its sections are those that have a bit of their own there.
CheckPass playbackPass(bool chosen) {
    CheckPass pass = {kPlaybackRoot, "the load of the playback path", {}, chosen};
    for (const EboLoadStep& step : kEboLoadOrder) {
        if (step.section->playbackBit != 0) pass.steps.push_back({step.section, false});
    }
    return pass;
}

CheckPass gainPass(bool chosen) {
    return {kGainRoot, "the load of the gain control", {{&kEboAgcSection, true}}, chosen};
}

}  // namespace

const std::vector<std::string>& checkParts() {
    static const std::vector<std::string> parts = {"full", "aec", "beamform", "ao", "agc"};
    return parts;
}

std::vector<CheckPass> checkPlan(const std::string& part) {
    if (part == "aec") return {aecPass()};
    if (part == "beamform") return {beamFormPass()};
    if (part == "ao") return {playbackPass(true)};
    if (part == "agc") return {gainPass(true)};
    return {fullPass(), playbackPass(false), gainPass(false)};
}

const std::vector<std::string>& rootNames() {
    static const std::vector<std::string> names = {kCaptureRoot, kPlaybackRoot, kGainRoot};
    return names;
}

std::vector<std::string> sectionNames(const std::string& root) {
    std::vector<std::string> names;
    for (const CheckPass& pass : checkPlan("full")) {
        if (pass.root != root) continue;
        for (const CheckStep& step : pass.steps) names.emplace_back(step.section->name);
    }
    return names;
}
