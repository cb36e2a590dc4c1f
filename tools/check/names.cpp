#include "check/names.h"

#include <algorithm>
#include <utility>

#include "check/plan.h"
#include "model/places.h"
#include "text/words.h"

namespace {

bool holds(const std::vector<std::string>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::string joined(const std::string& list, const char* word, const std::string& name) {
    return list.empty() ? name : list + word + name;
}

// The sections that have a key of this name.
std::string sectionsWithKey(std::string_view name) {
    static const std::map<std::string, std::string, std::less<>> sections = [] {
        std::map<std::string, std::string, std::less<>> all;
        const EboLoad& whole = *rootLoads().front();
        for (size_t i = 0; i < whole.sectionCount; ++i) {
            for (const EboKeyRow* row : keysOf(*whole.sections[i])) {
                std::string& list = all[row->key];
                list = joined(list, ", ", quoted(whole.sections[i]->name));
            }
        }
        return all;
    }();
    const auto found = sections.find(name);
    return found != sections.end() ? found->second : std::string();
}

bool isSection(std::string_view name) {
    return std::any_of(rootNames().begin(), rootNames().end(),
                       [name](const std::string& root) { return holds(sectionNames(root), name); });
}

// Whether the name belongs somewhere else.
bool hasHome(std::string_view name, std::string_view what) {
    return isSection(name) ||
           (what != "root object" && (holds(rootNames(), name) || !sectionsWithKey(name).empty()));
}

// Where a section at the top level belongs.
std::string homeOfSection(const CheckSource& source, std::string_view name) {
    std::string taken;
    std::string free;
    for (const std::string& root : rootNames()) {
        if (!holds(sectionNames(root), name)) continue;
        const KaJsonItem* item = lastNamed(source.roots(), root);
        const bool has = item != nullptr && lastNamed(source.children(*item), name) != nullptr;
        if (has) {
            taken = joined(taken, " and ", quoted(root));
        } else {
            free = joined(free, " or ", quoted(root));
        }
    }
    if (taken.empty()) return quoted(name) + " is a section: move it into " + free;
    return quoted(name) + " is a section, and " + taken +
           " already has one: " + (free.empty() ? "remove this one" : free + " takes one too");
}

// Where a name belongs that hasHome().
std::string homeOf(const CheckSource& source, std::string_view name, std::string_view what) {
    if (what == "root object") return homeOfSection(source, name);
    if (holds(rootNames(), name)) return quoted(name) + " is a root object: move it to the top level";
    if (!isSection(name)) return quoted(name) + " is a key of " + sectionsWithKey(name);
    return quoted(name) + (what == "key" ? " is a section: move it out of this one"
                                         : " is a section of " + quoted(rootNames().front()));
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
        if (isKnown(name) || hasHome(name, what_)) continue;
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

void CheckNames::report(CheckReport& report, const CheckCode& unknown, const std::string& parent) const {
    for (const KaJsonItem* item : items_) {
        const std::string_view name = CheckSource::name(*item);
        const KaJsonItem* winner = last_.at(name);
        if (winner != item) {
            const std::string line = "line " + std::to_string(source_.nameOf(*winner).line);
            report.add({&kDuplicate, source_.nameOf(*item),
                        "duplicate " + what_ + ' ' + quoted(name) + ", also on " + line,
                        "reads the last one, on " + line + ", and nothing of this one",
                        "remove one of them"});
        } else if (!isKnown(name) && told_.count(item) == 0) {
            // Advice on a section takes a look at all roots.
            report.add({&unknown, source_.nameOf(*item), "unknown " + what_ + ' ' + quoted(name) + parent,
                        "does not read this", report.isFull(unknown) ? std::string() : helpFor(*item)});
        }
    }
}
