// Tuning files that are wrong in one way or another: an example with some of its members removed, retyped,
// repeated, renamed, moved or filled with odd values.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace model {

// A member of an object as text, so that one name may come twice and any value may stand anywhere.
struct Member {
    std::string name;   // quoted
    std::string value;  // when it is no object
    bool object = false;
    std::vector<Member> members;
};
Member documentOf(const std::string& text);

// Where the decisions come from.
class Chooser {
public:
    virtual ~Chooser() = default;
    virtual size_t below(size_t limit) = 0;  // 0 to limit - 1
};

// The text of the document after a few edits.
std::string edited(Member document, Chooser& chooser);

// A text made of what numbers, rows of numbers and channel maps are made of.
std::string oddRow(Chooser& chooser);

}  // namespace model
