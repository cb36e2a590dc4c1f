// A tuning file under check: what the parser made of it, and its text. The text may have been mended in
// memory; its places are those of the file.
#pragma once

#include <ka/json_table.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "text/edited_text.h"
#include "text/lines.h"

class CheckSource {
public:
    explicit CheckSource(const std::string& path);
    explicit CheckSource(EditedText text);

    const KAJsonParser& document() const { return parser_; }
    // Why the file is no document; `reason` is null when it is one, and lives as long as this object.
    const KaJsonError& error() const { return error_; }

    using Items = std::vector<const KaJsonItem*>;
    // In file order, repeated ones included.
    Items roots() const;
    Items children(const KaJsonItem& parent) const;

    // Fills *keys as a section reader does; false when root.section is not there.
    bool section(const char* root, const char* section, KaMetaData* keys);

    const EditedText& edited() const { return text_; }
    std::string_view text() const { return text_.text(); }
    // A number as written, and the text of a string.
    static std::string_view value(const KaJsonItem& item) { return {item.value, item.value_length}; }
    static std::string_view name(const KaJsonItem& item) { return {item.name, item.name_length}; }

    // As much of it as there is: the file may have changed since it was parsed.
    std::string_view between(size_t begin, size_t end) const {
        const std::string_view all = text();
        begin = std::min(begin, all.size());
        return all.substr(begin, std::max(end, begin) - begin);
    }

    // What is between its '[' and the next ']'; empty of anything else.
    std::string_view insideArray(const KaJsonItem& item) const;

    // Both with their quotes; of an object or array its first bracket.
    TextPlace nameOf(const KaJsonItem& item) const;
    TextPlace valueOf(const KaJsonItem& item) const;
    // What gives an item another name, as an edit of the file.
    TextEdit rename(const KaJsonItem& item, std::string name) const;
    // Of the text.
    TextPlace place(size_t offset, size_t length) const;
    size_t errorOffset() const;
    // After the last byte of an item's value.
    size_t endOf(const KaJsonItem& item) const;

private:
    void readItems();
    size_t endOfString(size_t offset) const;

    KAJsonParser parser_;
    std::string failure_;  // why a pipe could not be copied; empty when it could
    KaJsonError error_;
    std::vector<KaJsonItem> items_;
    EditedText text_;
    TextLines lines_;  // of the file
};

// The last item of this name, which is the one that counts; null when there is none.
const KaJsonItem* lastNamed(const CheckSource::Items& items, std::string_view name);
