#include "collection/position_key.h"

#include <algorithm>

#include "chess/board/bit_tables.h"
#include "chess/moves/legal_moves.h"

namespace velmora {

namespace {

// Odd numbers with bits all over, to spread the few bits of rights and files; any others would do.
constexpr std::uint64_t right_factor = 0x9E3779B97F4A7C15;
constexpr std::uint64_t file_factor = 0xC2B2AE3D27D4EB4F;
constexpr std::uint64_t white_to_move = 0x165667B19E3779F9;

std::uint64_t mixed(std::uint64_t key) {
    key = (key ^ (key >> 33)) * 0xFF51AFD7ED558CCD;
    key = (key ^ (key >> 33)) * 0xC4CEB9FE1A85EC53;
    return key ^ (key >> 33);
}

/// The rights whose king and rook are on their back rank: bits 0 to 7 White's rook files, 8 to 15 Black's.
std::uint64_t living_rights(const ChessPosition& position) {
    const std::uint64_t rights = position.rights();
    if (rights == 0) return 0;
    const BoardPosition& board = position.board();
    std::uint64_t rooks = 0;
    if ((board.white_king() & rank_1).any()) rooks |= (board.white_rooks() & rank_1).value();
    if ((board.black_king() & rank_8).any()) rooks |= (board.black_rooks() & rank_8).value() >> 48;
    return rights & rooks;
}

/// Whether a pawn may legally take en passant.
bool has_en_passant(const ChessPosition& position) {
    const Square target = position.ep_square();
    const Side us = position.side_to_move();
    if (!target.on_board()) return false;
    const auto takers =
        bit_tables.pawn_attacks(target, opposite(us)) & position.board().pieces(PieceKind::pawn, us);
    if (takers.empty()) return false;
    const auto moves = legal_moves(position);
    return std::any_of(moves.begin(), moves.end(),
                       [](Move move) { return move.code() == MoveCode::en_passant; });
}

}  // namespace

std::uint64_t position_key(const ChessPosition& position) {
    std::uint64_t key = position.piece_key() ^ living_rights(position) * right_factor;
    if (position.side_to_move() == Side::white) key ^= white_to_move;
    if (has_en_passant(position)) {
        key ^= static_cast<std::uint64_t>(position.ep_square().file() + 1) * file_factor;
    }
    return mixed(key);
}

}  // namespace velmora
