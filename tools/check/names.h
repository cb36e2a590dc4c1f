// Names of root objects, sections and keys: unknown ones, and duplicates.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "check/report.h"
#include "check/source.h"

// Keys, sections and root objects of this name are notes: a device ignores them, as it does every unknown
// name.
inline bool isNote(std::string_view name) {
    return name.substr(0, 1) == "_" || name.substr(0, 2) == "//";
}

// How to get from a name that was written to the one that was meant.
std::string howToRename(std::string_view written, const std::string& meant);

class CheckNames {
public:
    // `what` is "root object", "section" or "key"; `known` are the names that belong here. The source, to
    // which the items belong, must outlive it.
    CheckNames(const CheckSource& source, CheckSource::Items items, std::vector<std::string> known,
               const char* what);

    const KaJsonItem* last(const std::string& name) const;

    // The item that was most likely meant to be called `absent`, which is known and missing; null when there
    // is none. Whoever asks reports the slip: report() then says nothing more about that item.
    const KaJsonItem* takeSlip(const std::string& absent);

    // The items "LimitRatio_1" up to "LimitRatio_3" where "LimitRatio_0", the `first`, up to "LimitRatio_2"
    // are known; none when the rows are not counted like that.
    CheckSource::Items rowsCountedFromOne(const std::string& first) const;

    // Something else was said about this item.
    void told(const KaJsonItem& item) { told_.insert(&item); }

    // `parent`: what the names belong to, for messages.
    void report(CheckReport& report, const CheckCode& unknown, const std::string& parent) const;

private:
    std::string helpFor(const KaJsonItem& item) const;
    bool isKnown(std::string_view name) const;

    const CheckSource& source_;
    const CheckSource::Items items_;
    const std::vector<std::string> known_;
    const std::string what_;
    std::map<std::string_view, const KaJsonItem*> last_;  // of each name
    std::map<const KaJsonItem*, std::string> meant_;      // known names that unknown items resemble
    std::map<std::string, const KaJsonItem*> slips_;      // absent names that an unknown item resembles
    std::set<const KaJsonItem*> told_;
};
