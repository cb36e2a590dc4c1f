#include "model/edits.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "model/odd_values.h"

using nlohmann::ordered_json;

namespace model {

namespace {

Member memberOf(const std::string& name, const ordered_json& value) {
    Member member{ordered_json(name).dump(), "", value.is_object(), {}};
    if (!member.object) member.value = value.dump();
    if (member.object) {
        for (const auto& [key, inner] : value.items()) member.members.push_back(memberOf(key, inner));
    }
    return member;
}

std::string textOf(const Member& member) {
    if (!member.object) return member.value;
    std::string text = "{";
    for (const Member& inner : member.members) {
        if (text.size() > 1) text += ", ";
        text += inner.name + ": " + textOf(inner);
    }
    return text + "}";
}

std::string quoted(const std::string& text) {
    return ordered_json(text).dump(-1, ' ', false, ordered_json::error_handler_t::replace);
}

template <typename List>
const char* oneOf(Chooser& chooser, const List& list) {
    return list[chooser.below(list.size())];
}

std::string number(Chooser& chooser) {
    if (chooser.below(4) != 0) return oneOf(chooser, kOddNumbers);
    std::string text = chooser.below(2) == 0 ? "" : "-";
    text += static_cast<char>('1' + chooser.below(9));
    for (size_t digits = chooser.below(24); digits > 0; --digits)
        text += static_cast<char>('0' + chooser.below(10));
    if (chooser.below(2) == 0) {
        text += '.';
        for (size_t digits = 1 + chooser.below(24); digits > 0; --digits)
            text += static_cast<char>('0' + chooser.below(10));
    }
    if (chooser.below(2) == 0) text += "e" + std::to_string(static_cast<int>(chooser.below(120)) - 60);
    return text;
}

std::string channelMap(Chooser& chooser) {
    std::string text = chooser.below(4) == 0 ? oneOf(chooser, kRowTokens) : std::to_string(chooser.below(20));
    text += chooser.below(8) == 0 ? oneOf(chooser, kRowSeparators) : " ";
    text += "chn;map:";
    for (size_t i = chooser.below(19); i > 0; --i) {
        text += chooser.below(8) == 0 ? oneOf(chooser, kRowTokens) : std::to_string(chooser.below(16));
        text += chooser.below(8) == 0 ? oneOf(chooser, kRowSeparators) : ",";
    }
    return text;
}

// Numbers that take so many characters when they are printed that a row of them does not fit the dump's
// buffer.
std::string longRow(Chooser& chooser) {
    std::string text;
    for (size_t i = 0; i < 10; ++i) text += std::string(oneOf(chooser, kLongNumbers)) + "  ";
    return text;
}

// A value of the kind that stood there before, more or less.
std::string similar(Chooser& chooser, const Member& key) {
    if (key.name == "\"status\"") return oneOf(chooser, kStatusWords);
    if (key.name == "\"mic_chn_map\"" && chooser.below(4) != 0) return quoted(channelMap(chooser));
    if (!key.value.empty() && key.value[0] == '"') {
        return quoted(chooser.below(6) == 0 ? longRow(chooser) : oddRow(chooser));
    }
    return number(chooser);
}

std::string anything(Chooser& chooser) {
    switch (chooser.below(3)) {
        case 0:
            return number(chooser);
        case 1:
            return quoted(oddRow(chooser));
        default:
            return oneOf(chooser, kOddValues);
    }
}

void rename(Chooser& chooser, Member& member) {
    switch (chooser.below(4)) {
        case 0:
            member.name[1] = static_cast<char>(member.name[1] ^ 0x20);
            break;
        case 1:
            member.name.insert(member.name.size() - 1, "\\u0000");
            break;
        case 2:
            member.name.insert(1, " ");
            break;
        default:
            if (member.name.size() > 2 && member.name[1] >= 'a' &&
                member.name[1] <= 'z') {  // the same, escaped
                static const char kDigits[] = "0123456789abcdef";
                const auto letter = static_cast<unsigned char>(member.name[1]);
                member.name.replace(1, 1,
                                    std::string("\\u00") + kDigits[letter >> 4] + kDigits[letter & 0xF]);
            }
    }
}

void editSiblings(Chooser& chooser, std::vector<Member>& siblings, size_t at) {
    const auto place = siblings.begin() + static_cast<std::ptrdiff_t>(at);
    switch (chooser.below(4)) {
        case 0:
            siblings.erase(place);
            break;
        case 1:
            std::rotate(siblings.begin(), place, siblings.end());
            break;
        case 2:
            rename(chooser, *place);
            break;
        default: {  // once more, before or after, as it is or with another value
            Member again = *place;
            if (chooser.below(2) == 0) again = {again.name, anything(chooser), false, {}};
            siblings.insert(
                siblings.begin() + static_cast<std::ptrdiff_t>(chooser.below(siblings.size() + 1)), again);
        }
    }
}

void editMember(Chooser& chooser, std::vector<Member>& siblings, size_t at) {
    Member& member = siblings[at];
    const size_t choice = chooser.below(8);
    if (choice < 5 && !member.object) {
        member.value = similar(chooser, member);
    } else if (choice < 6) {
        member = {member.name, anything(chooser), false, {}};
    } else {
        editSiblings(chooser, siblings, at);
    }
}

void edit(Chooser& chooser, Member& document) {
    // Down to a key mostly, sometimes only to a section or a root.
    std::vector<Member>* siblings = &document.members;
    const size_t depth = chooser.below(16) == 0 ? 1 : chooser.below(8) == 0 ? 2 : 3;
    size_t at = 0;
    for (size_t level = 1;; ++level) {
        if (siblings->empty()) return;
        // The first root is the one that most is read from, the first section the one that decides most.
        const bool first = (level == 1 && chooser.below(2) == 0) || (level == 2 && chooser.below(6) == 0);
        at = first ? 0 : chooser.below(siblings->size());
        if (level == depth || !(*siblings)[at].object) break;
        siblings = &(*siblings)[at].members;
    }
    editMember(chooser, *siblings, at);
    // Sometimes its neighbours too: of several faults in a section one is reported.
    if (depth < 3 || chooser.below(3) != 0) return;
    for (size_t edits = chooser.below(5); edits > 0 && !siblings->empty(); --edits) {
        editMember(chooser, *siblings, chooser.below(siblings->size()));
    }
}

}  // namespace

std::string oddRow(Chooser& chooser) {
    std::string text;
    const bool steady = chooser.below(2) == 0;  // the same separator throughout
    const char* separator = oneOf(chooser, kRowSeparators);
    for (size_t i = chooser.below(chooser.below(4) == 0 ? 3 : 20); i > 0; --i) {
        text += chooser.below(3) == 0 ? std::to_string(chooser.below(100)) : oneOf(chooser, kRowTokens);
        if (!steady) separator = oneOf(chooser, kRowSeparators);
        text += separator;
    }
    return text;
}

Member documentOf(const std::string& text) {
    return memberOf("", ordered_json::parse(text));
}

std::string edited(Member document, Chooser& chooser) {
    for (size_t edits = chooser.below(6); edits > 0; --edits) edit(chooser, document);
    return textOf(document);
}

}  // namespace model
