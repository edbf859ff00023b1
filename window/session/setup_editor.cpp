#include "window/session/setup_editor.h"

namespace velmora {

namespace {

bool may_stand_on(Piece piece, Square square) {
    return !piece.is_pawn() || (square.rank() != 0 && square.rank() != 7);
}

}  // namespace

void SetupEditor::edit(Square from, Square to) {
    ChessPosition board = m_session.position();
    const Piece touched = edit(board, from, to);
    if (touched != no_piece) {
        take_over(board, touched);
    } else {
        m_session.tell({Change::position});  // what was dragged goes back
    }
}

/// Gives the piece that decides whose move it is, no_piece when nothing has changed.
Piece SetupEditor::edit(ChessPosition& board, Square from, Square to) {
    const Piece target = board.piece_on(to);
    // Kings stay: nothing is dropped on one, and a click doesn't remove it.
    if (target.is_king()) return no_piece;
    if (from != to) return move_piece(board, from, to);
    if (target == no_piece) return place_chosen(board, to);
    board.remove_piece(to, target);
    return target;
}

Piece SetupEditor::move_piece(ChessPosition& board, Square from, Square to) {
    const Piece piece = board.piece_on(from);
    if (piece == no_piece) return no_piece;
    const Piece target = board.piece_on(to);
    if (target != no_piece) board.remove_piece(to, target);
    board.remove_piece(from, piece);
    if (may_stand_on(piece, to)) board.add_piece(to, piece);
    return piece;
}

Piece SetupEditor::place_chosen(ChessPosition& board, Square square) {
    const Piece piece = m_dialogs.choose_piece();
    m_click_timer.reset();
    m_click_timer.start();
    if (piece == no_piece || !may_stand_on(piece, square)) return no_piece;
    if (piece.is_king()) {
        // There is one king of a colour, so choosing it moves the one that stands there already.
        const Square old = board.king(piece.side());
        if (old != no_square && board.piece_on(old) == piece) board.remove_piece(old, piece);
    }
    board.add_piece(square, piece);
    return piece;
}

/// There is no switch for the side to move. So it is the other side's turn after a piece was touched, as it
/// is after a move, and a piece can be touched once more to change it.
void SetupEditor::take_over(ChessPosition& board, Piece touched) {
    if (touched.side() == board.side_to_move()) board.flip_side();
    // Editing leaves pins, keys and attack maps as they were: the position is read back from its own text.
    const std::string fen = board.fen();
    ChessPosition().fen(fen);  // throws where the text is none, while the record is still whole
    m_session.start_from(fen);
    m_manager.send(to_referee::SetBoard{m_session.position().fen()});
}

}  // namespace velmora
