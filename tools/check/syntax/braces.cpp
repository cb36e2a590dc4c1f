#include "check/syntax/braces.h"

#include <string>
#include <vector>

#include "check/syntax/scan.h"
#include "text/words.h"

namespace {

struct Open {
    size_t offset;           // of the bracket
    size_t indent;           // of its line
    size_t members = kNone;  // indentation of what it holds
    size_t deeper = kNone;   // begin of the first line in it that is indented more than that
};

struct Closed {
    size_t offset = kNone;  // of the bracket that closes
    size_t openerIndent = 0;
    bool isInPlace = false;  // on a line of its own, indented as its opener
};

class BraceScan {
public:
    explicit BraceScan(std::string_view text) : text_(text), surplus_(balance() < 0) {}

    std::optional<SyntaxMend> run() {
        if (balance() == 0) return std::nullopt;
        size_t lineAt = 0;  // begin of the line looked at last
        for (size_t at = nextToken(text_, 0); at < text_.size();) {
            const size_t begin = lineBegin(text_, at);
            const bool startsLine = begin >= lineAt;
            if (startsLine) {
                lineAt = lineEnd(text_, at) + 1;
                startLine(at, at - begin);
            }
            step(at, at - begin, startsLine);
            if (found_) return found_;
            at = nextToken(text_, text_[at] == '"' ? afterString(text_, at) : at + 1);
        }
        return std::nullopt;
    }

private:
    // Braces that open less those that close.
    int balance() const {
        int open = 0;
        for (size_t at = nextToken(text_, 0); at < text_.size();) {
            if (text_[at] == '{') ++open;
            if (text_[at] == '}') --open;
            at = nextToken(text_, text_[at] == '"' ? afterString(text_, at) : at + 1);
        }
        return open;
    }

    void startLine(size_t at, size_t indent) {
        if (open_.empty()) return;
        Open& top = open_.back();
        const bool closes = isAnyOf(text_[at], "}]");
        const bool isIndented = top.members != kNone && top.members > top.indent;
        if (!surplus_ && isIndented && (closes ? indent < top.indent : indent <= top.indent)) {
            missingBrace(top, at);
        } else if (!closes && top.members == kNone) {
            top.members = indent;
        } else if (!closes && indent > top.members && top.deeper == kNone) {
            top.deeper = at;
            beforeDeeper_ = closed_;
        }
    }

    void step(size_t at, size_t indent, bool startsLine) {
        if (found_) return;
        if (isAnyOf(text_[at], "{[")) {
            const size_t begin = lineBegin(text_, at);
            open_.push_back({at, nextToken(text_, begin) - begin});
        } else if (isAnyOf(text_[at], "}]")) {
            if (surplus_ && (open_.empty() || (startsLine && indent > open_.back().indent))) {
                surplusBrace(at);
            } else if (!open_.empty()) {
                closed_ = {at, open_.back().indent, startsLine && indent == open_.back().indent};
                open_.pop_back();
            }
        }
    }

    // The name of what a bracket opens, for messages: " of "dtd"".
    std::string whose(size_t bracket) const {
        const std::string_view before = text_.substr(0, bracket);
        const size_t colon = before.find_last_not_of(" \t\r\n");
        if (colon == kNone || before[colon] != ':') return {};
        const size_t close = before.find_last_not_of(" \t\r\n", colon - 1);
        if (close == kNone || before[close] != '"' || close == 0) return {};
        const size_t quote = before.rfind('"', close - 1);
        return quote == kNone ? std::string()
                              : " of " + inQuotes(before.substr(quote + 1, close - quote - 1));
    }

    void missingBrace(const Open& top, size_t at) {
        const std::string closer = text_[top.offset] == '{' ? "}" : "]";
        const std::string line = std::to_string(lineNumber(text_, top.offset));
        const size_t last = text_.find_last_not_of(" \t\r\n", at - 1);
        const std::string closing = "\n" + std::string(top.indent, ' ') + closer;
        const bool hasComma = text_[last] == ',';
        const std::string after = isAnyOf(text_[at], "}]") ? "" : ",";
        const TextEdit edit =
            hasComma ? TextEdit{last, 1, closing + after} : TextEdit{last + 1, 0, closing + after};
        found_ = SyntaxMend{"put a '" + closer + "' before this line",
                            {edit},
                            false,
                            "the '" + std::string(1, text_[top.offset]) + "'" + whose(top.offset) +
                                ", line " + line + ", is not closed before this line",
                            at};
    }

    void surplusBrace(size_t at) {
        const size_t deeper = open_.empty() ? kNone : open_.back().deeper;
        if (deeper == kNone) {
            surplusAt(at, "this '" + std::string(1, text_[at]) + "' closes what is closed already");
        } else if (beforeDeeper_.offset != kNone && !beforeDeeper_.isInPlace &&
                   beforeDeeper_.openerIndent == open_.back().members) {
            surplusAt(beforeDeeper_.offset,
                      "this '" + std::string(1, text_[beforeDeeper_.offset]) +
                          "' comes too early: what follows is still indented as inside");
        } else if (const size_t last = text_.find_last_not_of(" \t\r\n", deeper - 1); text_[last] == ':') {
            found_ = SyntaxMend{"put a '{' after the ':'",
                                {{last + 1, 0, " {"}},
                                false,
                                "nothing opens what is indented below",
                                last};
        } else {
            found_ = SyntaxMend{"put back the line that opens this block, such as \"dtd\": {",
                                {{deeper, 0, "\"\": {\n"}},
                                true,
                                "the line is indented as inside a block that nothing opens",
                                deeper};
        }
    }

    // With a comma that would be left over.
    void surplusAt(size_t at, const std::string& text) {
        const size_t last = at == 0 ? kNone : text_.find_last_not_of(" \t\r\n", at - 1);
        const size_t next = nextToken(text_, at + 1);
        TextEdit edit = {at, 1};
        const bool hasComma = last != kNone && text_[last] == ',';
        if (hasComma && next < text_.size() && text_[next] == ',') edit.length = next + 1 - at;
        found_ = SyntaxMend{"remove it", {edit}, false, text, at};
    }

    std::string_view text_;
    bool surplus_;  // braces that close are too many; else those that open, or neither
    std::vector<Open> open_;
    Closed closed_;        // the last
    Closed beforeDeeper_;  // the last before a line that is indented too much
    std::optional<SyntaxMend> found_;
};

}  // namespace

std::optional<SyntaxMend> findBraceFault(std::string_view text) {
    return BraceScan(text).run();
}
