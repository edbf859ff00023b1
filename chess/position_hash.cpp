#include "chess/position_hash.h"

#include <array>
#include <cstddef>

#include "chess/random64.h"

namespace velmora {

namespace {

using BySquare = std::array<std::uint64_t, 64>;

/// By piece code and square. Rows of codes that are no man are zero, so an empty capture field changes
/// nothing. Polyglot numbers a man by 2 * (kind - 1), plus 1 for White.
constexpr std::array<BySquare, piece_codes> piece_table = [] {
    std::array<BySquare, piece_codes> table{};
    for (const std::size_t colour : {std::size_t{0}, std::size_t{8}}) {
        for (std::size_t kind = 1; kind <= 6; ++kind) {
            const std::size_t row = 2 * (kind - 1) + (colour == 0 ? 1 : 0);
            for (std::size_t square = 0; square < 64; ++square) {
                table[colour + kind][square] = random64[64 * row + square];
            }
        }
    }
    return table;
}();

std::uint64_t number(Piece man, Square square) {
    return piece_table[man.code() & 15][static_cast<std::size_t>(square.value() & 63)];
}

/// The number when the bit is set, else 0, without a branch.
std::uint64_t number_if(std::uint32_t bit, std::uint64_t number) { return (std::uint64_t{0} - bit) & number; }

}  // namespace

void PositionHash::reset(const BoardPosition& board) {
    Keys keys;
    for (Bitboard men = board.occupied(); men.any();) {
        const Square square = men.pop_square();
        const Piece man = board.piece_on(square);
        keys.pieces ^= number(man, square);
        if (man.is_pawn()) keys.pawns ^= number(man, square);
    }
    m_stack.assign(1, keys);
}

void PositionHash::do_move(Move move, Side mover) {
    Keys keys = m_stack.back();
    const auto toggle = [&keys](Piece man, Square square) {
        const std::uint64_t change = number(man, square);
        keys.pieces ^= change;
        keys.pawns ^= number_if(man.is_pawn() ? 1 : 0, change);
    };
    const Square from = move.from();
    const Square to = move.to();
    switch (move.code()) {
        case MoveCode::null_move:
            break;
        case MoveCode::castling: {
            const CastlingTargets targets = castling_targets(from, to, mover);
            const Piece rook(PieceKind::rook, mover);
            toggle(move.piece(), from);
            toggle(rook, to);
            toggle(move.piece(), targets.king);
            toggle(rook, targets.rook);
            break;
        }
        case MoveCode::en_passant:
            toggle(move.capture(), behind(to, mover));
            toggle(move.piece(), from);
            toggle(move.piece(), to);
            break;
        case MoveCode::normal_move:
            toggle(move.capture(), to);
            toggle(move.piece(), from);
            toggle(move.piece(), to);
            break;
        default:
            toggle(move.capture(), to);
            toggle(move.piece(), from);
            toggle(Piece(promoted_kind(move.code()), mover), to);
    }
    m_stack.push_back(keys);
}

std::uint64_t PositionHash::key(const PositionState& state, Side to_move) const {
    const std::uint32_t rights = state.rights;
    const auto castle = [rights](int bit, std::size_t entry) {
        return number_if(rights >> bit & 1, random64[random64_castle + entry]);
    };
    std::uint64_t key = piece_key() ^ castle(7, 0) ^ castle(0, 1) ^ castle(15, 2) ^ castle(8, 3);
    if ((rights & chess960_rights) != 0) key ^= rights;
    if (state.ep_square != no_square) {
        key ^= random64[random64_en_passant + static_cast<std::size_t>(state.ep_square.value() & 7)];
    }
    return key ^ number_if(to_move == Side::white ? 1 : 0, random64[random64_turn]);
}

}  // namespace velmora
