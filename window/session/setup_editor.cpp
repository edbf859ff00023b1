#include "window/session/setup_editor.h"

namespace velmora {

namespace {

bool may_stand_on(Piece piece, int square) {
    const int rank = square / 8;
    return !piece.is_pawn() || (rank != 0 && rank != 7);
}

}  // namespace

SetupEditor::SetupEditor(GameDesk& desk, Screen& screen, Dialogs& dialogs, CommentKeeper& comments,
                         ManagerLink& manager, Stopwatch& click_timer)
    : m_desk(desk),
      m_screen(screen),
      m_dialogs(dialogs),
      m_comments(comments),
      m_manager(manager),
      m_click_timer(click_timer) {}

void SetupEditor::edit(int from, int to) {
    ChessPosition board = m_desk.position;
    const Piece target = board.piece_on(Square(to));
    Piece touched = no_piece;
    if (target.is_king()) {
        // Kings stay: nothing is dropped on one, and a click doesn't remove it.
    } else if (from != to) {
        touched = move_piece(board, from, to);
    } else if (target != no_piece) {
        board.remove_piece(Square(to), target);
        touched = target;
    } else {
        touched = place_chosen(board, to);
    }
    if (touched != no_piece) take_over(board, touched);
    m_screen.show_position();
}

Piece SetupEditor::move_piece(ChessPosition& board, int from, int to) {
    const Piece piece = board.piece_on(Square(from));
    if (piece == no_piece) return no_piece;
    const Piece target = board.piece_on(Square(to));
    if (target != no_piece) board.remove_piece(Square(to), target);
    board.remove_piece(Square(from), piece);
    if (may_stand_on(piece, to)) board.add_piece(Square(to), piece);
    return piece;
}

Piece SetupEditor::place_chosen(ChessPosition& board, int square) {
    const Piece piece = m_dialogs.choose_piece();
    m_click_timer.reset();
    m_click_timer.start();
    if (piece == no_piece || !may_stand_on(piece, square)) return no_piece;
    if (piece.is_king()) {
        // There is one king of a colour, so choosing it moves the one that stands there already.
        const Square old = board.king(piece.is_white() ? Side::white : Side::black);
        if (old != Square() && board.piece_on(old) == piece) board.remove_piece(old, piece);
    }
    board.add_piece(Square(square), piece);
    return piece;
}

void SetupEditor::take_over(ChessPosition& board, Piece touched) {
    const bool own_piece = touched.is_white() == (board.side_to_move() == Side::white);
    if (own_piece) board.flip_side();
    // Editing leaves pins, keys and attack maps as they were: the position is read back from its own text.
    const std::string fen = board.fen();
    ChessPosition edited;
    edited.fen(fen);
    m_comments.store();
    m_desk.start_from(fen);
    m_comments.show();
    m_screen.show_game();
    m_screen.mark_clock(m_desk.side_to_move());
    m_manager.send(to_referee::SetBoard{m_desk.position.fen()});
}

}  // namespace velmora
