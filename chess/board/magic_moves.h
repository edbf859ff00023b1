#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "chess/board/bitboard.h"
#include "chess/board/square.h"

namespace velmora {

/// Attack sets of sliders, looked up by a multiplication: the only producer of them.
///
/// Per square the occupancy that matters is hashed to a slot without harmful collisions; the slot holds the
/// one-byte number of an attack set. That keeps 111,232 slots (5,760 for bishops, 105,472 for rooks) small:
/// no square has more than 144 sets. An attack set includes the first piece met in each direction.
///
/// The instruction that gathers the bits of a mask (pext) would need no multipliers, but belongs to a
/// newer instruction set than the baseline that the program is compiled for. Two steps, slot to number to
/// set, instead of one: sets of 8 bytes in all slots would fill 870 KiB, which displaces all else from the
/// caches, while a byte a slot makes 109 KiB.
class MagicMoves {
public:
    /// What becomes of the full tables once the small ones are made from them; selftest_ok() reads them.
    enum class FullTables { drop, keep };

    /// Throws std::logic_error when a constant is wrong.
    explicit MagicMoves(FullTables full_tables = FullTables::drop);
    MagicMoves(const MagicMoves&) = delete;  // m_bishops and m_rooks point into the vectors
    MagicMoves& operator=(const MagicMoves&) = delete;

    // REQUIRES: a square on the board, or a one-bit board.
    Bitboard bishop_attacks(Square square, Bitboard occupied) const {
        return look_up(m_bishops, square, occupied);
    }
    Bitboard rook_attacks(Square square, Bitboard occupied) const {
        return look_up(m_rooks, square, occupied);
    }
    Bitboard queen_attacks(Square square, Bitboard occupied) const {
        return bishop_attacks(square, occupied) | rook_attacks(square, occupied);
    }
    Bitboard bishop_attacks(Bitboard square, Bitboard occupied) const {
        return bishop_attacks(square.first_square(), occupied);
    }
    Bitboard rook_attacks(Bitboard square, Bitboard occupied) const {
        return rook_attacks(square.first_square(), occupied);
    }
    Bitboard queen_attacks(Bitboard square, Bitboard occupied) const {
        return queen_attacks(square.first_square(), occupied);
    }

    /// For development: no square's sets may hold one twice, and each slot must name the set of the full
    /// table. The first fault is told on standard output. An object that has dropped its full tables fails.
    bool selftest_ok() const;

private:
    template <class T>
    using BySquare = std::array<T, 64>;

    /// All that one lookup needs, together in memory. In five arrays it would touch as many cache lines,
    /// on the path of nearly every move.
    struct Lookup {
        Bitboard mask;
        std::uint64_t magic;
        const std::uint8_t* index;
        const Bitboard* attacks;
        std::uint32_t shift;
    };

    static std::size_t at(Square square) { return static_cast<std::size_t>(square.value()); }
    static std::size_t slot(const Lookup& lookup, Bitboard occupied) {
        return ((occupied & lookup.mask).value() * lookup.magic) >> lookup.shift;
    }
    static Bitboard look_up(const BySquare<Lookup>& table, Square square, Bitboard occupied) {
        const Lookup& lookup = table[at(square)];
        return lookup.attacks[lookup.index[slot(lookup, occupied)]];
    }
    BySquare<Lookup> m_bishops{};
    BySquare<Lookup> m_rooks{};

    // By square: the full table, alive only during construction; the number of each slot's set; the distinct
    // sets, ascending as numbers.
    BySquare<std::vector<Bitboard>> m_magic_bishop_moves;
    BySquare<std::vector<std::uint8_t>> m_bishop_index;
    BySquare<std::vector<Bitboard>> m_bishop_attacks;
    BySquare<std::vector<Bitboard>> m_magic_rook_moves;
    BySquare<std::vector<std::uint8_t>> m_rook_index;
    BySquare<std::vector<Bitboard>> m_rook_attacks;
};

/// The one instance, built at the first call and never changed.
///
/// By a function and not as a global object, so that tables that others make before main() may use it.
/// Read by all threads without a lock.
const MagicMoves& magic_moves();

}  // namespace velmora
