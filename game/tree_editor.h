#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "game/game_tree.h"

namespace velmora {

/// Changes the order and the extent of a tree, and takes each change back, the last one first.
///
/// Kept is what a change took or moved and no copy of the tree: what was played or written since stays when a
/// deletion is taken back, and a long game costs nothing. Nodes that come back keep their ids where these are
/// free; the history follows where they don't.
///
/// A result ends the main line, and stays there whatever becomes the main line: in a variation it would end
/// the game for every reader in the middle of the text. That is why nothing here touches the tag "Result".
class TreeEditor {
public:
    /// Puts the innermost variation that a node is part of ahead of what it is an alternative to; the line
    /// that was there becomes a variation. False on the main line.
    bool promote(GameTree& tree, std::int32_t id);

    /// Does so at each branching up to the start of the game. False on the main line.
    bool make_main_line(GameTree& tree, std::int32_t id);

    /// Takes a move out with all that follows; the first variation beside it takes its place. False for
    /// anything but a move.
    /// @param stood  the node to give back by undo(), which may be one of those that go
    bool remove(GameTree& tree, std::int32_t id, std::int32_t stood);

    /// Puts a node ahead of its siblings. A part of what is played and no change of the person's: undo()
    /// takes it back on its way to one, so that the places are those that it knows.
    void lead(GameTree& tree, std::int32_t id);

    bool can_undo() const {
        return std::ranges::any_of(m_history, [](const Change& change) { return !change.played; });
    }

    /// Takes the last change back. Gives the node where one stood, when it is one of those that have come
    /// back.
    std::optional<std::int32_t> undo(GameTree& tree);

    void forget() { m_history.clear(); }

private:
    /// A node that came from one place to another.
    struct MovedNode {
        std::int32_t id;
        std::int32_t from;
        std::size_t place;
        std::int32_t to;
        ElementType type;  // another one stands there when a game that went on has dropped its result
    };
    struct Change {
        std::vector<MovedNode> moved;
        std::optional<CutBranch> cut;  // after the nodes were moved
        std::optional<std::int32_t> stood;
        bool played = false;
    };

    static void move_node(GameTree& tree, Change& change, std::int32_t id, std::int32_t parent,
                          std::size_t place);
    static bool promote_once(GameTree& tree, Change& change, std::int32_t id);
    std::optional<std::int32_t> undo_last(GameTree& tree);
    void rename(const RenamedNodes& renamed);

    std::vector<Change> m_history;
};

}  // namespace velmora
