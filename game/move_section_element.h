#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "chess/board/side.h"

namespace velmora {

/// What a record of a game is. The two markers stand in the flat list of a load alone, never in a tree.
enum class ElementType : std::int32_t {
    move = 0,
    start_game = 1,
    end_game = 2,
    begin_variation = 3,
    end_variation = 4
};

/// One record of a game: an element of the flat list that a load makes, and a node of the tree.
///
/// One type for list and tree, so that the one becomes the other without copying a text.
struct MoveSectionElement {
    ElementType type = ElementType::move;
    std::int32_t id = 0;            ///< the index in the flat list, the key in the tree
    std::int32_t pid = 0;           ///< the id of the parent; the root is its own
    std::int32_t move_number = -1;  ///< the full-move number as it is printed
    /// Who made the move; nobody for a result, a marker and the root of a new game. The root of a loaded game
    /// counts as White's, so that the first move is an answer like any other.
    std::optional<Side> color = Side::white;
    bool printed = false;          ///< the printer's own note while it walks
    std::uint64_t text_begin = 0;  ///< byte offset of the node's text in the movetext that was printed last
    std::uint64_t text_end = 0;
    std::string san;      ///< empty for anything but a move
    std::string nag;      ///< one numeric glyph with its dollar sign, "$1"
    std::string comment;  ///< what follows the move; on the root, what stands ahead of the first one
    std::string result;   ///< of an end_game, a result word with or without a sentence around it
    std::vector<std::int32_t> children;  ///< ids; index 0 is the main line, the others are variations

    bool is_marker() const {
        return type == ElementType::begin_variation || type == ElementType::end_variation;
    }

    /// The id of a child, -1 past the last one.
    std::int32_t child_at(std::size_t index) const { return index < children.size() ? children[index] : -1; }
    std::size_t children_count() const { return children.size(); }

    /// Back to the defaults; the texts keep their memory for the next game.
    void reset();
};

}  // namespace velmora
