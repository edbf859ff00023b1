#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "game/element_list.h"
#include "game/move_section_element.h"

namespace velmora {

class MoveSection;

/// A node with all below it, out of its tree.
struct CutBranch {
    std::int32_t parent = 0;                ///< whose child the first node was
    std::size_t place = 0;                  ///< among the parent's children
    std::vector<MoveSectionElement> nodes;  ///< parents ahead of children, children in their order
};

/// Ids that had to change, old and new. An old one may be that of another node by now.
using RenamedNodes = std::vector<std::pair<std::int32_t, std::int32_t>>;

/// The moves, variations, comments and results of a game: nodes by id, related by ids alone.
///
/// Node 0 is the root and always there. A node's first child is the main line, every further one a variation.
/// Ids have holes where a loaded game had its variation markers; a node that is added may fill one.
///
/// Ids rather than pointers: a loaded list becomes a tree without being copied, a view can keep an id
/// while the tree changes, and one that is gone is found out instead of read. All nodes stand in one list,
/// parents ahead of children where they were loaded.
class GameTree {
public:
    GameTree() { reset(); }

    /// The root alone, of no colour; the game starts with White's move 1.
    void reset();

    /// Takes over the elements of a loaded game, whose indexes become the ids, and leaves `section` empty.
    /// The root counts as White's from now on.
    ///
    /// By exchanging the lists, so that both keep their memory for the next game.
    void rebuild(MoveSection& section);

    /// Stores a copy of `record` as the last child of `parent`, with id, parent, colour and move number set,
    /// and gives its id. Throws std::logic_error "GameTree::add_child: invalid index" for an absent parent.
    std::int32_t add_child(std::int32_t parent, const MoveSectionElement& record);

    /// Takes a node without children out; its id is the next to be given. REQUIRES: has_node(id), id != 0.
    void remove_leaf(std::int32_t id);

    /// Takes a node out with all below it. REQUIRES: has_node(id), id != 0.
    CutBranch cut(std::int32_t id);

    /// Puts a branch back under its parent, at its place or behind the last child. Nodes keep their ids as
    /// far as these are free. REQUIRES: has_node(branch.parent).
    RenamedNodes paste(CutBranch branch);

    /// Makes a node with all below it a child of `parent`, at `place` among its children or behind the last
    /// one. Colours and numbers stay. REQUIRES: both are there, and `parent` isn't below the node.
    void move_node(std::int32_t id, std::int32_t parent, std::size_t place);

    /// Numbers and colours a first move of the game and all that follows, as of the game's start.
    ///
    /// A loaded alternative to the first move counts as Black's (see rebuild()), which doesn't fit the main
    /// line.
    void count_from_start(std::int32_t id);

    /// The place of a node among its parent's children. REQUIRES: has_node(id), id != 0.
    std::size_t place_of(std::int32_t id) const;
    /// The last node of the line that begins at a node and goes on with the first child of each.
    std::int32_t end_of_line(std::int32_t id) const;
    /// The first node of the innermost variation that a node is part of; 0 for the main line.
    std::int32_t variation_of(std::int32_t id) const;
    /// Whether a node is `ancestor` or below it.
    bool is_within(std::int32_t id, std::int32_t ancestor) const;

    bool has_node(std::int32_t id) const;
    /// Throws std::out_of_range for an absent id.
    MoveSectionElement& node(std::int32_t id);
    const MoveSectionElement& node(std::int32_t id) const;

    /// The id of the next node that is added; 1 in a new tree.
    std::int64_t next_id() const { return m_next_id; }
    /// Above every id in use.
    std::int32_t end_id() const { return static_cast<std::int32_t>(m_nodes.size()); }

    /// The moves as PGN text, wrapped at 80 columns. Notes in every node that prints where its text stands.
    ///
    /// 80 columns are the export format of the PGN standard (8.2.1).
    std::string movetext();

    /// A listing for people who search a fault.
    std::string dump() const;

    Side start_color() const { return m_start_color; }
    void set_start_color(Side color) { m_start_color = color; }
    std::int32_t start_move_number() const { return m_start_move_number; }

    /// Bytes ahead of the first move's own text in the movetext that was printed last; in the nodes' offsets
    /// already.
    std::uint64_t text_offset() const { return m_text_offset; }

private:
    void put(MoveSectionElement element);
    void skip_used_ids();

    ElementList m_nodes;  // by id; a marker, or what follows a hole, is an empty place
    std::int64_t m_next_id = 1;
    Side m_start_color = Side::white;
    std::int32_t m_start_move_number = 1;
    std::uint64_t m_text_offset = 0;
};

}  // namespace velmora
