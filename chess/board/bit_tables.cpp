#include "chess/board/bit_tables.h"

namespace velmora {

namespace {

struct Step {
    int files;
    int ranks;
};
// In the order of BitTables::rays(); odd directions are diagonal.
constexpr std::array<Step, BitTables::directions> steps = {
    {{1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}, {0, -1}, {1, -1}}};

/// The king's steps: one left and right, then up and down of these and of the origin.
constexpr Bitboard king_steps(Bitboard origin) {
    const Bitboard sides = ((origin & not_file_h) << 1) | ((origin & not_file_a) >> 1);
    const Bitboard row = origin | sides;
    return sides | (row << 8) | (row >> 8);
}

}  // namespace

constexpr void BitTables::set_steps(Square square) {
    const Bitboard origin = square.bit();
    m_knight_moves[index(square)] = knight_attacks(origin);
    m_king_moves[index(square)] = king_steps(origin);
    m_pawn_attacks.white[index(square)] = velmora::pawn_attacks<Side::white>(origin);
    m_pawn_attacks.black[index(square)] = velmora::pawn_attacks<Side::black>(origin);
}

constexpr void BitTables::set_rays(Square square) {
    for (int direction = 0; direction < directions; ++direction) {
        const Step step = steps[index(direction)];
        Bitboard ray;
        int file = square.file() + step.files;
        int rank = square.rank() + step.ranks;
        for (; file >= 0 && file < 8 && rank >= 0 && rank < 8; file += step.files, rank += step.ranks) {
            const Square target(rank * 8 + file);
            m_between[index(square)][index(target)] = ray;
            ray.set(target);
        }
        m_rays[index(direction)][index(square)] = ray;
        (direction % 2 == 0 ? m_rook_lines : m_bishop_lines)[index(square)] |= ray;
        for (Bitboard targets = ray; targets.any();) {
            m_ray_through[index(square)][index(targets.pop_square())] = ray;
        }
    }
}

constexpr BitTables::BitTables() {
    for (Square square(0); square.on_board(); ++square) {
        set_steps(square);
        set_rays(square);
    }
}

constinit const BitTables bit_tables;

}  // namespace velmora
