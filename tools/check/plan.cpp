#include "check/plan.h"

#include <utility>

#include "model/places.h"

namespace {

CheckPass passOf(const EboLoad& load, bool chosen) {
    const bool whole = &load == rootLoads().front();
    std::string words = whole ? "the whole load" : std::string("the load of the ") + componentOf(load);
    CheckPass pass = {&load, {}, chosen, {&load, std::move(words)}};
    for (size_t i = 0; i < load.sectionCount; ++i) {
        pass.steps.push_back({load.sections[i], eboMustLoad(load, *load.sections[i])});
    }
    return pass;
}

}  // namespace

std::vector<CheckPass> checkPlan(Part part, const KAJsonParser& document) {
    std::vector<CheckPass> plan;
    for (const EboLoad* load : loadsOf(part, document)) plan.push_back(passOf(*load, true));
    if (part != rootLoads().front()) return plan;
    for (const EboLoad* load : rootLoads()) {
        if (load != part) plan.push_back(passOf(*load, false));
    }
    return plan;
}

const std::vector<std::string>& rootNames() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all;
        for (const EboLoad* load : rootLoads()) all.emplace_back(load->root);
        return all;
    }();
    return names;
}

std::vector<std::string> sectionNames(const std::string& root) {
    std::vector<std::string> names;
    for (const SectionPlace& place : sectionPlaces()) {
        if (place.root == root) names.emplace_back(place.section->name);
    }
    return names;
}
