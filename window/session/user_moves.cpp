#include "window/session/user_moves.h"

#include <algorithm>
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

UserMoves::UserMoves(GameSession& session, BoardView& board, ClockView& clocks, const WindowFrame& frame,
                     Dialogs& dialogs, ManagerLink& manager, double click_delay_s)
    : m_session(session),
      m_board(board),
      m_clocks(clocks),
      m_frame(frame),
      m_dialogs(dialogs),
      m_manager(manager),
      m_setup(session, dialogs, manager, m_click_timer),
      m_click_delay_s(click_delay_s) {
    m_click_timer.start();
}

void UserMoves::on_board(Square from, Square to) {
    // Where nothing comes of it, a piece that was dragged goes back.
    if (m_click_timer.elapsed() < m_click_delay_s) {
        m_session.tell({Change::position});
    } else if (sets_up()) {
        m_setup.edit(from, to);
    } else if (!may_move()) {
        m_waiting(from, to);
        m_session.tell({Change::turn, Change::position});
    } else if (from == to) {
        on_click(to);
    } else {
        play(from, to);
    }
}

std::string UserMoves::on_typed(const std::string& text) {
    if (sets_up()) return "The board is being set up";
    if (!may_move()) return "It is not your move";
    const auto move = read_typed_move(m_session.position(), text);
    if (!move) return "\"" + text + "\" is no legal move here";
    make(*move);
    return {};
}

void UserMoves::on_piece_picked(std::optional<Square> square) {
    if (square && !sets_up() && may_move() && is_own_piece(*square)) m_board.show_targets(*square);
}

void UserMoves::on_click(Square square) {
    const auto selected = m_session.selected();
    const auto is_there = [this](Square on, PieceKind kind) {
        return m_session.position().piece_on(on).kind() == kind;
    };
    if (selected && *selected != square && !is_own_piece(square)) {
        play(*selected, square);
    } else if (selected && *selected != square && is_there(square, PieceKind::rook) &&
               is_there(*selected, PieceKind::king)) {
        // Castling can be shown by the rook; when it is none, the click picks up the rook.
        if (!play(*selected, square)) m_session.select(square);
    } else if (is_own_piece(square) && selected != square) {
        m_session.select(square);
    } else {
        m_session.select(std::nullopt);
    }
}

bool UserMoves::is_own_piece(Square square) const {
    const Piece piece = m_session.position().piece_on(square);
    return piece != no_piece && piece.side() == m_session.side_to_move();
}

PieceKind UserMoves::choose_promotion(Square from, Square to) {
    const Piece piece = m_session.position().piece_on(from);
    const bool promotes = piece.is_pawn() && (to.rank() == 0 || to.rank() == 7);
    return promotes ? m_dialogs.choose_promotion(piece.side()) : PieceKind::none;
}

bool UserMoves::play(Square from, Square to) {
    const PieceKind promoted = choose_promotion(from, to);
    const std::string squares = from.name() + to.name();
    for (const Move& move : legal_moves(m_session.position())) {
        const bool by_squares = move.from() == from && move.to() == to && fits_choice(move, promoted);
        // Castling is stored as king takes rook; its printed form names the king's destination.
        if (by_squares || move.to_string(false) == squares) {
            make(move);
            return true;
        }
    }
    m_session.select(std::nullopt);
    return false;
}

void UserMoves::make(const Move& move) {
    if (std::ranges::any_of(m_take, [&](const auto& take) { return take(move); })) {
        return m_session.select(std::nullopt);
    }
    if (!m_session.clocks_held()) m_clocks.start_clock(opposite(m_session.side_to_move()));
    // The referee first: its engine can begin while the board is drawn.
    m_manager.send(to_referee::UserMove{move.to_string(false)});
    try {
        m_session.play(move);
    } catch (...) {
        std::cerr << "make move failed\n";
        throw;
    }
}

}  // namespace velmora
