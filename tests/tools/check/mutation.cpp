#include "mutation.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace {

using Random = std::mt19937;

size_t below(Random& random, size_t limit) {
    return limit == 0 ? 0 : random() % limit;
}

Tree treeOf(const std::string& name, const nlohmann::ordered_json& json) {
    if (!json.is_object()) return {name, json.dump(), {}};
    Tree tree{name, "", {}};
    for (const auto& [key, value] : json.items()) tree.children.push_back(treeOf(key, value));
    return tree;
}

void write(const Tree& tree, const std::string& gap, std::string& out) {
    if (!tree.value.empty()) {
        out += tree.value;
        return;
    }
    out += '{';
    for (const Tree& child : tree.children) {
        if (&child != &tree.children.front()) out += ',';
        out += gap + '"' + child.name + "\":" + (gap.empty() ? "" : " ");
        write(child, gap, out);
    }
    out += gap + '}';
}

const std::vector<std::string> kValues = {
    "0",      "1",           "-1",          "3",           "4",           "5",
    "70000",  "-40000",      "2147483647",  "2147483648",  "-2147483649", "99999999999999999999",
    "1.0",    "1e3",         "-0",          "0.1",         "1e39",        "1e-50",
    "1e400",  "-1e400",      "true",        "false",       "null",        R"("")",
    R"("5")", R"("0.5")",    R"("text")",   R"("enable")", "[]",          "[1, 2]",
    "{}",     R"({"a": 1})", R"("\u0000x")"};

const std::vector<std::string> kStatuses = {
    R"("enable")", R"("ENABLE")",  R"("Disable")", R"("enabled")",      R"("")", R"("on")", "1",
    "true",        R"("enable ")", "null",         R"("enable\u0000d")"};

const std::string& oneOf(const std::vector<std::string>& words, Random& random) {
    return words[below(random, words.size())];
}

// A section or key chosen at random; null when there is none.
Tree* childOf(Tree* parent, Random& random) {
    if (parent == nullptr || parent->children.empty()) return nullptr;
    return &parent->children[below(random, parent->children.size())];
}

void misspell(std::string& name, Random& random) {
    const size_t at = below(random, name.size());
    switch (below(random, 4)) {
        case 0:
            name.erase(at, 1);
            break;
        case 1:
            name.insert(at, 1, 'x');
            break;
        case 2:
            name[at] = static_cast<char>(name[at] ^ 0x20);
            break;
        default:
            std::swap(name[at], name[below(random, name.size())]);
    }
    // Letters and signs of names only: the fault is to be in the name, not in the document.
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c < 0x30 || c == '\\' || c == 0x7F; }, '_');
}

std::string channelMap(Random& random) {
    std::string map = std::to_string(static_cast<int>(below(random, 24)) - 2) + " chn;map:";
    for (size_t i = below(random, 20); i > 0; --i) map += std::to_string(below(random, 20)) + ",";
    return '"' + map + '"';
}

// A text of numbers with a letter more, less or other.
void garble(std::string& text, Random& random) {
    static const std::string kSigns = " ,;.-+0123456789exn:";
    if (text.size() < 3 || text[0] != '"') return;
    const size_t at = 1 + below(random, text.size() - 2);
    const char sign = kSigns[below(random, kSigns.size())];
    switch (below(random, 3)) {
        case 0:
            text.erase(at, 1);
            break;
        case 1:
            text.insert(at, 1, sign);
            break;
        default:
            text[at] = sign;
    }
}

void breakParent(Tree& parent, Random& random) {
    Tree* child = childOf(&parent, random);
    if (child == nullptr) return;
    switch (below(random, 6)) {
        case 0:
            parent.children.erase(parent.children.begin() + (child - parent.children.data()));
            break;
        case 1:
            misspell(child->name, random);
            break;
        case 2: {
            Tree copy = *child;
            if (Tree* key = childOf(&copy, random)) key->value = oneOf(kValues, random);
            const auto at = static_cast<std::ptrdiff_t>(below(random, parent.children.size() + 1));
            parent.children.insert(parent.children.begin() + at, copy);
            break;
        }
        case 3:
            child->value = oneOf(kValues, random);
            child->children.clear();
            break;
        case 4:
            std::shuffle(parent.children.begin(), parent.children.end(), random);
            break;
        default:
            child->children.clear();
    }
}

void breakKey(Tree& section, Random& random) {
    Tree* key = childOf(&section, random);
    if (key == nullptr) return;
    switch (below(random, 8)) {
        case 0:
            section.children.erase(section.children.begin() + (key - section.children.data()));
            break;
        case 1:
            misspell(key->name, random);
            break;
        case 2: {
            Tree copy = *key;
            copy.value = oneOf(kValues, random);
            const auto at = static_cast<std::ptrdiff_t>(below(random, section.children.size() + 1));
            section.children.insert(section.children.begin() + at, copy);
            break;
        }
        case 3:
            section.children.front().value = oneOf(kStatuses, random);
            break;
        case 4:
            garble(key->value, random);
            break;
        case 5:
            std::shuffle(section.children.begin(), section.children.end(), random);
            break;
        default:
            key->value = oneOf(kValues, random);
    }
}

void breakBytes(std::string& text, Random& random) {
    const size_t at = below(random, text.size());
    switch (below(random, 4)) {
        case 0:
            text.erase(at, 1);
            break;
        case 1:
            text.insert(at, 1, static_cast<char>(random()));
            break;
        case 2:
            text[at] = static_cast<char>(random());
            break;
        default:
            text.resize(at);
    }
}

}  // namespace

Tree treeOf(const std::string& json) {
    return treeOf("", nlohmann::ordered_json::parse(json));
}

std::string mutated(Tree tree, Random& random) {
    for (size_t faults = 1 + below(random, 4); faults > 0; --faults) {
        Tree* root = childOf(&tree, random);
        Tree* section = childOf(root, random);
        const size_t where = below(random, 100);
        if (where < 5) {
            breakParent(tree, random);
        } else if (where < 20 && root != nullptr) {
            breakParent(*root, random);
        } else if (where < 25 && root != nullptr && !root->children.empty()) {
            // Where the echo canceller's section is, unless it was moved or lost.
            root->children.front().children.push_back({"mic_chn_map", channelMap(random), {}});
        } else if (section != nullptr) {
            breakKey(*section, random);
        }
    }
    std::string text;
    write(tree, below(random, 2) == 0 ? "" : "\n", text);
    if (below(random, 8) == 0) breakBytes(text, random);
    return text;
}
