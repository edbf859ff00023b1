#include <array>
#include <cstdlib>

#include "chess/board/board_moves.h"
#include "chess/board/pins.h"
#include "chess/moves/position.h"

namespace velmora {

namespace {

/// By square, 64 for the empty move: the rights that stay when a piece leaves or reaches it.
constexpr std::array<std::uint16_t, 65> kept_rights = [] {
    std::array<std::uint16_t, 65> table{};
    table.fill(0xFFFF);
    for (unsigned file = 0; file < 8; ++file) {
        table[file] = static_cast<std::uint16_t>(~(1U << file));
        table[56 + file] = static_cast<std::uint16_t>(~(1U << (8 + file)));
    }
    return table;
}();

/// By piece code: the rights that stay when the piece moves.
constexpr std::array<std::uint16_t, piece_codes> kept_by_piece = [] {
    std::array<std::uint16_t, piece_codes> table{};
    table.fill(0xFFFF);
    table[Piece(PieceKind::king, Side::white).code()] = 0xFF00;
    table[Piece(PieceKind::king, Side::black).code()] = 0x00FF;
    return table;
}();

/// By masks of both squares and of the piece, without asking what kind of move it is: a rook that leaves
/// its corner, one that is captured there, and a king that moves all lose their rights by the same two
/// operations.
std::uint16_t rights_after(std::uint16_t rights, Move move) {
    const auto kept = [](Square square) { return kept_rights[static_cast<std::size_t>(square.value())]; };
    return static_cast<std::uint16_t>(rights & kept_by_piece[move.piece().code()] & kept(move.from()) &
                                      kept(move.to()));
}

/// The target of a double step with an enemy pawn beside its end. "Beside" has no edge: a pawn that arrives
/// on the a-file also looks at the h-file one rank down, and the other way round. That is wanted.
Square ep_square_after(const BoardPosition& board, Move move) {
    const Piece piece = move.piece();
    const Square from = move.from_field();
    const Square to = move.to_field();
    if (!piece.is_pawn() || std::abs(to - from) != 16) return no_square;
    const Bitboard beside = (to.bit() >> 1) | (to.bit() << 1);
    if ((beside & board.pieces(PieceKind::pawn, opposite(piece.side()))).empty()) return no_square;
    return Square((from.value() + to.value()) / 2);
}

/// Counts up and stays at the largest number.
std::uint16_t one_more(std::uint16_t halfmoves) {
    return static_cast<std::uint16_t>(halfmoves + (halfmoves < 0xFFFF ? 1 : 0));
}

}  // namespace

void ChessPosition::do_move(Move move) {
    if (side_to_move() == Side::white) {
        do_move_of<Side::white>(move);
    } else {
        do_move_of<Side::black>(move);
    }
}

void ChessPosition::undo_move() {
    if (m_states.size() < 2) return;
    if (side_to_move() == Side::black) {
        undo_move_of<Side::white>();
    } else {
        undo_move_of<Side::black>();
    }
}

template <Side us>
void ChessPosition::do_move_of(Move move) {
    const PositionState& now = state();
    PositionState next;
    const bool irreversible = move.piece().is_pawn() || !move.capture().empty();
    next.rights = rights_after(now.rights, move);
    next.halfmoves = irreversible ? std::uint16_t{0} : one_more(now.halfmoves);
    next.ep_square = ep_square_after(m_board, move);
    next.last_move = move;
    m_board.do_move_of<us>(move);
    find_pins(m_board, next);
    m_states.push_back(next);
    if (us == Side::black) ++m_fullmove;
    m_hash.do_move<us>(move, next);
    m_material.do_move(move);
    m_maps.drop();
}

template <Side us>
void ChessPosition::undo_move_of() {
    const Move move = last_move();
    m_board.undo_move_of<us>(move);
    if (us == Side::black) --m_fullmove;
    m_states.pop_back();
    m_hash.undo_move();
    m_material.undo_move(move);
    m_maps.drop();
}

}  // namespace velmora
