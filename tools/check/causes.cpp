#include "check/causes.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

#include "model/places.h"
#include "text/words.h"

namespace {

using Items = CheckSource::Items;

bool isObject(const KaJsonItem* item) {
    return item != nullptr && item->kind == KaJsonKind::kObject;
}

bool isRoot(const KaJsonItem& item) {
    const auto& names = rootNames();
    return std::find(names.begin(), names.end(), CheckSource::name(item)) != names.end();
}

bool isSectionOf(const std::string& root, const KaJsonItem& item) {
    const std::vector<std::string> names = sectionNames(root);
    return std::find(names.begin(), names.end(), CheckSource::name(item)) != names.end();
}

class CauseSearch {
public:
    explicit CauseSearch(const CheckSource& source) : source_(source), roots_(source.roots()) {}

    std::vector<CheckCause> run() {
        array();
        for (const KaJsonItem* item : roots_) wrapped(*item);
        const bool noRoot =
            std::none_of(roots_.begin(), roots_.end(), [](const KaJsonItem* item) { return isRoot(*item); });
        if (noRoot) withoutRoot();
        for (const std::string& name : rootNames()) {
            twice(name);
            beside(name);
            const KaJsonItem* root = lastNamed(roots_, name);
            if (isObject(root)) nested(name, source_.children(*root));
        }
        return std::move(causes_);
    }

private:
    // An array around the root objects.
    void array() {
        const std::string_view text = source_.text();
        const size_t first = text.find_first_not_of(" \t\r\n");
        const size_t last = text.find_last_not_of(" \t\r\n");
        if (first == std::string_view::npos || text[first] != '[') return;
        add(first, "the file is a JSON array, and a device looks for an object",
            "remove the '[' and the ']' around the object", {{first, 1, ""}, {last, 1, ""}});
    }

    // An object around the root objects.
    void wrapped(const KaJsonItem& outer) {
        if (outer.kind != KaJsonKind::kObject) return;
        const Items inner = source_.children(outer);
        const auto root =
            std::find_if(inner.begin(), inner.end(), [](const KaJsonItem* item) { return isRoot(*item); });
        if (root == inner.end()) return;
        const std::string name(CheckSource::name(outer));
        const bool hasSections = std::any_of(
            inner.begin(), inner.end(), [&name](const KaJsonItem* item) { return isSectionOf(name, *item); });
        if (hasSections) return;
        const size_t begin = outer.name_offset - 1;
        add(begin,
            "root object " + inQuotes(CheckSource::name(**root)) + " is inside of " + inQuotes(name) +
                "; a device looks for it at the top level",
            "remove " + inQuotes(name) + ": { and its '}'",
            {{begin, outer.value_offset + 1 - begin, ""}, {source_.endOf(outer) - 1, 1, ""}});
    }

    // Sections at the top level of a file that has no root object.
    void withoutRoot() {
        std::string best;
        Items sections;
        for (const std::string& root : rootNames()) {
            Items found;
            for (const KaJsonItem* item : roots_) {
                if (isObject(item) && isSectionOf(root, *item)) found.push_back(item);
            }
            if (found.size() <= sections.size()) continue;
            best = root;
            sections = found;
        }
        if (sections.empty()) return;
        const size_t begin = sections.front()->name_offset - 1;
        add(begin,
            "section " + inQuotes(CheckSource::name(*sections.front())) + andMore(sections.size()) +
                " at the top level; a device looks inside of " + inQuotes(best),
            "put " + inQuotes(best) + ": { before the first section, and a '}' after the last",
            {{begin, 0, inQuotes(best) + ": {"}, {source_.endOf(*sections.back()), 0, "}"}});
    }

    // A root object in several pieces, as a merge may leave it.
    void twice(const std::string& name) {
        const KaJsonItem* first = nullptr;
        const KaJsonItem* second = nullptr;
        for (const KaJsonItem* item : roots_) {
            if (CheckSource::name(*item) != name) continue;
            if (first != nullptr) second = item;
            if (first == nullptr) first = item;
            if (second != nullptr) break;
        }
        if (!isObject(first) || !isObject(second)) return;
        const Items members = source_.children(*first);
        if (members.empty()) return;
        // The first one's sections go before those of the second.
        const size_t begin = members.front()->name_offset - 1;
        const size_t end = source_.endOf(*members.back());
        const std::string moved(source_.between(begin, end));
        const bool isEmpty = source_.children(*second).empty();
        std::vector<TextEdit> edits = removal(*first);
        edits.push_back({second->value_offset + size_t{1}, 0, moved + (isEmpty ? "" : ",")});
        const bool adjacent = second->index == indexAfter(*first);
        if (adjacent) {
            const size_t close = source_.endOf(*first) - 1;
            edits = {{close, second->value_offset + 1 - close, isEmpty ? "" : ","}};
        }
        add(second->name_offset - 1,
            "root object " + inQuotes(name) + " is there twice, first on line " +
                std::to_string(source_.nameOf(*first).line) + "; a device reads the last one only",
            "put the sections of both into one", std::move(edits));
        causes_.back().related.push_back({source_.nameOf(*first), "the first one, which is not read"});
    }

    // Sections at the top level that the root object lacks.
    void beside(const std::string& name) {
        const KaJsonItem* root = lastNamed(roots_, name);
        if (!isObject(root)) return;
        const Items own = source_.children(*root);
        Items outside;
        for (const std::string& section : sectionNames(name)) {
            const KaJsonItem* item = lastNamed(roots_, section);
            if (isObject(item) && lastNamed(own, section) == nullptr) outside.push_back(item);
        }
        if (outside.empty()) return;
        std::sort(outside.begin(), outside.end(),
                  [](const KaJsonItem* a, const KaJsonItem* b) { return a->index < b->index; });
        const std::string first = inQuotes(CheckSource::name(*outside.front()));
        const size_t close = source_.endOf(*root) - 1;
        uint32_t next = indexAfter(*root);
        const bool follow = std::all_of(outside.begin(), outside.end(), [&](const KaJsonItem* item) {
            const bool isNext = item->index == next;
            next = indexAfter(*item);
            return isNext;
        });
        if (follow && !own.empty()) {
            add(close,
                inQuotes(name) + " ends here, before section " + first + andMore(outside.size()) +
                    " left outside",
                "move the '}' after the last section",
                {{close, 1, ""}, {source_.endOf(*outside.back()), 0, "}"}});
            return;
        }
        for (const KaJsonItem* item : outside) {
            const size_t begin = item->name_offset - 1;
            const std::string moved(source_.between(begin, source_.endOf(*item)));
            std::vector<TextEdit> edits = removal(*item);
            edits.push_back({close, 0, (own.empty() ? "" : ", ") + moved});
            add(begin,
                "section " + inQuotes(CheckSource::name(*item)) +
                    " is at the top level; a device looks inside of " + inQuotes(name),
                "move it into " + inQuotes(name), std::move(edits));
        }
    }

    // Sections at the end of another one, whose brace closes too late.
    void nested(const std::string& root, const Items& sections) {
        std::set<std::string_view> there;
        for (const KaJsonItem* section : sections) there.insert(CheckSource::name(*section));
        for (const KaJsonItem* section : sections) {
            if (!isObject(section)) continue;
            const Items keys = source_.children(*section);
            const auto inner = std::find_if(keys.begin(), keys.end(), [&](const KaJsonItem* key) {
                return isObject(key) && isSectionOf(root, *key) && there.count(CheckSource::name(*key)) == 0;
            });
            if (inner == keys.end() || inner == keys.begin()) continue;
            const bool toTheEnd = std::all_of(inner, keys.end(), [&](const KaJsonItem* key) {
                return isObject(key) && isSectionOf(root, *key);
            });
            if (!toTheEnd) continue;
            const size_t begin = (*inner)->name_offset - 1;
            add(begin,
                "section " + inQuotes(CheckSource::name(**inner)) + " is inside of section " +
                    inQuotes(CheckSource::name(*section)) + ", which closes too late",
                "close " + inQuotes(CheckSource::name(*section)) + " with a '}' before it",
                {{source_.endOf(**(inner - 1)), 0, "}"}, {source_.endOf(*section) - 1, 1, ""}});
        }
    }

    static std::string andMore(size_t count) {
        return count == 1 ? " is" : " and " + std::to_string(count - 1) + " more are";
    }

    // Of the next item at the same level.
    uint32_t indexAfter(const KaJsonItem& item) const {
        const auto after = std::find_if(roots_.begin(), roots_.end(), [&item](const KaJsonItem* other) {
            return other->index > item.index;
        });
        return after != roots_.end() ? (*after)->index : UINT32_MAX;
    }

    // With the comma that goes with it.
    std::vector<TextEdit> removal(const KaJsonItem& item) const {
        const std::string_view text = source_.text();
        size_t begin = item.name_offset - 1;
        size_t end = source_.endOf(item);
        const size_t next = text.find_first_not_of(" \t\r\n", end);
        const size_t last = text.find_last_not_of(" \t\r\n", begin - 1);
        if (text[next] == ',') {
            end = next + 1;
        } else if (text[last] == ',') {
            begin = last;
        }
        return {{begin, end - begin, ""}};
    }

    void add(size_t offset, std::string text, std::string help, std::vector<TextEdit> edits) {
        std::sort(edits.begin(), edits.end(),
                  [](const TextEdit& a, const TextEdit& b) { return a.offset < b.offset; });
        causes_.push_back({source_.place(offset, 1), std::move(text), std::move(help), std::move(edits)});
    }

    const CheckSource& source_;
    const Items roots_;
    std::vector<CheckCause> causes_;
};

}  // namespace

std::vector<CheckCause> findCauses(const CheckSource& source) {
    return CauseSearch(source).run();
}
