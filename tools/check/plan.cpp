#include "check/plan.h"

#include <algorithm>
#include <utility>

#include "model/places.h"
#include "text/odd_characters.h"
#include "text/words.h"

namespace {

CheckPass passOf(const EboLoad& load, bool chosen, bool strict) {
    const bool whole = &load == rootLoads().front();
    std::string words = whole ? "the whole load" : std::string("the load of the ") + componentOf(load);
    CheckPass pass = {&load, {}, chosen, strict, {&load, std::move(words)}};
    for (size_t i = 0; i < load.sectionCount; ++i) {
        pass.steps.push_back({load.sections[i], eboMustLoad(load, *load.sections[i])});
    }
    return pass;
}

}  // namespace

std::vector<CheckPass> checkPlan(Part part, const std::vector<std::string>& roots) {
    std::vector<CheckPass> plan;
    if (part != nullptr) {
        plan.push_back(passOf(*part, true, false));
        for (const EboLoad* load : rootLoads()) {
            if (part == rootLoads().front() && load != part) plan.push_back(passOf(*load, false, false));
        }
        return plan;
    }
    for (const EboLoad* load : rootLoads()) {
        const bool meant = std::any_of(roots.begin(), roots.end(), [load](const std::string& root) {
            return nearestName(plainForm(root), rootNames()) == load->root;
        });
        if (meant) plan.push_back(passOf(*load, true, true));
    }
    if (plan.empty()) plan.push_back(passOf(*rootLoads().front(), true, true));
    return plan;
}
