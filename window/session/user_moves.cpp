#include "window/session/user_moves.h"

#include <iostream>

#include "chess/moves/legal_moves.h"
#include "window/session/typed_move.h"

namespace velmora {

namespace {

/// Whether a move agrees with what the person chose for the pawn; one that promotes nothing always does.
bool fits_choice(const Move& move, PieceKind chosen) {
    return !is_promotion(move.code()) || promoted_kind(move.code()) == chosen;
}

}  // namespace

UserMoves::UserMoves(GameDesk& desk, Screen& screen, Dialogs& dialogs, CommentKeeper& comments,
                     ManagerLink& manager, double click_delay_s)
    : m_desk(desk),
      m_screen(screen),
      m_dialogs(dialogs),
      m_comments(comments),
      m_manager(manager),
      m_setup(desk, screen, dialogs, comments, manager, m_click_timer),
      m_click_delay_s(click_delay_s) {
    m_click_timer.start();
}

void UserMoves::on_board(int from, int to) {
    if (m_click_timer.elapsed() < m_click_delay_s) {
        m_screen.show_position();
        return;
    }
    if (m_desk.setup) {
        m_setup.edit(from, to);
    } else if (!may_move()) {
        m_screen.mark_clock(m_desk.side_to_move());
        m_screen.show_position();
    } else if (from == to) {
        on_click(to);
    } else {
        play(from, to);
    }
}

std::string UserMoves::on_typed(const std::string& text) {
    if (m_desk.setup) return "The board is being set up";
    if (!may_move()) return "It is not your move";
    const auto move = read_typed_move(m_desk.position, text);
    if (!move) return "\"" + text + "\" is no legal move here";
    m_desk.selected.reset();
    make(*move);
    m_screen.show_position();
    return {};
}

void UserMoves::on_piece_picked(std::optional<int> square) {
    if (square && !m_desk.setup && may_move() && is_own_piece(*square)) m_screen.show_targets(*square);
}

void UserMoves::on_click(int square) {
    const auto selected = m_desk.selected;
    if (selected && *selected != square && !is_own_piece(square)) {
        play(*selected, square);
    } else if (selected && *selected != square && m_desk.position.piece_on(Square(square)).is_rook() &&
               m_desk.position.piece_on(Square(*selected)).is_king()) {
        // Castling can be shown by the rook; when it is none, the click picks up the rook.
        const auto moves_before = m_desk.game.current();
        play(*selected, square);
        if (m_desk.game.current() == moves_before) select(square);
    } else if (is_own_piece(square) && selected != square) {
        select(square);
    } else {
        select(std::nullopt);
    }
}

bool UserMoves::may_move() const { return !m_desk.engine_to_move(); }

bool UserMoves::is_own_piece(int square) const {
    const Piece piece = m_desk.position.piece_on(Square(square));
    return piece != Piece(0) && piece.is_white() == (m_desk.side_to_move() == Side::white);
}

void UserMoves::select(std::optional<int> square) {
    m_desk.selected = square;
    m_screen.show_position();
}

PieceKind UserMoves::choose_promotion(int from, int to) {
    const Piece piece = m_desk.position.piece_on(Square(from));
    const int rank = to / 8;
    const bool promotes = piece.is_pawn() && (rank == 0 || rank == 7);
    return promotes ? m_dialogs.choose_promotion(piece.side()) : PieceKind::none;
}

void UserMoves::play(int from, int to) {
    m_desk.selected.reset();
    const PieceKind promoted = choose_promotion(from, to);
    const std::string squares = Square(from).name() + Square(to).name();
    std::optional<Move> chosen;
    for (const Move& move : legal_moves(m_desk.position)) {
        const bool by_squares =
            move.from() == Square(from) && move.to() == Square(to) && fits_choice(move, promoted);
        // Castling is stored as king takes rook; its printed form names the king's destination.
        if (by_squares || move.to_string(false) == squares) {
            chosen = move;
            break;
        }
    }
    if (chosen) make(*chosen);
    m_screen.show_position();
}

void UserMoves::make(const Move& move) {
    if (!m_desk.clocks_held) m_screen.start_clock(opposite(m_desk.side_to_move()));
    m_comments.store();
    try {
        m_desk.play(move);
    } catch (...) {
        std::cerr << "make move failed\n";
        throw;
    }
    m_manager.send(to_referee::UserMove{move.to_string(false)});
    m_comments.show();
    m_screen.show_game();
    if (m_desk.clocks_held || m_screen.mode() == Mode::analyze_position) {
        m_screen.mark_clock(m_desk.side_to_move());
    }
}

}  // namespace velmora
