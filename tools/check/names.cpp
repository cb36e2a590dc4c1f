#include "check/names.h"

#include <algorithm>
#include <utility>

#include "model/places.h"
#include "text/odd_characters.h"
#include "text/utf8.h"
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
                list = joined(list, ", ", inQuotes(whole.sections[i]->name));
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
            taken = joined(taken, " and ", inQuotes(root));
        } else {
            free = joined(free, " or ", inQuotes(root));
        }
    }
    if (taken.empty()) return inQuotes(name) + " is a section: move it into " + free;
    return inQuotes(name) + " is a section, and " + taken +
           " already has one: " + (free.empty() ? "remove this one" : free + " takes one too");
}

// Where a name belongs that hasHome().
std::string homeOf(const CheckSource& source, std::string_view name, std::string_view what) {
    if (what == "root object") return homeOfSection(source, name);
    if (holds(rootNames(), name)) return inQuotes(name) + " is a root object: move it to the top level";
    if (!isSection(name)) return inQuotes(name) + " is a key of " + sectionsWithKey(name);
    return inQuotes(name) + (what == "key" ? " is a section: move it out of this one"
                                           : " is a section of " + inQuotes(rootNames().front()));
}

// The characters of a name that cannot be told from others by looking at it: ", whose character 3 is ...".
std::string oddOnes(std::string_view name) {
    size_t number = 0;
    for (size_t at = 0; at < name.size();) {
        const Utf8Character character = utf8At(name, at);
        ++number;
        if (name[at] == '\0') return ", whose character " + std::to_string(number) + " is NUL (\\u0000)";
        if (oddCharacter(character.code))
            return ", whose character " + std::to_string(number) + " is " + nameOfCharacter(character.code);
        at += std::max<size_t>(character.length, 1);
    }
    return {};
}

// The name without what cannot be seen, or seen to be other than it should.
std::string plainName(std::string_view name) {
    std::string plain = plainForm(name);
    plain.erase(std::remove(plain.begin(), plain.end(), '\0'), plain.end());
    return plain;
}

// As "model_word3" where there are "model_word1" and "model_word2"; empty for any other name.
std::string helpBeyondTheLast(std::string_view name, const std::vector<std::string>& known) {
    const size_t digits = name.find_last_not_of("0123456789") + 1;
    const std::string_view stem = name.substr(0, digits);
    if (digits == 0 || digits == name.size()) return {};
    std::string list;
    for (const std::string& one : known) {
        const bool same = one.compare(0, stem.size(), stem) == 0 && one.size() > stem.size() &&
                          one.find_first_not_of("0123456789", stem.size()) == std::string::npos;
        if (same) list = joined(list, ", ", inQuotes(one));
    }
    return list.empty() ? list : "there are no more of these than " + list;
}

}  // namespace

std::string howToRename(std::string_view written, const std::string& meant) {
    return "did you mean " + inQuotes(meant) + "? Rename " + inQuotes(written) + oddOnes(written);
}

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
        const std::string plain = plainName(name);
        const std::string nearest = nearestName(plain, known_);
        std::string slip = nearestName(plain, absent);
        // Of few names that are much alike the one that is there may be the nearer one.
        if (what_ == "root object" && slip != nearest) slip.clear();
        if (!slip.empty()) slips_.emplace(slip, item);
        meant_[item] = slip.empty() ? nearest : slip;
    }
}

const KaJsonItem* CheckNames::last(const std::string& name) const {
    const auto found = last_.find(name);
    return found == last_.end() ? nullptr : found->second;
}

CheckSource::Items CheckNames::rowsCountedFromOne(const std::string& first) const {
    if (first.size() < 3 || first.compare(first.size() - 2, 2, "_0") != 0) return {};
    const std::string stem = first.substr(0, first.size() - 1);
    const auto wanted =
        static_cast<size_t>(std::count_if(known_.begin(), known_.end(), [&stem](const std::string& name) {
            return name.compare(0, stem.size(), stem) == 0;
        }));
    CheckSource::Items rows;
    for (size_t i = 1; i <= wanted; ++i) {
        const KaJsonItem* item = last(stem + std::to_string(i));
        if (item == nullptr) return {};
        rows.push_back(item);
    }
    return rows;
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
    const std::string_view name = CheckSource::name(item);
    if (meant == meant_.end()) return homeOf(source_, name, what_);
    const bool there = last(meant->second) != nullptr;
    if (std::string help = helpBeyondTheLast(name, known_); there && !help.empty()) return help;
    if (meant->second.empty()) return "remove it, or begin it with \"_\" to keep it as a note";
    if (there)
        return "did you mean " + inQuotes(meant->second) + ", which is there already" + oddOnes(name) + "?";
    return howToRename(name, meant->second);
}

void CheckNames::report(CheckReport& report, const CheckCode& unknown, const std::string& parent) const {
    for (const KaJsonItem* item : items_) {
        const std::string_view name = CheckSource::name(*item);
        if (isNote(name)) continue;
        const KaJsonItem* winner = last_.at(name);
        if (winner != item) {
            if (report.leaveOut(kDuplicate)) continue;
            const std::string line = "line " + std::to_string(source_.nameOf(*winner).line);
            report.add({&kDuplicate,
                        source_.nameOf(*item),
                        "duplicate " + what_ + ' ' + inQuotes(name) + ", also on " + line,
                        "reads the last one, on " + line + ", and nothing of this one",
                        "remove one of them",
                        {},
                        false,
                        {{source_.nameOf(*winner), "the one that is read"}}});
        } else if (!isKnown(name) && told_.count(item) == 0) {
            if (report.leaveOut(unknown)) continue;
            report.add({&unknown, source_.nameOf(*item), "unknown " + what_ + ' ' + inQuotes(name) + parent,
                        "does not read this", helpFor(*item)});
        }
    }
}
