#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "chess/board/side.h"
#include "game/game_tree.h"

namespace velmora {

enum class SheetItemKind { move, comment, chip, variation_begin, variation_end, result };

/// What a chip tells.
enum class ChipKind { none, evaluation, clock, elapsed };

/// One thing that a view of the moves shows.
struct SheetItem {
    SheetItemKind kind = SheetItemKind::move;
    std::int32_t node =
        0;  ///< the move itself, or the one that a comment, a chip or a parenthesis belongs to
    std::int32_t depth = 0;  ///< 0 on the main line, 1 in its variations
    Side side = Side::white;
    std::string text;       ///< the move in SAN, the words of a comment, "+0.35", "1-0"
    std::string number;     ///< of a move: "12." or "12..."
    bool numbered = false;  ///< whether the number is printed where moves run on
    std::string glyph;      ///< of a move: "$1", empty without one
    ChipKind chip = ChipKind::none;
    /// Of a move that has alternatives: the one ahead of it among them and the one behind it, -1 for none.
    std::int32_t above = -1, below = -1;
};

/// The moves of a game as one list in reading order, for a view that knows no rules.
///
/// A variation stands behind the move that it replaces, as in PGN; alternatives to the first move are there
/// too. Sides and numbers are counted from the start of the game and not taken from the records, where an
/// alternative to the first move of a loaded game counts as Black's.
///
/// "[%eval]", "[%clk]" and "[%emt]" become chips, in this order; other annotations are for programs and not
/// shown.
///
/// A flat list, so that a view needs no recursion, however deeply a game is nested, and finds what has
/// changed by comparing.
class MoveSheet {
public:
    MoveSheet() = default;
    /// @param covered  the node whose moves are shown without their alternatives, -1 for none
    explicit MoveSheet(const GameTree& tree, std::int32_t covered = -1);

    const std::vector<SheetItem>& items() const { return m_items; }

    static constexpr std::size_t none = static_cast<std::size_t>(-1);
    /// The index of a move in items(); `none` when it isn't there. A result is found by its node.
    std::size_t index_of(std::int32_t node) const;

    /// A move as a screen reader says it: "12. Nf3, good move, +0.35", in a variation "..., variation".
    /// REQUIRES: the item at this index is a move.
    std::string in_words(std::size_t index) const;

private:
    friend class MoveSheetBuilder;

    std::vector<SheetItem> m_items;
    std::vector<std::size_t> m_index;  // by node
};

}  // namespace velmora
