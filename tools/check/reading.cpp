#include "check/reading.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "check/syntax/braces.h"
#include "check/syntax/foreign.h"
#include "check/syntax/mends.h"
#include "check/syntax/scan.h"
#include "model/places.h"
#include "text/words.h"

namespace {

class Reader {
public:
    explicit Reader(std::unique_ptr<CheckSource> source) : reading_{std::move(source), {}} {}

    CheckReading run() {
        const std::string_view text = reading_.source->text();
        if (const std::optional<SyntaxMend> foreign = recogniseForeign(text)) {
            if (!take(kForeign, *foreign, foreign->text)) return std::move(reading_);
        } else if (const std::vector<SyntaxMend> conflicts = findConflicts(text); !conflicts.empty()) {
            if (!takeAll(conflicts)) return std::move(reading_);
        }
        while (!reading_.isDocument() && reading_.faults.size() < CheckReading::kMost) {
            const size_t left = reading_.source->text().size() - reading_.source->errorOffset();
            if (!mendNext() || !goesOn(left)) break;
        }
        return std::move(reading_);
    }

private:
    // What follows the fault gets shorter each time; else the mend has mended nothing.
    bool goesOn(size_t left) const {
        return reading_.isDocument() ||
               reading_.source->text().size() - reading_.source->errorOffset() < left;
    }

    bool mendNext() {
        const CheckSource& source = *reading_.source;
        const std::string_view text = source.text();
        const size_t offset = source.errorOffset();
        std::optional<SyntaxMend> braces = findBraceFault(text);
        if (braces && braces->offset <= offset) {
            nameBlock(*braces, text);
            return take(kInvalidJson, *braces, "invalid JSON: " + braces->text);
        }
        const SyntaxMend mend = mendSyntax(text, offset);
        return take(kInvalidJson, mend,
                    std::string("invalid JSON: ") + (mend.text.empty() ? source.error().reason : mend.text));
    }

    // A block without the line that opens it is most likely the section that has most of its keys.
    static void nameBlock(SyntaxMend& mend, std::string_view text) {
        if (mend.edits.size() != 1 || mend.edits[0].text != "\"\": {\n") return;
        std::vector<std::string_view> names;
        for (size_t at = mend.offset; at < text.size() && text[at] != '}';) {
            const size_t end = text[at] == '"' ? afterString(text, at) : at + 1;
            if (text[at] == '"') names.push_back(text.substr(at + 1, end - at - 2));
            at = nextToken(text, end);
        }
        const EboSection* best = nullptr;
        size_t most = 0;
        for (const SectionPlace& place : sectionPlaces()) {
            const KeyRows keys = keysOf(*place.section);
            const auto known =
                static_cast<size_t>(std::count_if(keys.begin(), keys.end(), [&](const EboKeyRow* row) {
                    return std::find(names.begin(), names.end(), row->key) != names.end();
                }));
            if (known <= most || known * 2 < keys.size()) continue;
            most = known;
            best = place.section;
        }
        const std::string name = inQuotes(best != nullptr ? best->name : "?") + ": {";
        mend.edits[0].text = name + "\n";
        if (best != nullptr) mend.help = "put back the line " + name;
        mend.isGuess = best == nullptr;
    }

    bool takeAll(const std::vector<SyntaxMend>& conflicts) {
        // From the last to the first: places stay what they are.
        bool all = true;
        for (auto conflict = conflicts.rbegin(); conflict != conflicts.rend() && all; ++conflict) {
            all = take(kInvalidJson, *conflict, "invalid JSON: " + conflict->text);
        }
        std::reverse(reading_.faults.begin(), reading_.faults.end());
        return all;
    }

    // Reports the fault; true when the text is mended and read anew.
    bool take(const CheckCode& code, const SyntaxMend& mend, const std::string& text) {
        CheckSource& source = *reading_.source;
        const size_t offset = mend.text.empty() ? source.errorOffset() : mend.offset;
        const TextPlace place = source.place(offset, mend.length);
        EditedText mended = source.edited();
        std::optional<std::vector<TextEdit>> edits = mended.apply(mend.edits);
        const bool isMended = edits && !edits->empty();
        if (!place.isInFile) return false;
        reading_.faults.push_back({&code,
                                   place,
                                   text,
                                   {},
                                   mend.help,
                                   isMended ? *std::move(edits) : std::vector<TextEdit>(),
                                   mend.isGuess});
        if (isMended) reading_.source = std::make_unique<CheckSource>(std::move(mended));
        return isMended;
    }

    CheckReading reading_;
};

}  // namespace

CheckReading readOn(std::unique_ptr<CheckSource> source) {
    return Reader(std::move(source)).run();
}
