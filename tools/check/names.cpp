#include "check/names.h"

#include <algorithm>
#include <utility>

#include "model/places.h"
#include "text/words.h"

namespace {

bool holds(const std::vector<std::string>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

// Where a section at the top level is at home; empty when nowhere.
std::string homeOfSection(const CheckSource& source, std::string_view name) {
    std::string taken;
    std::string free;
    for (const std::string& root : rootNames()) {
        if (!holds(sectionNames(root), name)) continue;
        const KaJsonItem* item = lastNamed(source.roots(), root);
        const bool has = item != nullptr && lastNamed(source.children(*item), name) != nullptr;
        if (has) {
            taken += (taken.empty() ? "" : " and ") + quoted(root);
        } else {
            free += (free.empty() ? "" : " or ") + quoted(root);
        }
    }
    if (taken.empty() && free.empty()) return {};
    if (taken.empty()) return quoted(name) + " is a section: move it into " + free;
    return quoted(name) + " is a section, and stands in " + taken +
           " already: " + (free.empty() ? "remove this one" : free + " takes one too");
}

// Where else a name is at home; empty when nowhere.
std::string homeOf(const CheckSource& source, std::string_view name, std::string_view what) {
    if (what == "root object") return homeOfSection(source, name);
    if (holds(rootNames(), name)) return quoted(name) + " is a root object: move it to the top level";
    std::string homes;
    const EboLoad& whole = *rootLoads().front();
    for (size_t i = 0; i < whole.sectionCount; ++i) {
        const EboSection& section = *whole.sections[i];
        if (name == section.name) {
            return quoted(name) + (what == "key" ? " is a section: move it out of this one"
                                                 : " is a section of " + quoted(whole.root));
        }
        for (const EboKeyRow* row : keysOf(section)) {
            if (name == row->key) homes += (homes.empty() ? "" : ", ") + quoted(section.name);
        }
    }
    return homes.empty() ? homes : quoted(name) + " is a key of " + homes;
}

}  // namespace

CheckNames::CheckNames(const CheckSource& source, CheckSource::Items items, std::vector<std::string> known,
                       const char* what)
    : source_(source), items_(std::move(items)), known_(std::move(known)), what_(what) {
    for (const KaJsonItem* item : items_) last_[CheckSource::name(*item)] = item;
    std::vector<std::string> absent;
    for (const std::string& name : known_) {
        if (last(name) == nullptr) absent.push_back(name);
    }
    for (const KaJsonItem* item : items_) {
        const std::string_view name = CheckSource::name(*item);
        if (isKnown(name) || !homeOf(source_, name, what_).empty()) continue;
        const std::string slip = nearestName(name, absent);
        if (!slip.empty()) slips_.emplace(slip, item);
        meant_[item] = slip.empty() ? nearestName(name, known_) : slip;
    }
}

const KaJsonItem* CheckNames::last(const std::string& name) const {
    const auto found = last_.find(name);
    return found == last_.end() ? nullptr : found->second;
}

bool CheckNames::isKnown(std::string_view name) const {
    // Editors take the schema of a file from this one.
    return holds(known_, name) || (what_ == "root object" && name == "$schema");
}

const KaJsonItem* CheckNames::takeSlip(const std::string& absent) {
    const auto found = slips_.find(absent);
    if (found == slips_.end()) return nullptr;
    told(*found->second);
    return found->second;
}

std::string CheckNames::helpFor(const KaJsonItem& item) const {
    const auto meant = meant_.find(&item);
    if (meant == meant_.end()) return homeOf(source_, CheckSource::name(item), what_);
    if (meant->second.empty()) return "remove it, or keep it as a note to yourself";
    const bool there = last(meant->second) != nullptr;
    return "did you mean " + quoted(meant->second) + (there ? ", which is there already?" : "?");
}

void CheckNames::report(CheckContext& context, const CheckCode& unknown, const std::string& parent) const {
    for (const KaJsonItem* item : items_) {
        const std::string_view name = CheckSource::name(*item);
        const KaJsonItem* winner = last_.at(name);
        if (winner != item) {
            const std::string line = "line " + std::to_string(context.source.nameOf(*winner).line);
            context.add(kDuplicate, context.source.nameOf(*item),
                        what_ + ' ' + quoted(name) + " stands again on " + line,
                        "reads the last one, on " + line + ", and nothing of this one", "remove one of them");
        } else if (!isKnown(name) && told_.count(item) == 0) {
            context.add(unknown, context.source.nameOf(*item),
                        "unknown " + what_ + ' ' + quoted(name) + parent, "does not read this",
                        helpFor(*item));
        }
    }
}
