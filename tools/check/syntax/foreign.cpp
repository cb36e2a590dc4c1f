#include "check/syntax/foreign.h"

#include <algorithm>
#include <string>

#include "check/syntax/scan.h"

namespace {

bool startsWith(std::string_view text, std::string_view with) {
    return text.substr(0, with.size()) == with;
}

struct Form {
    std::string_view start;
    const char* what;
    const char* help;
};

constexpr Form kForms[] = {
    {"version https://git-lfs", "a Git LFS pointer, not the file that it points to", "run \"git lfs pull\""},
    {"<!DOCTYPE html", "a page in HTML", "download the file itself, not the page that shows it"},
    {"<!doctype html", "a page in HTML", "download the file itself, not the page that shows it"},
    {"<html", "a page in HTML", "download the file itself, not the page that shows it"},
    {"<?xml", "XML", "write it as JSON: eboconf export --defaults shows the form"},
    {"<", "HTML or XML", "download the file itself, not the page that shows it"},
    {"diff --git ", "a patch, not the file that it changes", "apply it with \"git apply\""},
    {"--- a/", "a patch, not the file that it changes", "apply it with \"patch\""},
    {"---\n", "YAML", "write it as JSON: eboconf export --defaults shows the form"},
    {"%YAML", "YAML", "write it as JSON: eboconf export --defaults shows the form"},
    {"\x1F\x8B", "compressed by gzip", "unpack it with \"gunzip\""},
    {"PK\x03\x04", "a zip archive", "unpack it with \"unzip\""},
    {"%PDF", "a PDF document", "ask for the tuning file itself"},
};

SyntaxMend foreign(const std::string& what, const std::string& help, size_t offset) {
    return {help, {}, false, "the file is " + what, offset};
}

// "name:", as a line of YAML, or "name = value" and "[name]", as in TOML.
std::optional<SyntaxMend> recogniseConfiguration(std::string_view text, size_t at) {
    const std::string_view line = text.substr(at, lineEnd(text, at) - at);
    const auto isName = [](char c) { return isLetter(c) || isDigit(c) || isAnyOf(c, "_-."); };
    constexpr char kHelp[] = "write it as JSON: eboconf export --defaults shows the form";
    if (line.size() > 2 && line.front() == '[' && line.back() == ']' && isLetter(line[1])) {
        const std::string_view name = line.substr(1, line.size() - 2);
        if (std::all_of(name.begin(), name.end(), isName)) return foreign("TOML or INI", kHelp, at);
    }
    const auto end = std::find_if_not(line.begin(), line.end(), isName);
    if (end == line.begin() || end == line.end()) return std::nullopt;
    if (*end == ':') return foreign("YAML", kHelp, at);
    const size_t sign = line.find_first_not_of(' ', static_cast<size_t>(end - line.begin()));
    if (sign != kNone && line[sign] == '=') return foreign("TOML or INI", kHelp, at);
    return std::nullopt;
}

// Lines copied out of a patch: each begins with '+', '-' or a blank in the first column.
std::optional<SyntaxMend> recognisePrefixes(std::string_view text) {
    SyntaxMend mend = {"remove the first column, and the lines that begin with '-'",
                       {},
                       false,
                       "the lines have the '+' and '-' of a patch before them"};
    bool marked = false;
    for (size_t begin = 0; begin < text.size();) {
        const size_t next = std::min(text.find('\n', begin), text.size() - 1) + 1;
        const char sign = text[begin];
        if (lineEnd(text, begin) > begin && !isAnyOf(sign, "+- ")) return std::nullopt;
        marked = marked || isAnyOf(sign, "+-");
        if (sign == '-') mend.edits.push_back({begin, next - begin, ""});
        if (sign == '+' || sign == ' ') mend.edits.push_back({begin, 1, ""});
        begin = next;
    }
    return marked ? std::optional<SyntaxMend>(mend) : std::nullopt;
}

// An array around one root object reads well without its brackets.
SyntaxMend recogniseArray(std::string_view text, size_t at) {
    SyntaxMend mend = foreign("a JSON array, and a tuning file is an object",
                              "remove the '[' and the ']' around the object", at);
    const size_t last = text.find_last_not_of(" \t\r\n");
    const size_t first = nextToken(text, at + 1);
    if (text[last] == ']' && first < text.size() && text[first] == '{')
        mend.edits = {{at, 1, ""}, {last, 1, ""}};
    return mend;
}

}  // namespace

std::optional<SyntaxMend> recogniseForeign(std::string_view text) {
    const size_t at = nextToken(text, 0);
    if (at == text.size()) return std::nullopt;
    const std::string_view rest = text.substr(at);
    if (std::optional<SyntaxMend> mend = recognisePrefixes(text)) return mend;
    if (rest[0] == '{') return std::nullopt;
    if (startsWith(rest, "<<<<<<< ")) return std::nullopt;
    for (const Form& form : kForms) {
        if (startsWith(rest, form.start)) return foreign(form.what, form.help, at);
    }
    if (std::optional<SyntaxMend> mend = recogniseConfiguration(text, at)) return mend;
    if (rest[0] == '[') return recogniseArray(text, at);
    if (isLetter(rest[0]))
        return foreign("no JSON", "a tuning file is a JSON object: it begins with a '{'", at);
    return std::nullopt;
}

std::vector<SyntaxMend> findConflicts(std::string_view text) {
    std::vector<SyntaxMend> conflicts;
    const auto find = [text](std::string_view mark, size_t from) {
        const size_t at = text.find("\n" + std::string(mark), from);
        return at == kNone ? kNone : at + 1;
    };
    const auto afterLine = [text](size_t at) { return std::min(text.find('\n', at), text.size() - 1) + 1; };
    const auto branch = [text](size_t at) {
        const size_t name = at + 8;
        const size_t end = lineEnd(text, at);
        return name < end ? " (" + std::string(text.substr(name, end - name)) + ")" : std::string();
    };
    const auto lines = [text](size_t from, size_t to) {
        if (from >= to) return std::string("nothing");
        const size_t first = lineNumber(text, from);
        const size_t last = lineNumber(text, to - 1);
        return first == last ? "line " + std::to_string(first)
                             : "lines " + std::to_string(first) + " to " + std::to_string(last);
    };
    for (size_t from = 0; from < text.size();) {
        const size_t ours = startsWith(text.substr(from), "<<<<<<< ") ? from : find("<<<<<<< ", from);
        if (ours == kNone) break;
        const size_t base = find("||||||| ", ours);
        const size_t middle = find("=======", ours);
        const size_t theirs = find(">>>>>>> ", ours);
        if (middle == kNone || theirs == kNone || middle > theirs) break;
        const size_t end = base < middle ? base : middle;
        const size_t first = afterLine(ours);
        const size_t second = afterLine(middle);
        SyntaxMend mend = {"keep one side, or what is right of both, and remove the marks", {}, true};
        mend.text = "a merge left a conflict: " + lines(first, end) + branch(ours) + " or " +
                    lines(second, theirs) + branch(theirs);
        mend.offset = ours;
        mend.length = lineEnd(text, ours) - ours;
        from = afterLine(theirs);
        mend.edits = {{ours, first - ours, ""}, {end, from - end, ""}};
        conflicts.push_back(mend);
    }
    return conflicts;
}
