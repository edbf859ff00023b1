#include <algorithm>
#include <array>
#include <cstdlib>

#include "chess/position.h"

namespace velmora {

namespace {

/// By square, 64 for the empty move: the rights that stay when a man leaves or reaches it.
constexpr std::array<std::uint16_t, 65> kept_rights = [] {
    std::array<std::uint16_t, 65> table{};
    table.fill(0xFFFF);
    for (unsigned file = 0; file < 8; ++file) {
        table[file] = static_cast<std::uint16_t>(~(1U << file));
        table[56 + file] = static_cast<std::uint16_t>(~(1U << (8 + file)));
    }
    return table;
}();

std::uint16_t rights_after(std::uint16_t rights, Move move) {
    if (rights == 0) return 0;
    const Piece man = move.piece();
    const unsigned kept_by_king = !man.is_king() ? 0xFFFF : man.is_white() ? 0xFF00 : 0x00FF;
    const auto kept = [](Square square) { return kept_rights[static_cast<std::size_t>(square.value())]; };
    return static_cast<std::uint16_t>(rights & kept_by_king & kept(move.from()) & kept(move.to()));
}

/// The target of a double step with an enemy pawn beside its end. "Beside" has no edge: a pawn that arrives
/// on the a-file also looks at the h-file one rank down, and the other way round. That is wanted.
Square ep_square_after(const BoardPosition& board, Move move) {
    const Piece man = move.piece();
    const Square from = move.from();
    const Square to = move.to();
    if (!man.is_pawn() || std::abs(to - from) != 16) return no_square;
    const Bitboard beside = (to.bit() >> 1) | (to.bit() << 1);
    if ((beside & board.pieces(PieceKind::pawn, opposite(man.side()))).empty()) return no_square;
    return Square((from.value() + to.value()) / 2);
}

bool is_irreversible(Move move) { return move.piece().is_pawn() || !move.capture().empty(); }

}  // namespace

void ChessPosition::do_move(Move move) {
    // Filled in place: a record built aside and copied in would be read before its stores have arrived.
    PositionState& next = m_states.emplace_back();
    const PositionState& now = *(&next - 1);
    next.rights = rights_after(now.rights, move);
    next.halfmoves = is_irreversible(move) ? std::uint16_t{0} : static_cast<std::uint16_t>(now.halfmoves + 1);
    next.ep_square = ep_square_after(m_board, move);
    next.last_move = move;

    m_board.do_move(move);
    find_pins(m_board, next);
    m_fullmove = static_cast<std::uint16_t>(m_fullmove + m_board.side());
    m_hash.do_move(move, m_board, next);
    m_material.do_move(move);
    m_maps.drop();
}

void ChessPosition::undo_move() {
    if (m_states.size() < 2) return;
    const Move move = last_move();
    m_fullmove = static_cast<std::uint16_t>(m_fullmove - m_board.side());
    m_board.undo_move(move);
    m_states.pop_back();
    m_hash.undo_move();
    m_material.undo_move(move);
    m_maps.drop();
}

}  // namespace velmora
