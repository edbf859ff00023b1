#include "chess/magic_moves.h"

#include <algorithm>
#include <iostream>
#include <stdexcept>
#include <string_view>

#include "chess/bit_tables.h"
#include "chess/magic_constants.h"

namespace velmora {

namespace {

enum class Slider { bishop, rook };

// Numbers of BitTables::rays(): straight directions are even, diagonal ones odd.
constexpr int first_direction(Slider slider) { return slider == Slider::rook ? 0 : 1; }

/// The squares whose men can stop the slider: its lines without the edge square of each direction.
Bitboard relevant_occupancy(Slider slider, Square square) {
    Bitboard mask;
    for (int direction = first_direction(slider); direction < BitTables::directions; direction += 2) {
        for (Bitboard ray = bit_tables.rays(direction, square); ray.any();) {
            const Square target = ray.pop_square();
            if (bit_tables.rays(direction, target).any()) mask.set(target);
        }
    }
    return mask;
}

/// The attack set by walking: each ray up to and including the first man.
Bitboard walk(Slider slider, Square square, Bitboard occupied) {
    Bitboard attacks;
    for (int direction = first_direction(slider); direction < BitTables::directions; direction += 2) {
        Bitboard ray = bit_tables.rays(direction, square);
        for (Bitboard men = ray & occupied; men.any();) ray &= ~bit_tables.rays(direction, men.pop_square());
        attacks |= ray;
    }
    return attacks;
}

/// The n-th subset of the mask: its squares for the set bits of n, the lowest square for bit 0.
Bitboard subset(Bitboard mask, std::uint32_t n) {
    Bitboard result;
    for (; n != 0; n >>= 1) {
        const Bitboard bit = mask.pop_bit();
        if ((n & 1) != 0) result |= bit;
    }
    return result;
}

/// Sets that stand twice in one square's list.
bool report_twins(const std::vector<Bitboard>& sets, std::string_view name, int square) {
    for (std::size_t i = 0; i < sets.size(); ++i) {
        for (std::size_t j = i + 1; j < sets.size(); ++j) {
            if (sets[i] != sets[j]) continue;
            std::cout << "\nMagicMoves::selftest_ok() error in " << name << "   square=" << square
                      << "   i=" << i << "   j=" << j << '\n';
            return true;
        }
    }
    return false;
}

struct SlotTables {
    const std::vector<Bitboard>& moves;
    const std::vector<std::uint8_t>& index;
    const std::vector<Bitboard>& attacks;
    std::string_view moves_name;
    std::string_view attacks_name;
};

/// A slot that does not name the set of the full table; a dropped table counts as all empty.
bool report_wrong_slot(const SlotTables& tables, int square) {
    for (std::size_t slot = 0; slot < tables.index.size(); ++slot) {
        const Bitboard expected = slot < tables.moves.size() ? tables.moves[slot] : no_squares;
        const Bitboard found = tables.attacks[tables.index[slot]];
        if (expected == found) continue;
        std::cout << "square=" << square << "\nindex=" << slot << '\n'
                  << std::hex << tables.moves_name << ": " << expected.value() << '\n'
                  << tables.attacks_name << ": " << found.value() << std::dec << '\n';
        return true;
    }
    return false;
}

}  // namespace

MagicMoves::MagicMoves(FullTables full_tables) {
    const auto build = [full_tables](Slider slider, Square square, Lookup& lookup, auto& moves, auto& index,
                                     auto& attacks) {
        const std::size_t s = at(square);
        const bool rook = slider == Slider::rook;
        lookup.mask = relevant_occupancy(slider, square);
        lookup.magic = rook ? magic_constants::rook_multipliers[s] : magic_constants::bishop_multipliers[s];
        lookup.shift = rook ? magic_constants::rook_shifts[s] : magic_constants::bishop_shifts[s];

        moves[s].resize(std::size_t{1} << (64 - lookup.shift));
        for (std::uint32_t n = 0; n < 1U << lookup.mask.count(); ++n) {
            const Bitboard occupied = subset(lookup.mask, n);
            moves[s][slot(lookup, occupied)] = walk(slider, square, occupied);
        }

        attacks[s] = moves[s];  // the 0 of unused slots is one of the sets
        std::sort(attacks[s].begin(), attacks[s].end());
        attacks[s].erase(std::unique(attacks[s].begin(), attacks[s].end()), attacks[s].end());

        for (const Bitboard set : moves[s]) {
            const auto place = std::find(attacks[s].begin(), attacks[s].end(), set);
            if (place != attacks[s].end()) {
                index[s].push_back(static_cast<std::uint8_t>(place - attacks[s].begin()));
            }
        }
        if (index[s].size() != moves[s].size()) {
            throw std::logic_error(rook ? "MagicMoves error(2) in constructor"
                                        : "MagicMoves error(1) in constructor");
        }
        lookup.index = index[s].data();
        lookup.attacks = attacks[s].data();
        if (full_tables == FullTables::drop) moves[s] = std::vector<Bitboard>(10);
    };
    for (Square s(0); s.on_board(); ++s) {
        build(Slider::bishop, s, m_bishops[at(s)], m_magic_bishop_moves, m_bishop_index, m_bishop_attacks);
        build(Slider::rook, s, m_rooks[at(s)], m_magic_rook_moves, m_rook_index, m_rook_attacks);
    }
}

MagicMoves::Totals MagicMoves::totals(const BySquare<std::vector<std::uint8_t>>& index,
                                      const BySquare<std::vector<Bitboard>>& attacks) {
    Totals sum{};
    for (const auto& slots : index) sum.slots += slots.size();
    for (const auto& sets : attacks) {
        sum.sets += sets.size() - static_cast<std::size_t>(std::count(sets.begin(), sets.end(), no_squares));
    }
    return sum;
}

bool MagicMoves::selftest_ok() const {
    for (int s = 0; s < 64; ++s) {
        if (report_twins(m_bishop_attacks[at(Square(s))], "bishopattacks", s)) return false;
    }
    for (int s = 0; s < 64; ++s) {
        if (report_twins(m_rook_attacks[at(Square(s))], "rookattacks", s)) return false;
    }
    for (int s = 0; s < 64; ++s) {
        const std::size_t i = at(Square(s));
        if (report_wrong_slot({m_magic_bishop_moves[i], m_bishop_index[i], m_bishop_attacks[i],
                               "magic_bishop_moves", "bishop_attacks"},
                              s)) {
            return false;
        }
    }
    for (int s = 0; s < 64; ++s) {
        const std::size_t i = at(Square(s));
        if (report_wrong_slot({m_magic_rook_moves[i], m_rook_index[i], m_rook_attacks[i], "magic_rook_moves",
                               "rook_attacks"},
                              s)) {
            return false;
        }
    }
    return true;
}

const MagicMoves& magic_moves() {
    static const MagicMoves tables;
    return tables;
}

}  // namespace velmora
