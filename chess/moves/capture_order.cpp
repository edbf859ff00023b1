#include "chess/moves/capture_order.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "chess/moves/move_list.h"

namespace velmora {

namespace {

/// By piece code of the captured piece: its place in the order of stage one, as the shift of its group's
/// count in sort_captures(). Queen first, then rook, knight and bishop alike, pawn, none.
constexpr int group_bits = 12;
constexpr std::array<std::uint8_t, piece_codes> group_shifts = {48, 36, 24, 24, 12, 0, 0, 48,
                                                                48, 36, 24, 24, 12, 0, 0, 48};

}  // namespace

// A counting sort with all counts in one number: comparing neighbours means branches that cannot be
// predicted.
void sort_captures(Move* first, Move* last) {
    std::array<std::uint64_t, MoveList::capacity> words;
    std::uint64_t counts = 0;
    const auto size = static_cast<std::size_t>(last - first);
    const auto shift = [](std::uint64_t word) { return group_shifts[word >> 16 & 15]; };
    for (std::size_t i = 0; i < size; ++i) {
        words[i] = first[i].word();
        counts += std::uint64_t{1} << shift(words[i]);
    }
    // Each group begins where all groups before it end.
    constexpr std::uint64_t ones = 1 | 1ULL << group_bits | 1ULL << 2 * group_bits | 1ULL << 3 * group_bits;
    std::uint64_t begins = counts * ones << group_bits;
    for (std::size_t i = 0; i < size; ++i) {
        first[begins >> shift(words[i]) & ((1U << group_bits) - 1)] =
            Move::from_word(static_cast<std::uint32_t>(words[i]));
        begins += std::uint64_t{1} << shift(words[i]);
    }
}

}  // namespace velmora
