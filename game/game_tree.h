#pragma once

#include <cstdint>
#include <string>

#include "game/element_list.h"
#include "game/move_section_element.h"

namespace velmora {

class MoveSection;

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
    void skip_used_ids();

    ElementList m_nodes;  // by id; a marker, or what follows a hole, is an empty place
    std::int64_t m_next_id = 1;
    Side m_start_color = Side::white;
    std::int32_t m_start_move_number = 1;
    std::uint64_t m_text_offset = 0;
};

}  // namespace velmora
