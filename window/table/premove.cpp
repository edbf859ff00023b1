#include "window/table/premove.h"

#include <algorithm>

#include "chess/moves/legal_moves.h"

namespace velmora {

Premove::Premove(GameSession& session, BoardView& board, const WindowFrame& frame, UserMoves& moves)
    : m_session(session), m_board(board), m_frame(frame), m_moves(moves) {
    m_moves.while_waiting([this](Square from, Square to) { take(from, to); });
}

bool Premove::waits_for_engine() const {
    return m_frame.mode() == Mode::human_computer && m_session.engine_to_move();
}

bool Premove::is_own_piece(Square square) const {
    const Piece piece = m_session.position().piece_on(square);
    return piece != no_piece && piece.side() != m_session.side_to_move();
}

void Premove::take(Square from, Square to) {
    const bool was_set = m_squares.has_value();
    clear();
    if (!waits_for_engine()) return;
    const auto selected = m_session.selected();
    if (from != to) {
        if (is_own_piece(from)) set(from, to);
    } else if (selected && is_own_piece(*selected) && !is_own_piece(to)) {
        set(*selected, to);
    } else if (is_own_piece(to) && selected != to && !was_set) {
        return m_session.select(to);
    }
    m_session.select(std::nullopt);
}

void Premove::set(Square from, Square to) {
    m_squares = {from, to};
    m_node = m_session.record().current();
    m_board.set_arrow(from, to, ArrowColor::blue);
}

void Premove::clear() {
    if (std::exchange(m_squares, std::nullopt)) m_board.clear_arrows();
}

bool Premove::is_legal(Square from, Square to) const {
    const std::string squares = from.name() + to.name();
    return std::ranges::any_of(legal_moves(m_session.position()), [&](const Move& move) {
        return (move.from() == from && move.to() == to) || move.to_string(false) == squares;
    });
}

void Premove::tick() {
    if (!m_squares) return;
    const auto& record = m_session.record();
    if (waits_for_engine() && record.current() == m_node) return;
    const auto [from, to] = *m_squares;
    const bool answered = m_frame.mode() == Mode::human_computer && !m_session.engine_to_move() &&
                          record.tree().node(record.current()).type == ElementType::move &&
                          record.tree().node(record.current()).pid == m_node;
    clear();
    if (answered && is_legal(from, to)) m_moves.play(from, to);
}

}  // namespace velmora
