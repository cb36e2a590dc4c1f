#include <algorithm>

#include "model/meanings.h"
#include "report/keys.h"

namespace {

std::string lower(std::string text) {
    for (char& letter : text) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return text;
}

bool isLetter(char letter) {
    return letter >= 'a' && letter <= 'z';
}

// In a name anywhere, in a sentence where a word begins: "peak" is not about loudspeakers.
bool holds(const std::string& name, const std::string& part) {
    return lower(name).find(part) != std::string::npos;
}
bool says(const std::string& sentence, const std::string& part) {
    const std::string text = lower(sentence);
    for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        if (at == 0 || !isLetter(text[at - 1])) return true;
    }
    return false;
}

std::vector<KeyHit> everything() {
    std::vector<KeyHit> all;
    for (const SectionPlace& place : sectionPlaces()) {
        all.push_back({&place, std::nullopt});
        for (const KeyFacts& facts : factsOf(place)) all.push_back({&place, facts});
    }
    return all;
}

template <typename Predicate>
std::vector<KeyHit> those(const std::vector<KeyHit>& all, Predicate wanted) {
    std::vector<KeyHit> hits;
    std::copy_if(all.begin(), all.end(), std::back_inserter(hits), wanted);
    return hits;
}

// `spelling` makes two names equal.
template <typename Spelling>
std::vector<KeyHit> named(const std::vector<KeyHit>& all, const std::string& name, Spelling spelling) {
    const std::string wanted = spelling(name);
    std::vector<KeyHit> section =
        those(all, [&](const KeyHit& hit) { return spelling(nameOf(*hit.place)) == wanted; });
    if (!section.empty()) return section;
    return those(all, [&](const KeyHit& hit) {
        return hit.key && (spelling(hit.key->name) == wanted || spelling(hit.key->key) == wanted);
    });
}

// Each section once: under the root object that has all of them.
bool within(const KeyHit& hit, const std::string& part) {
    if (hit.place->load != rootLoads().front()) return false;
    // All sections have a status, which means the same in each.
    const bool status = hit.key && hit.key->key == hit.place->section->rows[0].key;
    return !status && (holds(hit.name(), part) || says(hit.meaning(), part));
}

}  // namespace

std::string KeyHit::meaning() const {
    return key ? key->meaning : meaningOf(place->section->name, nullptr);
}

KeyHits findKeys(const std::string& name) {
    const std::vector<KeyHit> all = everything();
    if (name.empty()) return {all, true};
    std::vector<KeyHit> hits = named(all, name, [](const std::string& text) { return text; });
    if (hits.empty()) hits = named(all, name, lower);
    if (!hits.empty()) return {hits, true};
    hits = those(all, [part = lower(name)](const KeyHit& hit) { return within(hit, part); });
    return {hits, hits.size() == 1};
}

std::string keysNames(const KeyHits& hits) {
    std::string text;
    for (const KeyHit& hit : hits.list) {
        const bool inFile = !hit.key || hit.key->order != 0;
        if (inFile) text += hit.name() + "\n";
    }
    return text;
}
