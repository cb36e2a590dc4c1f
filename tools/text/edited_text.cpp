#include "text/edited_text.h"

#include <algorithm>
#include <utility>

EditedText::EditedText(std::string original)
    : original_(std::move(original)), text_(original_), pieces_{{0, original_.size() + 1, 0}} {}

// The last piece that begins at or before `offset`, if it reaches there.
const EditedText::Piece* EditedText::pieceAt(size_t offset) const {
    const auto next =
        std::upper_bound(pieces_.begin(), pieces_.end(), offset,
                         [](size_t wanted, const Piece& piece) { return wanted < piece.offset; });
    if (next == pieces_.begin()) return nullptr;
    const Piece& piece = *(next - 1);
    return offset < piece.offset + piece.length ? &piece : nullptr;
}

bool EditedText::isOriginal(size_t offset) const {
    return pieceAt(offset) != nullptr;
}

size_t EditedText::originalOffset(size_t offset) const {
    if (const Piece* piece = pieceAt(offset)) return piece->original + offset - piece->offset;
    const auto next = std::find_if(pieces_.begin(), pieces_.end(),
                                   [offset](const Piece& piece) { return piece.offset > offset; });
    return next != pieces_.end() ? next->original : original_.size();
}

std::optional<TextEdit> EditedText::inOriginal(const TextEdit& edit) const {
    const Piece* piece = pieceAt(edit.offset);
    if (piece == nullptr || edit.end() > piece->offset + piece->length) return std::nullopt;
    // Right after a text that was put in nobody could tell which of both comes first.
    const bool begins = piece->offset == edit.offset && piece != pieces_.data();
    if (begins && (piece - 1)->offset + (piece - 1)->length != piece->offset) return std::nullopt;
    return TextEdit{piece->original + edit.offset - piece->offset, edit.length, edit.text};
}

void EditedText::applyOne(const TextEdit& edit) {
    std::vector<Piece> pieces;
    for (const Piece& piece : pieces_) {
        const size_t end = piece.offset + piece.length;
        if (end <= edit.offset) {
            pieces.push_back(piece);
            continue;
        }
        if (piece.offset < edit.offset)
            pieces.push_back({piece.offset, edit.offset - piece.offset, piece.original});
        const size_t from = std::max(piece.offset, edit.end());
        if (from < end)
            pieces.push_back(
                {from - edit.length + edit.text.size(), end - from, piece.original + from - piece.offset});
    }
    pieces_ = std::move(pieces);
    text_.replace(edit.offset, edit.length, edit.text);
}

std::optional<std::vector<TextEdit>> EditedText::apply(const std::vector<TextEdit>& edits) {
    std::vector<TextEdit> result;
    for (const TextEdit& edit : edits) {
        std::optional<TextEdit> original = inOriginal(edit);
        if (!original) return std::nullopt;
        result.push_back(std::move(*original));
    }
    for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit) applyOne(*edit);
    return result;
}
