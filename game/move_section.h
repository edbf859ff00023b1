#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "game/element_list.h"
#include "game/pgn_tokenizer.h"

namespace velmora {

/// The flat list that the tokens of a game turn into: every move, result and variation marker in the order of
/// the text, each with the id of its parent. Element 0 is the root.
///
/// A list first and a tree then, because in one pass over the tokens a move's children aren't known yet,
/// while its parent always is: the move ahead of it or, behind an opening parenthesis, the parent of the
/// move that it replaces. Linking the children is a second pass over the list.
class MoveSection {
public:
    /// Variations may be nested this deep. More than any annotator has needed; the limit keeps a file of
    /// nothing but parentheses from filling the memory.
    static constexpr std::size_t deepest_variation = 500;

    MoveSection() { reset(); }

    /// The root alone; the game starts with White's move 1.
    void reset();

    /// Side to move and move number at the start. REQUIRES: before load().
    void set_start(Side color, std::int32_t move_number);
    Side start_color() const { return m_start_color; }
    std::int32_t start_move_number() const { return m_start_move_number; }

    /// Appends the elements of a game and links children to parents. Tags among the tokens are ignored, so
    /// are stray closing parentheses. A variation ahead of the first move, or one that is nested too deep,
    /// throws std::logic_error "MoveSection::load invalid subvariation". REQUIRES: called once after reset().
    void load(std::span<const MoveToken> tokens);

    /// Elements that are no variation markers.
    std::size_t node_count() const { return m_elements.size() - m_markers; }

    const ElementList& elements() const { return m_elements; }
    /// For the tree, which takes the elements over and leaves its own.
    ElementList& elements() { return m_elements; }

private:
    /// A line while it is read: the id of its last move, and the move that it is a variation on.
    struct Line {
        std::int32_t current = -1;
        std::int32_t parent = -1;
    };

    bool read_token(const MoveToken& token);
    void add_number(std::string_view digits);
    void add_san(std::string_view san);
    void set_comment(std::string_view text);
    void open_variation();
    void close_variation();
    void add_result(std::string_view result);
    void drop_number_without_move();
    MoveSectionElement& append(std::int32_t pid);
    MoveSectionElement& append_move();
    Side answering_color(std::int32_t pid) const;
    void append_marker(ElementType type, std::int32_t pid);
    void link_and_number();

    ElementList m_elements;
    std::size_t m_markers = 0;
    Side m_start_color = Side::white;
    std::int32_t m_start_move_number = 1;
    std::vector<Line> m_lines;       // while loading: the main line and the open variations, innermost last
    std::string m_replaced_comment;  // while loading: what the last comment has replaced
    std::size_t m_commented_twice = 0;  // the number of elements at that time
};

}  // namespace velmora
