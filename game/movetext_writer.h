#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "game/game_tree.h"

namespace velmora {

/// The text of one node without its number: a move with its glyph and comment, a result, a parenthesis.
std::string node_text(const MoveSectionElement& node);

/// Prints a tree as movetext in one line, and notes in each printed node where its text stands.
///
/// A variation stands right behind the move that it replaces. Numbers: "12.Nf3" and no blank behind the
/// point; Black's moves have one where a variation begins or a comment stands ahead of them, and at both of
/// these it is printed twice: " ( 12... 12...Nf6". Alternatives to the very first move are not printed.
///
/// The open variations are a list of its own and no recursion, so that a deeply nested game can't use up
/// the thread's stack.
class MovetextWriter {
public:
    explicit MovetextWriter(GameTree& tree) : m_tree(tree) {}

    /// The movetext, with " *" behind a main line without a result.
    std::string text();

    /// Bytes of the text ahead of the first move: "12..." of a game that Black begins, else none.
    std::uint64_t text_offset() const { return m_text_offset; }

private:
    /// A node whose variations are being written: the main line goes on when they are done.
    struct Branching {
        std::int32_t id;
        std::size_t next_child;
    };

    void write_start();
    void write_lines(std::int32_t first);
    bool next_line(std::int32_t& id);
    void open_variation(std::int32_t id);
    void write_node(std::int32_t id);
    void write_number(const MoveSectionElement& node, bool opens_variation);
    bool has_result() const;

    GameTree& m_tree;
    std::string m_text;
    std::uint64_t m_text_offset = 0;
    std::vector<Branching> m_open;  // innermost last
};

}  // namespace velmora
