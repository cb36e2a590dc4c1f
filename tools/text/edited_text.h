// A text under changes, which remembers where everything in it comes from.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Puts `text` in the place of `length` bytes at `offset`.
struct TextEdit {
    size_t offset = 0;
    size_t length = 0;
    std::string text = {};

    size_t end() const { return offset + length; }
};

class EditedText {
public:
    explicit EditedText(std::string original);

    const std::string& original() const { return original_; }
    const std::string& text() const { return text_; }

    // Applies edits of the text as it is now, which ascend and do not overlap, and gives them as edits of the
    // original; nothing, and no change, when they touch what was edited before.
    std::optional<std::vector<TextEdit>> apply(const std::vector<TextEdit>& edits);

    // Where a byte of the text stands in the original; of a byte that was put in, where it would go.
    size_t originalOffset(size_t offset) const;
    bool isOriginal(size_t offset) const;

private:
    // What text and original have in common, in order; the end of the text is one too.
    struct Piece {
        size_t offset;
        size_t length;
        size_t original;
    };
    const Piece* pieceAt(size_t offset) const;
    std::optional<TextEdit> inOriginal(const TextEdit& edit) const;
    void applyOne(const TextEdit& edit);

    std::string original_;
    std::string text_;
    std::vector<Piece> pieces_;
};
