#include "window/board_marker.h"

#include "chess/moves/legal_moves.h"

namespace velmora {

namespace {

/// The squares that a move touches on the screen; castling is shown by the king's own step.
std::pair<Square, Square> shown_squares(const Move& move) {
    const std::string text = move.to_string(false);
    return {Square(std::string_view(text).substr(0, 2)), Square(std::string_view(text).substr(2, 2))};
}

}  // namespace

BoardMarks board_marks(const ChessPosition& position, const Move& last_move, std::optional<Square> selected) {
    BoardMarks marks;
    if (last_move.from() != Square()) marks.last_move = shown_squares(last_move);
    if (position.in_check()) {
        marks.checked_king = position.king(position.side_to_move());
    }
    if (selected) {
        marks.selected = selected;
        for (const Move& move : legal_moves(position)) {
            const auto [from, to] = shown_squares(move);
            if (from != *selected) continue;
            auto& targets = move.capture() == Piece(0) ? marks.targets : marks.captures;
            // The four promotions share a target.
            if (targets.empty() || targets.back() != to) targets.push_back(to);
        }
    }
    return marks;
}

}  // namespace velmora
