#include "chess/board/magic_moves.h"

#include <algorithm>
#include <iostream>
#include <stdexcept>
#include <string_view>

#include "chess/board/bit_tables.h"
#include "chess/board/magic_constants.h"

namespace velmora {

namespace {

enum class Slider { bishop, rook };

// Numbers of BitTables::rays(): straight directions are even, diagonal ones odd.
constexpr int first_direction(Slider slider) { return slider == Slider::rook ? 0 : 1; }

/// One attack set of a square, and the occupancies that have it.
struct AttackSet {
    Bitboard attacks;
    Bitboard blockers;  ///< the first piece of each direction that is stopped short of the edge
    Bitboard hidden;    ///< what may stand behind them, edges left out
};

/// All attack sets of a slider, ascending as numbers, each once. `relevant` becomes the squares whose pieces
/// can stop the slider: its lines without the edge square of each direction.
///
/// By combining the reaches of the four directions instead of trying all occupancies: the sets come out
/// once each, and with them all occupancies that a set stands for, as its blockers and any subset of what
/// they hide. Walking the rays anew for each of 107,648 occupancies would be felt at the program's start.
std::vector<AttackSet> attack_sets(Slider slider, Square square, Bitboard& relevant) {
    std::vector<AttackSet> sets(1);
    for (int direction = first_direction(slider); direction < BitTables::directions; direction += 2) {
        const Bitboard ray = bit_tables.rays(direction, square);
        std::vector<AttackSet> reaches{{ray, no_squares, no_squares}};
        Bitboard line;
        for (Bitboard targets = ray; targets.any();) {
            const Square target = targets.pop_square();
            const Bitboard behind = bit_tables.rays(direction, target);
            if (!behind.any()) continue;  // the edge, which is reached whether a piece stands there or not
            line.set(target);
            reaches.push_back({ray & ~behind, target.bit(), behind});
        }
        std::vector<AttackSet> longer;
        for (const AttackSet& set : sets) {
            for (const AttackSet& reach : reaches) {
                longer.push_back({set.attacks | reach.attacks, set.blockers | reach.blockers,
                                  set.hidden | (reach.hidden & line)});
            }
        }
        sets = std::move(longer);
        relevant |= line;
    }
    std::sort(sets.begin(), sets.end(),
              [](const AttackSet& one, const AttackSet& other) { return one.attacks < other.attacks; });
    return sets;
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

// Not inlined: magic_moves() runs at every move, and would set up and guard the stack frame of its first
// call.
[[gnu::noinline]] MagicMoves::MagicMoves(FullTables full_tables) {
    const auto build = [full_tables](Slider slider, Square square, Lookup& lookup, auto& all_moves,
                                     auto& all_index, auto& all_attacks) {
        const std::size_t s = at(square);
        const bool rook = slider == Slider::rook;
        const auto sets = attack_sets(slider, square, lookup.mask);
        lookup.magic = rook ? magic_constants::rook_multipliers[s] : magic_constants::bishop_multipliers[s];
        lookup.shift = rook ? magic_constants::rook_shifts[s] : magic_constants::bishop_shifts[s];

        // The number of each slot's set from 1; the 0 of an unused slot is the empty set's.
        auto& index = all_index[s];
        index.resize(std::size_t{1} << (64 - lookup.shift));
        auto& moves = all_moves[s];
        moves.resize(full_tables == FullTables::keep ? index.size() : 10);
        for (std::size_t n = 0; n < sets.size(); ++n) {
            const auto number = static_cast<std::uint8_t>(n + 1);
            const std::uint64_t hidden = sets[n].hidden.value();
            std::uint64_t pieces = 0;  // each subset of the hidden squares in turn
            do {
                const auto place = slot(lookup, sets[n].blockers | Bitboard(pieces));
                auto& number_in_slot = index[place];
                if (number_in_slot != 0 && number_in_slot != number) {
                    throw std::logic_error(rook ? "MagicMoves error(2) in constructor"
                                                : "MagicMoves error(1) in constructor");
                }
                number_in_slot = number;
                if (full_tables == FullTables::keep) moves[place] = sets[n].attacks;
                pieces = (pieces - hidden) & hidden;
            } while (pieces != 0);
        }
        auto& attacks = all_attacks[s];
        if (std::find(index.begin(), index.end(), 0) != index.end()) {
            attacks.emplace_back();  // the lowest of all, and so the first
        } else {
            for (auto& number : index) --number;
        }
        for (const AttackSet& set : sets) attacks.push_back(set.attacks);
        lookup.index = index.data();
        lookup.attacks = attacks.data();
    };
    for (Square s(0); s.on_board(); ++s) {
        build(Slider::bishop, s, m_bishops[at(s)], m_magic_bishop_moves, m_bishop_index, m_bishop_attacks);
        build(Slider::rook, s, m_rooks[at(s)], m_magic_rook_moves, m_rook_index, m_rook_attacks);
    }
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
