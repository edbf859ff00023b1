#include "chess/board/position_hash.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "chess/board/random64.h"

namespace velmora {

namespace {

using BySquare = std::array<std::uint64_t, 64>;

/// By piece code and square. Rows of codes that are no piece are zero, so an empty capture field changes
/// nothing.
constexpr std::array<BySquare, piece_codes> piece_table = [] {
    std::array<BySquare, piece_codes> table{};
    for (const char letter : std::string_view("PNBRQKpnbrqk")) {
        const Piece piece = piece_of_letter(letter);
        for (Square square(0); square.on_board(); ++square) {
            table[piece.code()][static_cast<std::size_t>(square.value())] =
                random64[random64_piece(piece, square)];
        }
    }
    return table;
}();

std::uint64_t number(Piece piece, Square square) {
    return piece_table[piece.code() & 15][static_cast<std::size_t>(square.value() & 63)];
}

/// All ones for a pawn, for masking without a branch.
std::uint64_t pawn_mask(Piece piece) {
    return std::uint64_t{0} - static_cast<std::uint64_t>(piece.is_pawn());
}

/// What the classic rights add, by the four bits of castle_index(): white long, white short, black long,
/// black short.
constexpr std::array<std::uint64_t, 16> castle_table = [] {
    std::array<std::uint64_t, 16> table{};
    constexpr std::array<std::size_t, 4> entries = {1, 0, 3, 2};
    for (std::size_t index = 0; index < table.size(); ++index) {
        for (std::size_t bit = 0; bit < 4; ++bit) {
            if ((index >> bit & 1) != 0) table[index] ^= random64[random64_castle + entries[bit]];
        }
    }
    return table;
}();

/// Gathers bits 0, 7, 8 and 15: the product has them side by side from bit 12.
std::size_t castle_index(std::uint32_t rights) { return (rights & 0x8181) * 0x1041 >> 12 & 15; }

std::uint64_t whole_key(std::uint64_t piece_key, const PositionState& state, Side to_move) {
    std::uint64_t key = piece_key ^ castle_table[castle_index(state.rights)];
    if ((state.rights & chess960_rights) != 0) key ^= state.rights;
    if (state.ep_square != no_square) {
        key ^= random64[random64_en_passant + static_cast<std::size_t>(state.ep_square.value() & 7)];
    }
    return to_move == Side::white ? key ^ random64[random64_turn] : key;
}

}  // namespace

void PositionHash::reset(const BoardPosition& board, const PositionState& state) {
    Keys keys;
    for (Bitboard pieces = board.occupied(); pieces.any();) {
        const Square square = pieces.pop_square();
        const Piece piece = board.piece_on(square);
        keys.pieces ^= number(piece, square);
        keys.pawns ^= number(piece, square) & pawn_mask(piece);
    }
    keys.position = whole_key(keys.pieces, state, board.side_to_move());
    m_stack.assign(1, keys);
}

template <Side us>
void PositionHash::do_move(Move move, const PositionState& state) {
    const Square from = move.from_field();
    const Square to = move.to_field();
    const Piece piece = move.piece();
    const Piece capture = move.capture();
    Keys keys = m_stack.back();
    const auto toggle = [&keys](Piece toggled, Square square) {
        keys.pieces ^= number(toggled, square);
        keys.pawns ^= number(toggled, square) & pawn_mask(toggled);
    };
    if (move.code() == MoveCode::normal_move) {
        const std::uint64_t step = number(piece, from) ^ number(piece, to);
        keys.pieces ^= step;
        if (piece.is_pawn()) keys.pawns ^= step;
        if (!capture.empty()) toggle(capture, to);
    } else if (move.code() == MoveCode::castling) {
        const CastlingTargets targets = castling_targets(from, to, us);
        const Piece rook(PieceKind::rook, us);
        toggle(piece, from);
        toggle(rook, to);
        toggle(piece, targets.king);
        toggle(rook, targets.rook);
    } else if (move.code() != MoveCode::null_move) {
        toggle(capture, move.code() == MoveCode::en_passant ? behind(to, us) : to);
        toggle(piece, from);
        toggle(is_promotion(move.code()) ? Piece(promoted_kind(move.code()), us) : piece, to);
    }
    keys.position = whole_key(keys.pieces, state, opposite(us));
    m_stack.push_back(keys);
}

template void PositionHash::do_move<Side::white>(Move, const PositionState&);
template void PositionHash::do_move<Side::black>(Move, const PositionState&);

std::uint64_t PositionHash::key(const PositionState& state, Side to_move) const {
    return whole_key(piece_key(), state, to_move);
}

bool PositionHash::is_repetition(int n, std::uint16_t halfmoves) const {
    const std::uint64_t now = m_stack.back().position;
    int count = 1;
    const std::size_t reach = std::min<std::size_t>(halfmoves, m_stack.size() - 1);
    for (std::size_t back = 1; back <= reach; ++back) {
        if (m_stack[m_stack.size() - 1 - back].position == now && ++count >= n) return true;
    }
    return false;
}

}  // namespace velmora
