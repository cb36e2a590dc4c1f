#include "check/syntax/mends.h"

#include <algorithm>
#include <string>

#include "check/syntax/scan.h"

namespace {

constexpr char kNames[] = "write names and texts in double quotes; true, false and null in lower case";

// What ends a value or a key.
bool endsValue(char c) {
    return isAnyOf(c, "\"}]") || isLetter(c) || isDigit(c);
}

// A string that never ended ends with the text too. A text that is cut off inside of a section has lost so
// much that reading on tells nothing.
SyntaxMend mendEnd(const SyntaxStop& stop) {
    const std::string open = openBrackets(stop.text);
    SyntaxMend mend = {
        open.empty() ? "the file ends too early" : "the file ends too early: close every '{' with a '}'", {}};
    const bool isWhole = open.size() == 1 && isAnyOf(stop.before, "}]");
    mend.isGuess = !isWhole;
    if (isWhole) mend.edits = {{stop.last + 1, 0, "\n" + closersOf(open)}};
    return mend;
}

std::string ofLine(std::string_view text, size_t offset) {
    return "line " + std::to_string(lineNumber(text, offset));
}

// All comments of the text.
SyntaxMend mendComment(const SyntaxStop& stop) {
    SyntaxMend mend = {"JSON has no comments: remove it", {}};
    const std::string_view text = stop.text;
    for (size_t at = stop.offset; at < text.size();) {
        const bool block = text.substr(at, 2) == "/*";
        if (text[at] == '#' || text.substr(at, 2) == "//" || block) {
            const size_t close = text.find("*/", at + 2);
            const size_t end = block ? (close == kNone ? text.size() : close + 2) : lineEnd(text, at);
            mend.edits.push_back({at, end - at, ""});
            at = end;
        } else {
            at = text[at] == '"' ? afterString(text, at) : at + 1;
        }
        at = nextToken(text, at);
    }
    if (mend.edits.size() > 1) {
        mend.help = "JSON has no comments: remove all " + std::to_string(mend.edits.size());
    } else if (mend.edits.empty()) {
        mend.help = "remove it";
        mend.edits = {{stop.offset, 1, ""}};
    }
    return mend;
}

// All texts that are in single quotes.
SyntaxMend mendSingleQuotes(const SyntaxStop& stop) {
    SyntaxMend mend = {"use double quotes", {}};
    const std::string_view text = stop.text;
    for (size_t at = stop.offset; at < text.size();) {
        const size_t close = text[at] == '\'' ? text.find('\'', at + 1) : kNone;
        if (close != kNone && close < lineEnd(text, at)) {
            mend.edits.push_back({at, 1, "\""});
            mend.edits.push_back({close, 1, "\""});
            at = close + 1;
        } else {
            at = text[at] == '"' ? afterString(text, at) : at + 1;
        }
        at = nextToken(text, at);
    }
    return mend;
}

// All lone backslashes of the string, as in a path of Windows.
SyntaxMend mendBackslash(const SyntaxStop& stop) {
    SyntaxMend mend = {"write two backslashes for one, or '/' in a path", {}};
    const size_t quote = stop.text.rfind('"', stop.offset);
    for (size_t at = quote == kNone ? stop.offset : quote + 1; at < stop.text.size(); ++at) {
        if (isAnyOf(stop.text[at], "\"\r\n")) break;
        if (stop.text[at] != '\\') continue;
        const bool isPair = at + 1 < stop.text.size() && isAnyOf(stop.text[at + 1], "\\\"");
        if (isPair) {
            ++at;
        } else {
            mend.edits.push_back({at, 0, "\\"});
        }
    }
    return mend;
}

SyntaxMend mendOpenString(const SyntaxStop& stop) {
    size_t end = lineEnd(stop.text, lineBegin(stop.text, stop.offset));
    while (end > 0 && isAnyOf(stop.text[end - 1], " \t,")) --end;
    return {"close the string with a quote on the same line", {{end, 0, "\""}}};
}

// A name or text without quotes.
SyntaxMend mendWord(const SyntaxStop& stop) {
    SyntaxMend mend = {kNames, {}};
    const size_t end = stop.text.find_first_of(" \t\r\n,:=}]{[\"", stop.offset);
    const std::string word(stop.text.substr(stop.offset, end - stop.offset));
    if (word.empty()) return mend;
    const size_t length = word.size();
    const size_t next = nextToken(stop.text, stop.offset + length);
    if (stop.before != ':' && (next >= stop.text.size() || !isAnyOf(stop.text[next], ":="))) {
        const bool hasComma = next < stop.text.size() && stop.text[next] == ',';
        return {"remove it, or write it as a key with a value",
                {{stop.offset, hasComma ? next + 1 - stop.offset : length, ""}},
                true};
    }
    const std::string known = word == "True" || word == "TRUE"     ? "true"
                              : word == "False" || word == "FALSE" ? "false"
                              : word == "None" || word == "NULL"   ? "null"
                                                                   : "";
    if (stop.before == ':' && !known.empty()) {
        mend.edits = {{stop.offset, length, known}};
    } else {
        mend.edits = {{stop.offset, 0, "\""}, {stop.offset + length, 0, "\""}};
    }
    return mend;
}

// The marks of a merge's conflict that is no whole one.
std::optional<SyntaxMend> mendConflictMark(const SyntaxStop& stop) {
    const size_t begin = lineBegin(stop.text, stop.offset);
    const std::string_view mark = stop.text.substr(begin, 7);
    if (mark != "<<<<<<<" && mark != "=======" && mark != ">>>>>>>") return std::nullopt;
    const size_t length = lineEnd(stop.text, begin) - begin;
    return SyntaxMend{"keep one side, and remove the marks",
                      {{begin, length, ""}},
                      true,
                      "a mark that a merge left",
                      begin,
                      length};
}

// "{{ gain }}", "${GAIN}", "<%= gain %>", "@GAIN@".
std::optional<SyntaxMend> mendPlaceholder(const SyntaxStop& stop) {
    static constexpr struct {
        std::string_view open;
        std::string_view close;
    } kPlaceholders[] = {{"{{", "}}"}, {"{%", "%}"}, {"${", "}"}, {"<%", "%>"}, {"@", "@"}};
    const size_t from = stop.before == '{' && stop.last + 1 == stop.offset ? stop.last : stop.offset;
    for (const auto& form : kPlaceholders) {
        if (stop.text.substr(from, form.open.size()) != form.open) continue;
        const size_t close = stop.text.find(form.close, from + form.open.size());
        if (close == kNone || close > lineEnd(stop.text, from)) continue;
        const size_t length = close + form.close.size() - from;
        SyntaxMend mend = {"fill in the template first", {{from, length, "null"}}, true};
        mend.text = "a template's placeholder, " + std::string(stop.text.substr(from, length));
        mend.offset = from;
        mend.length = length;
        return mend;
    }
    return std::nullopt;
}

// A string that stands where a section should open.
SyntaxMend mendMissingBrace(const SyntaxStop& stop) {
    SyntaxMend mend = {"names with values stand between '{' and '}': open them with a '{'", {}};
    const size_t quote = stop.last > 0 ? stop.text.rfind('"', stop.last - 1) : kNone;
    const size_t opener =
        quote == kNone || quote == 0 ? kNone : stop.text.find_last_not_of(" \t\r\n", quote - 1);
    if (quote != kNone && opener == kNone) mend.edits = {{quote, 0, "{"}};
    if (opener == kNone) return mend;
    if (stop.text[opener] == '[') mend.edits = {{opener, 1, "{"}};
    if (stop.text[opener] == ':') mend.edits = {{opener + 1, 0, " {"}};
    return mend;
}

bool isKeyBefore(const SyntaxStop& stop) {
    const size_t quote = stop.last > 0 ? stop.text.rfind('"', stop.last - 1) : kNone;
    const size_t mark =
        quote == kNone || quote == 0 ? kNone : stop.text.find_last_not_of(" \t\r\n", quote - 1);
    return mark != kNone && isAnyOf(stop.text[mark], "{,");
}

// Signs that stand for another one, are missing or are too many.
std::optional<SyntaxMend> mendSign(const SyntaxStop& stop) {
    const auto [text, at, last, before, here] = stop;
    if (before == ':' && isAnyOf(here, ",}]"))
        return SyntaxMend{"write a value after the ':'", {{last + 1, 0, " null"}}, true};
    if (before == ',' && here == ',') return SyntaxMend{"remove one of the two commas", {{at, 1, ""}}};
    if (isAnyOf(here, "/#")) return mendComment(stop);
    if (before == ':' && here == ':') return SyntaxMend{"remove one of the two colons", {{at, 1, ""}}};
    if (isAnyOf(here, "()")) {
        SyntaxMend mend = {"write the number without '(' and ')'", {{at, 1, ""}}};
        const size_t close = text.find(')', at + 1);
        if (close < lineEnd(text, at)) mend.edits.push_back({close, 1, ""});
        return mend;
    }
    if (isAnyOf(here, "}]") && before == ',') {
        return SyntaxMend{
            "remove the comma at the end of " + ofLine(text, last) + ", or add what should follow it",
            {{last, 1, ""}}};
    }
    if (here == '"' && before == ':') return std::nullopt;
    if (here == '"' && endsValue(before) && !(before == '"' && isKeyBefore(stop)))
        return SyntaxMend{"put a comma at the end of " + ofLine(text, last), {{last + 1, 0, ","}}};
    if (here == '\'') return mendSingleQuotes(stop);
    if (here == '\\') return mendBackslash(stop);
    if (isAnyOf(here, "\r\n")) return mendOpenString(stop);
    if (here == ';') {
        const size_t next = nextToken(text, at + 1);
        const bool isLast = next < text.size() && isAnyOf(text[next], "}]");
        return SyntaxMend{isLast || next >= text.size() ? "remove it" : "write a comma instead",
                          {{at, 1, isLast || next >= text.size() ? "" : ","}}};
    }
    if (here == '=') {
        const size_t end = text.find_first_not_of("=>", at);
        return SyntaxMend{"write a ':' between key and value", {{at, end - at, ":"}}};
    }
    if (here == ':' && before == '"') return mendMissingBrace(stop);
    return std::nullopt;
}

}  // namespace

SyntaxStop::SyntaxStop(std::string_view itsText, size_t itsOffset)
    : text(itsText),
      offset(itsOffset),
      last(itsOffset == 0 ? kNone : itsText.find_last_not_of(" \t\r\n", itsOffset - 1)),
      before(last == kNone ? '\0' : itsText[last]),
      here(itsOffset < itsText.size() ? itsText[itsOffset] : '\0') {}

bool SyntaxStop::isSameLine() const {
    return last != kNone && text.substr(last, offset - last).find('\n') == kNone;
}

SyntaxMend mendSyntax(std::string_view text, size_t offset) {
    const SyntaxStop stop(text, offset);
    if (offset >= text.size()) return mendEnd(stop);
    if (std::optional<SyntaxMend> mend = mendCharacter(stop)) return *mend;
    if (std::optional<SyntaxMend> mend = mendPlaceholder(stop)) return *mend;
    if (std::optional<SyntaxMend> mend = mendConflictMark(stop)) return *mend;
    if (stop.before == ':' && isAnyOf(stop.here, ",}]")) return *mendSign(stop);
    if (isAnyOf(stop.here, "/#")) return mendComment(stop);
    if (std::optional<SyntaxMend> mend = mendNumber(stop)) return *mend;
    if (std::optional<SyntaxMend> mend = mendSign(stop)) return *mend;

    const std::string open = openBrackets(text.substr(0, offset));
    if (isAnyOf(stop.here, "}]") && !open.empty() && closersOf(open)[0] != stop.here) {
        const std::string right = closersOf(open).substr(0, 1);
        return {"close with a '" + right + "' what a '" + open.back() + "' opens", {{offset, 1, right}}};
    }
    if (stop.here == '{' && isAnyOf(stop.before, ",{"))
        return {"write a name and a ':' before the '{'", {{offset, 0, "\"?\": "}}, true};
    if (isAnyOf(stop.before, ":,{")) return mendWord(stop);
    if (stop.before == '"' && isKeyBefore(stop))
        return {"put a ':' between key and value, a comma after a value", {{stop.last + 1, 0, ":"}}};
    if (open.empty() && stop.before == '}') {
        const size_t end = text.find_last_not_of(" \t\r\n") + 1;
        return {"remove what comes after the last '}'", {{offset, end - offset, ""}}, true};
    }
    if (isLetter(stop.here)) {
        const size_t end = std::min(text.find_first_of(" \t\r\n,}]", offset), text.size());
        return {
            "put a comma between two values, and texts in double quotes", {{offset, end - offset, ""}}, true};
    }
    if (isAnyOf(stop.before, "}]")) return {"put a comma between two values", {{stop.last + 1, 0, ","}}};
    return {"remove it, or put a comma between two values", {{offset, 1, ""}}, true};
}
